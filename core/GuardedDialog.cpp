#include "core/GuardedDialog.h"

#include <QCloseEvent>

void GuardedDialog::CloseChecked() {
    if (!MayClose()) return;
    CloseUnchecked();
}

void GuardedDialog::CloseUnchecked() {
    Closing();
    closing_ = true;
    QDialog::reject();
}

void GuardedDialog::reject() {
    // Escape takes the same way out as Close.
    if (closing_) {
        QDialog::reject();
        return;
    }
    CloseChecked();
}

void GuardedDialog::closeEvent(QCloseEvent* event) {
    if (closing_ || MayClose()) {
        closing_ = true;
        event->accept();
        QDialog::closeEvent(event);
        return;
    }
    event->ignore();
}
