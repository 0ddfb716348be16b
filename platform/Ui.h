#pragma once

#include <QString>

class QDialog;
class QWidget;

// Answer codes and box flags, numbered as the program's boxes have always been.
namespace vb {
enum : int { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
enum : int {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbAbortRetryIgnore = 2,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbRetryCancel = 5,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton2 = 256,
    vbDefaultButton3 = 512,
    vbMsgBoxHelpButton = 16384
};
}  // namespace vb

// Every box, input box, file dialog and modal screen goes through here, so that
// tests can answer them and see what the user would have seen.
class Ui {
public:
    virtual ~Ui();
    virtual int MsgBox(const QString& prompt, int buttons = 0, const QString& title = QString(),
                       const QString& helpFile = QString(), int context = 0) = 0;
    // "" when cancelled.
    virtual QString InputBox(const QString& prompt, const QString& title = QString(),
                             const QString& def = QString()) = 0;
    virtual QString OpenFileName(const QString& title, const QString& dir, const QString& filter) = 0;
    virtual QString SaveFileName(const QString& title, const QString& dir, const QString& filter) = 0;
    virtual QString FolderName(const QString& title, const QString& dir) = 0;
    virtual int ShowModal(QDialog* dialog) = 0;
    virtual void ShowModeless(QWidget* window, QWidget* owner) = 0;
};

Ui& TheUi();
// Not owning; nullptr puts the real dialogs back.
void SetUi(Ui* ui);

int MsgBox(const QString& prompt, int buttons = 0, const QString& title = QString(),
           const QString& helpFile = QString(), int context = 0);
QString InputBox(const QString& prompt, const QString& title = QString(), const QString& def = QString());

// The title a box shows when its caller gives none.
inline QString DefaultBoxTitle() { return QStringLiteral("Larderkeep"); }
