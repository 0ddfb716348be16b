#include "messages/frmReminder.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmReminder::frmReminder(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmReminder"));
    setAttribute(Qt::WA_DeleteOnClose);
    lblReminder = new QLabel(this);
    lblReminder->setWordWrap(true);
    lblReminder->setMinimumWidth(320);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    connect(cmdClose, &QPushButton::clicked, this, &frmReminder::cmdClose_Click);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblReminder);
    layout->addLayout(buttons);
}

void frmReminder::SetMessageID(const QString& title) {
    title_ = title;
    setWindowTitle(QStringLiteral("Reminder ") + title);
}

void frmReminder::SetMessageText(const QString& text) { lblReminder->setText(text); }

void frmReminder::cmdClose_Click() { close(); }
