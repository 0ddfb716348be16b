#include "messages/frmReminder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>

#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "messages/clsMessages.h"
#include "platform/Ui.h"
#include "publish/clsCommunications.h"

frmReminder::frmReminder(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmReminder"));
    setAttribute(Qt::WA_DeleteOnClose);

    imgOverdue = new QLabel(this);
    imgOverdue->setObjectName(QStringLiteral("imgOverdue"));
    imgOverdue->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
    imgOverdue->setToolTip(QStringLiteral("This Reminder is Overdue"));
    imgOverdue->setAlignment(Qt::AlignTop);

    lblReminder = new QLabel(this);
    lblReminder->setObjectName(QStringLiteral("lblReminder"));
    lblReminder->setWordWrap(true);
    lblReminder->setMinimumWidth(320);
    lblReminder->setTextInteractionFlags(Qt::TextSelectableByMouse);

    chkRemindAgain = new QCheckBox(QStringLiteral("Remind me again"), this);
    chkRemindAgain->setObjectName(QStringLiteral("chkRemindAgain"));
    cboReminderTimer = new QComboBox(this);
    cboReminderTimer->setObjectName(QStringLiteral("cboReminderTimer"));
    cboReminderTimer->addItem(QStringLiteral("Before closing Larderkeep"));
    cboReminderTimer->setEnabled(false);

    auto button = [this](const char* name, const QString& caption) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        return b;
    };
    cmdClose = button("cmdClose", QStringLiteral("&Close"));
    cmdIgnore = button("cmdIgnore", QStringLiteral("&Ignore"));
    cmdRemove = button("cmdRemove", QStringLiteral("&Remove"));
    cmdOutlook = button("cmdOutlook", QStringLiteral("&Export"));
    cmdHelp = button("cmdHelp", QStringLiteral("&Help"));

    connect(chkRemindAgain, &QCheckBox::toggled, this, &frmReminder::chkRemindAgain_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmReminder::cmdClose_Click);
    connect(cmdIgnore, &QPushButton::clicked, this, &frmReminder::cmdIgnore_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmReminder::cmdRemove_Click);
    connect(cmdOutlook, &QPushButton::clicked, this, &frmReminder::cmdOutlook_Click);
    connect(cmdHelp, &QPushButton::clicked, this, &frmReminder::cmdHelp_Click);

    auto* top = new QHBoxLayout;
    top->addWidget(imgOverdue);
    top->addWidget(lblReminder, 1);
    auto* again = new QHBoxLayout;
    again->addWidget(chkRemindAgain);
    again->addWidget(cboReminderTimer, 1);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {cmdClose, cmdIgnore, cmdRemove, cmdOutlook, cmdHelp}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(again);
    layout->addLayout(buttons);

    Form_Load();
}

void frmReminder::Form_Load() {
    if (cboReminderTimer->count() == 1) {
        cboReminderTimer->addItem(QStringLiteral("in 10 minutes"));
        cboReminderTimer->addItem(QStringLiteral("in 1 hour"));
    }
    cboReminderTimer->setCurrentIndex(0);
    imgOverdue->setVisible(ReminderOverdue);
}

void frmReminder::showEvent(QShowEvent* event) {
    imgOverdue->setVisible(ReminderOverdue);
    QDialog::showEvent(event);
}

void frmReminder::SetMessageID(const QString& title) {
    title_ = title;
    setWindowTitle(QStringLiteral("Reminder ") + title);
}

void frmReminder::SetMessageText(const QString& text) { lblReminder->setText(text); }

void frmReminder::chkRemindAgain_Click() { cboReminderTimer->setEnabled(chkRemindAgain->isChecked()); }

void frmReminder::cmdClose_Click() {
    if (!chkRemindAgain->isChecked()) {
        Response = MsgBox(QStringLiteral("This message has not been marked for further notification so it will be "
                                         "deleted. Do you want to continue?"),
                          Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Continue"));
        if (Response == Answer::Yes) {
            cmdRemove_Click();
            return;
        }
    }
    // Kept: the timed choices are stored, though they come back at the next
    // exit or start like the first.
    const QString when = cboReminderTimer->currentText();
    qint32 time = 0;
    if (when == QLatin1String("Before closing Larderkeep"))
        time = 1;
    else if (when == QLatin1String("in 10 minutes"))
        time = 2;
    else if (when == QLatin1String("in 1 hour"))
        time = 3;
    clsMessages messages;
    messages.ReminderTime(time);
    messages.UpdateMessage(title_);
    close();
}

void frmReminder::cmdIgnore_Click() {
    // Silent until the next start, which arms it again.
    clsMessages messages;
    messages.ReminderTime(4);
    messages.UpdateMessage(title_);
    close();
}

void frmReminder::cmdOutlook_Click() {
    clsMessages messages;
    messages.ExportToOutlook(title_, lblReminder->text());
    cmdRemove_Click();
}

void frmReminder::cmdRemove_Click() {
    clsMessages messages;
    if (messages.DelMessage(title_)) clsMessages::RemoveFromMessageCenter(title_);
    close();
}

void frmReminder::cmdHelp_Click() {
    const QString help = Registry().HelpFile();
    if (!help.isEmpty() && QFile::exists(help)) {
        clsCommunications::OpenLink(QUrl::fromLocalFile(help).toString());
        return;
    }
    MsgBox(QStringLiteral("The help file could not be found."), Box::Exclamation, QStringLiteral("Help"));
}
