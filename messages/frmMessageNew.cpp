#include "messages/frmMessageNew.h"

#include <QCalendarWidget>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyle>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "messages/EditorToolbar.h"
#include "messages/clsMessages.h"
#include "platform/Clock.h"
#include "platform/Ui.h"

namespace {
const QString kSubjectPrompt = QStringLiteral("<Enter Subject>");
const QString kNoBody = QStringLiteral("(None)");
}  // namespace

frmMessageNew::frmMessageNew(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMessageNew"));

    txtSubject = new QLineEdit(kSubjectPrompt, this);
    txtSubject->setObjectName(QStringLiteral("txtSubject"));
    // A title is the message's key and holds at most 50 characters.
    txtSubject->setMaxLength(50);
    txtMessage = new QTextEdit(this);
    txtMessage->setObjectName(QStringLiteral("txtMessage"));
    txtMessage->setAcceptRichText(false);
    txtMessage->setPlainText(kNoBody);

    lblDate = new QLabel(QStringLiteral("None"), this);
    lblDate->setObjectName(QStringLiteral("lblDate"));
    lblDate->setCursor(Qt::PointingHandCursor);
    lblDate->installEventFilter(this);
    imgDate = new QLabel(this);
    imgDate->setObjectName(QStringLiteral("imgDate"));
    imgDate->setPixmap(style()->standardIcon(QStyle::SP_FileDialogContentsView).pixmap(16, 16));
    imgDate->setCursor(Qt::PointingHandCursor);
    imgDate->installEventFilter(this);
    MonthView1 = new QCalendarWidget(this);
    MonthView1->setObjectName(QStringLiteral("MonthView1"));
    MonthView1->setVisible(false);
    connect(MonthView1, &QCalendarWidget::clicked, this, &frmMessageNew::MonthView1_DateClick);

    tbEditor = new EditorToolbar(txtMessage, this);
    tbEditor->AddButton(QStringLiteral("Spell"), QStringLiteral("Spell"));
    tbEditor->AddButton(QStringLiteral("Close"), QStringLiteral("Close"));
    tbEditor->AddButton(QStringLiteral("Email"), QStringLiteral("Email"));
    connect(tbEditor, &EditorToolbar::buttonClicked, this, &frmMessageNew::tbEditor_ButtonClick);
    tbType = new QToolButton(this);
    tbType->setObjectName(QStringLiteral("tbType"));
    tbType->setText(QStringLiteral("Type"));
    tbType->setPopupMode(QToolButton::InstantPopup);
    auto* types = new QMenu(tbType);
    QAction* r = types->addAction(QStringLiteral("Reminder"));
    r->setObjectName(QStringLiteral("R"));
    QAction* m = types->addAction(QStringLiteral("Message"));
    m->setObjectName(QStringLiteral("M"));
    connect(r, &QAction::triggered, this, [this] { tbEditor_ButtonMenuClick(QStringLiteral("R")); });
    connect(m, &QAction::triggered, this, [this] { tbEditor_ButtonMenuClick(QStringLiteral("M")); });
    tbType->setMenu(types);
    tbEditor->addWidget(tbType);

    cmdAddMessage = new QPushButton(QStringLiteral("&Add"), this);
    cmdAddMessage->setObjectName(QStringLiteral("cmdAddMessage"));
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    for (QPushButton* b : {cmdAddMessage, cmdClose}) b->setAutoDefault(false);
    connect(cmdAddMessage, &QPushButton::clicked, this, &frmMessageNew::cmdAddMessage_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmMessageNew::cmdClose_Click);
    connect(txtSubject, &QLineEdit::textChanged, this, [this] { SetCaption(); });

    auto* subject = new QHBoxLayout;
    subject->addWidget(new QLabel(QStringLiteral("Subject:"), this));
    subject->addWidget(txtSubject, 1);
    auto* date = new QHBoxLayout;
    date->addWidget(new QLabel(QStringLiteral("Date:"), this));
    date->addWidget(imgDate);
    date->addWidget(lblDate, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdAddMessage);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tbEditor);
    layout->addLayout(subject);
    layout->addLayout(date);
    layout->addWidget(MonthView1);
    layout->addWidget(txtMessage, 1);
    layout->addLayout(buttons);
    resize(460, 380);

    Form_Load();
}

