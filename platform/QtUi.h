#pragma once

#include "platform/Ui.h"

// The real dialogs.
class QtUi : public Ui {
public:
    int MsgBox(const QString& prompt, int buttons, const QString& title, const QString& helpFile, int context) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& def) override;
    QString OpenFileName(const QString& title, const QString& dir, const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& dir, const QString& filter,
                         bool confirmOverwrite = true) override;
    QString FolderName(const QString& title, const QString& dir) override;
    int ShowModal(QDialog* dialog) override;
    void ShowModeless(QWidget* window, QWidget* owner) override;
};
