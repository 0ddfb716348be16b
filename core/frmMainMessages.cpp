// The message centre of the main window: its list, the reminders that fall due
// at start, and the commands of its menu.
#include "core/frmMain.h"

#include <QDir>
#include <QHash>
#include <QItemSelectionModel>
#include <QStandardItem>

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "messages/clsMessages.h"
#include "messages/frmMessageDisplay.h"
#include "messages/frmReminder.h"
#include "messages/rptMessage.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"

namespace {

// A stored date in the user's display form; words ("None") and anything else
// that is not a date show as they are.
QString ShownDate(const QString& date, const QString& pattern) {
    if (date.isEmpty() || date == QLatin1String("None") || !IsDate(date)) return date;
    return Format(QVariant(CDate(date)), pattern);
}

// The list shows the start of the text on one line.
QString ShownBody(const QString& body) {
    QString line = body;
    line.replace(QLatin1String("\r\n"), QLatin1String(";"));
    line.replace(QLatin1Char('\r'), QLatin1Char(';'));
    line.replace(QLatin1Char('\n'), QLatin1Char(';'));
    return line.left(40);
}

// A household has many notes on few days; reading each date text once keeps
// a long list quick to fill.
class DateTexts {
public:
    explicit DateTexts(const QString& pattern) : pattern_(pattern) {}
    QString Shown(const QString& date) {
        auto it = shown_.constFind(date);
        if (it == shown_.constEnd()) it = shown_.insert(date, ShownDate(date, pattern_));
        return *it;
    }

private:
    QString pattern_;
    QHash<QString, QString> shown_;
};

QList<QStandardItem*> MessageRow(const QString& title, const QString& body, const QString& shownDate,
                                 bool reminder) {
    QStandardItem* item = MainPanes::MakeNode(body.left(20), title);
    item->setData(reminder ? QStringLiteral("Reminder") : QStringLiteral("Message"), MainPanes::ImageKeyRole);
    item->setEditable(false);
    auto* when = new QStandardItem(shownDate);
    when->setEditable(false);
    auto* text = new QStandardItem(ShownBody(body));
    text->setEditable(false);
    return {item, when, text};
}

bool IsReminderType(const QVariant& type) { return !IsNull(type) && IsNumeric(type) && CDbl(type) == 1; }

}  // namespace

void frmMain::LoadMessages() {
    Trap(QStringLiteral("frmMain.LoadMessages"), [&] {
        MainPanes& panes = MainPanes::Instance();
        QStandardItemModel& model = panes.messages;
        if (model.columnCount() == 0 || !lvMessageCenter->property("lkColumnsSet").toBool()) {
            model.setHorizontalHeaderLabels(
                {QStringLiteral("Subject"), QStringLiteral("Date"), QStringLiteral("Message")});
            lvMessageCenter->SetColumnShares({25, 25, 49});
            lvMessageCenter->View(CLng(Registry().MessageView()));
            lvMessageCenter->setProperty("lkColumnsSet", true);
        }
        panes.Clear(model);

        DateTexts dates(Registry().DateDisplayFormat());
        QList<QList<QStandardItem*>> rows;
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Messages"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        while (!rs.IsEOF()) {
            rows << MessageRow(TextOf(rs.Field(QStringLiteral("Title"))), TextOf(rs.Field(QStringLiteral("Body"))),
                               dates.Shown(TextOf(rs.Field(QStringLiteral("Date")))),
                               IsReminderType(rs.Field(QStringLiteral("Type"))));
            rs.MoveNext();
        }
        rs.Close();
        for (const QList<QStandardItem*>& row : rows) model.appendRow(row);
        lvMessageCenter->Resort();
    });
}

void frmMain::AddMessage(const QString& title, const QString& body, const QString& date, int type) {
    Trap(QStringLiteral("frmMain.AddMessage"), [&] {
        MainPanes::Instance().messages.appendRow(
            MessageRow(title, body, ShownDate(date, Registry().DateDisplayFormat()), type == 1));
    });
}

