#pragma once

#include <QDialog>

class QCloseEvent;

// A screen whose Close button, Escape and window close all take one way out:
// MayClose is asked once, and a screen that already agreed to close is not
// asked again.
class GuardedDialog : public QDialog {
public:
    using QDialog::QDialog;

    // The Close button's way out.
    void CloseChecked();
    // Closes without asking, after work that left nothing to lose.
    void CloseUnchecked();
    void reject() override;

protected:
    virtual bool MayClose() = 0;
    // Runs as the Close button or Escape closes the screen.
    virtual void Closing() {}
    void closeEvent(QCloseEvent* event) override;

private:
    bool closing_ = false;
};
