#include "coupons/frmNewBarcode.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modBarcode.h"
#include "core/modEffects.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmNewBarcode::frmNewBarcode(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNewBarcode"));
    setWindowTitle(QStringLiteral("Enter Barcode"));

    lblInstruction = new QLabel(
        QStringLiteral(" Enter or scan the Items barcode while the cursor is in the 'Barcode' field."), this);
    lblInstruction->setObjectName(QStringLiteral("lblInstruction"));
    lblInstruction->setWordWrap(true);
    txtBarcode = new QLineEdit(this);
    txtBarcode->setObjectName(QStringLiteral("txtBarcode"));
    txtBarcode->installEventFilter(this);
    picBarcode = new QLabel(this);
    picBarcode->setObjectName(QStringLiteral("picBarcode"));
    picBarcode->setFixedSize(380, 80);  // twelve digits at two pixels a narrow bar
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setEnabled(false);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* field = new QHBoxLayout;
    field->addWidget(new QLabel(QStringLiteral("Barcode:"), this));
    field->addWidget(txtBarcode, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblInstruction);
    layout->addLayout(field);
    layout->addWidget(picBarcode, 0, Qt::AlignHCenter);
    layout->addLayout(buttons);

    connect(txtBarcode, &QLineEdit::textChanged, this, &frmNewBarcode::txtBarcode_Change);
    connect(cmdOK, &QPushButton::clicked, this, &frmNewBarcode::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmNewBarcode::cmdCancel_Click);
}

QString frmNewBarcode::GetItemBarcode(const QString& existing, const QString&, const QString&) {
    frmNewBarcode form(MainWindow());
    form.existing_ = existing;
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
    return form.result_;
}

void frmNewBarcode::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    txtBarcode->setFocus();
}

bool frmNewBarcode::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtBarcode && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmdOK_Click();  // even while OK is disabled: any length goes through
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmNewBarcode::txtBarcode_Change(const QString& text) {
    if (!IsNumeric(text)) return;
    DrawBarcode(text, picBarcode);
    cmdOK->setEnabled(text.size() == 12);
}

void frmNewBarcode::cmdOK_Click() {
    result_ = txtBarcode->text();
    Finish(QDialog::Accepted);
}

void frmNewBarcode::cmdCancel_Click() {
    result_.clear();
    Finish(QDialog::Rejected);
}

void frmNewBarcode::Finish(int code) {
    ImplodeForm(this, Registry().ExplodeRate());
    done(code);
}