void frmMain::DisplayReminders() {
    Trap(QStringLiteral("frmLoad.DisplayReminders"), [&] {
        // A reminder written fresh, or ignored last time, is armed again at
        // every start: "Ignore" lasts for one run.
        Recordset armed;
        armed.Open(QStringLiteral("SELECT * FROM Messages WHERE [Type] = 1 AND [ReminderTime] = 4"), ConnectionMain(),
                   adOpenKeyset, adLockOptimistic);
        while (!armed.IsEOF()) {
            armed.setField(QStringLiteral("ReminderTime"), 1);
            armed.Update();
            armed.MoveNext();
        }
        armed.Close();

        // "None" and other words sort after every date, so only dated rows
        // come back here.
        Recordset due;
        due.Open(QStringLiteral("SELECT * FROM Messages WHERE [Type] = 1 AND [Date] <= #") + CStr(Clock::Now()) +
                     QLatin1Char('#'),
                 ConnectionMain(), adOpenKeyset, adLockReadOnly);
        const QDateTime today(Clock::Today(), QTime(0, 0));
        while (!due.IsEOF()) {
            const QString title = TextOf(due.Field(QStringLiteral("Title")));
            const QString date = TextOf(due.Field(QStringLiteral("Date")));
            auto* reminder = new frmReminder;
            reminder->setWindowTitle(title);
            reminder->SetMessageID(title);
            reminder->SetMessageText(TextOf(due.Field(QStringLiteral("Body"))));
            reminder->setWindowTitle(QStringLiteral("Reminder ") + title);
            // The query has already kept out the later dates, so this stays
            // false here; the mark is for reminders raised otherwise.
            if (date != QLatin1String("None") && IsDate(date))
                reminder->ReminderOverdue = DateDiff(QStringLiteral("d"), CDate(date), today) < 0;
            TheUi().ShowModeless(reminder, this);
            due.MoveNext();
        }
        due.Close();
    });
}

void frmMain::MessageDisplay() {
    Trap(QStringLiteral("frmMain.MessageDisplay"), [&] {
        QStandardItemModel& model = MainPanes::Instance().messages;
        const QModelIndex current = lvMessageCenter->currentIndex();
        if (!current.isValid()) return;
        const int row = current.row();
        QStandardItem* item = model.item(row, 0);
        if (!item) return;
        const QString title = item->text();

        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Messages WHERE [Title] = '") + QuoteSql(title) + QLatin1Char('\''),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (rs.IsEOF()) {
            rs.Close();
            MsgBox(QStringLiteral("The Message, entitled ") + title +
                       QStringLiteral(", could not be located so, it will be removed from view."),
                   Box::Exclamation, QStringLiteral("Missing"));
            model.removeRow(row);
            return;
        }
        const QString date = ShownDate(TextOf(rs.Field(QStringLiteral("Date"))), Registry().DateDisplayFormat());
        const QString body = TextOf(rs.Field(QStringLiteral("Body")));
        rs.Close();
        auto* display = new frmMessageDisplay;
        display->SetMessage(title, date, body);
        TheUi().ShowModeless(display, this);
    });
}

void frmMain::mnuDeleteMessage_Click() {
    Trap(QStringLiteral("frmMain.mnuDeleteMessage"), [&] {
        Response = MsgBox(QStringLiteral("Do you wish to delete the selected Messages?"), Box::YesNo + Box::Question,
                          QStringLiteral("Delete"));
        if (Response != Answer::Yes) return;
        QStandardItemModel& model = MainPanes::Instance().messages;
        QItemSelectionModel* selection = lvMessageCenter->selectionModel();
        // From the last item up, so that removing one leaves the rows still to
        // visit where they were.
        for (int row = model.rowCount() - 1; row >= 0; --row) {
            if (!selection || !selection->isRowSelected(row, QModelIndex())) continue;
            clsMessages messages;
            messages.DelMessage(model.item(row, 0)->text());
            model.removeRow(row);
        }
    });
}

void frmMain::PrintReport(const Report& report, const QString& copyName, bool showPrintDialog) {
    if (Registry().AlwaysPrintPreview()) report.Preview(this);
    else report.Print(this, showPrintDialog);
    if (Registry().SaveReportCopy()) {
        const QString path = QDir(Registry().SaveReportDirectory()).filePath(copyName);
        if (!report.SaveHtml(path)) throw RuntimeError(QStringLiteral("Path/File access error"));
        LastReportFile = path;
    }
}

void frmMain::mnuPrintMessage_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintMessage"), [&] {
        const QModelIndex current = lvMessageCenter->currentIndex();
        QStandardItem* item = current.isValid() ? MainPanes::Instance().messages.item(current.row(), 0) : nullptr;
        if (!item) return;
        rptMessage layout;
        layout.MessageTitle = item->text();
        PrintReport(layout.Build(), QStringLiteral("Message.htm"), false);
    });
}