void frmMessageNew::Form_Load() {
    date_ = QStringLiteral("None");
    type_ = 2;
    SetCaption();
}

void frmMessageNew::SetCaption() {
    const QString subject = txtSubject->text() == kSubjectPrompt ? QString() : txtSubject->text();
    setWindowTitle((type_ == 1 ? QStringLiteral("[Reminder] ") : QStringLiteral("[Message] ")) + subject);
}

bool frmMessageNew::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == lblDate || watched == imgDate) && event->type() == QEvent::MouseButtonRelease) {
        lblDate_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmMessageNew::lblDate_Click() {
    MonthView1->setSelectedDate(date_ == QLatin1String("None") ? Clock::Today() : CDate(date_).date());
    MonthView1->setVisible(true);
}

void frmMessageNew::MonthView1_DateClick(const QDate& day) {
    date_ = CStr(QVariant(day));
    lblDate->setText(Format(QVariant(day), QStringLiteral("dddd, mmm d yyyy")));
    MonthView1->setVisible(false);
}

void frmMessageNew::tbEditor_ButtonClick(const QString& key) {
    if (key == QLatin1String("Close")) {
        cmdClose_Click();
    } else if (key == QLatin1String("Email")) {
        Response = MsgBox(QStringLiteral("This will save this Message as a file that can be emailed and imported") +
                              QStringLiteral("\r\n") +
                              QStringLiteral("into Microsoft Outlook's Calendar. Do you want to continue?"),
                          Box::YesNo + Box::Question, QStringLiteral("Export Message"));
        if (Response == Answer::Yes)
            MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
    }
}

void frmMessageNew::tbEditor_ButtonMenuClick(const QString& key) {
    if (key == QLatin1String("R"))
        type_ = 1;
    else if (key == QLatin1String("M"))
        type_ = 2;
    SetCaption();
}

void frmMessageNew::cmdAddMessage_Click() {
    const QString subject = txtSubject->text();
    if (subject == kSubjectPrompt || subject.isEmpty()) {
        MsgBox(QStringLiteral("This Message must have a Subject."), Box::Exclamation + Box::HelpButton,
               QStringLiteral("Missing Message"), Registry().HelpFile(), 1040);
        txtSubject->setFocus();
        return;
    }
    QString body = txtMessage->toPlainText();
    // Text typed in front of the placeholder leaves it as the placeholder.
    if (body.indexOf(QLatin1String("None)")) >= 1) body = kNoBody;
    clsMessages messages;
    if (!messages.WriteNew(subject, body, date_, type_, 4)) return;
    Q_EMIT Notices().AddMessage(subject, body, date_, type_);
    txtSubject->clear();
    txtMessage->clear();
}

bool frmMessageNew::HasUnsavedText() const {
    const QString subject = txtSubject->text();
    const QString body = txtMessage->toPlainText();
    return (!subject.isEmpty() && subject != kSubjectPrompt) || (!body.isEmpty() && body != kNoBody);
}

void frmMessageNew::cmdClose_Click() {
    if (HasUnsavedText()) {
        Response = MsgBox(QStringLiteral("This message has not been saved, Exit anyway?"), Box::YesNo + Box::Question,
                          QStringLiteral("Exit"));
        if (Response != Answer::Yes) return;
    }
    closing_ = true;
    close();
}

void frmMessageNew::closeEvent(QCloseEvent* event) {
    // The window's own close box asks the same question as the button.
    if (!closing_ && HasUnsavedText()) {
        Response = MsgBox(QStringLiteral("This message has not been saved, Exit anyway?"), Box::YesNo + Box::Question,
                          QStringLiteral("Exit"));
        if (Response != Answer::Yes) {
            event->ignore();
            return;
        }
    }
    closing_ = false;
    QDialog::closeEvent(event);
}
