#include "messages/frmMessageDisplay.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "platform/Ui.h"

frmMessageDisplay::frmMessageDisplay(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMessageDisplay"));
    setAttribute(Qt::WA_DeleteOnClose);
    lblDate = new QLabel(this);
    lblDate->setObjectName(QStringLiteral("lblDate"));
    txtMessage = new QTextEdit(this);
    txtMessage->setObjectName(QStringLiteral("txtMessage"));
    txtMessage->setReadOnly(true);
    txtMessage->setAcceptRichText(false);
    cmdExport = new QPushButton(QStringLiteral("&Export"), this);
    cmdExport->setObjectName(QStringLiteral("cmdExport"));
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    connect(cmdExport, &QPushButton::clicked, this, &frmMessageDisplay::cmdExport_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmMessageDisplay::cmdClose_Click);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdExport);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblDate);
    layout->addWidget(txtMessage, 1);
    layout->addLayout(buttons);
    resize(420, 300);
}

void frmMessageDisplay::SetMessage(const QString& title, const QString& date, const QString& body) {
    setWindowTitle(title);
    lblDate->setText(date);
    txtMessage->setPlainText(body);
}

void frmMessageDisplay::cmdExport_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}
