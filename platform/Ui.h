#pragma once

#include <QString>

class QDialog;
class QWidget;

// The answer a box returns, and the flags that choose its buttons, icon and
// default button. The numbers are fixed: settings and tests store them.
namespace Answer {
enum : int { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
}  // namespace Answer

namespace Box {
enum : int {
    OKOnly = 0,
    OKCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    DefaultButton2 = 256,
    DefaultButton3 = 512,
    HelpButton = 16384
};
}  // namespace Box

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
    // A caller that asks its own over-write question passes false, so the
    // person is not asked twice.
    virtual QString SaveFileName(const QString& title, const QString& dir, const QString& filter,
                                 bool confirmOverwrite = true) = 0;
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
