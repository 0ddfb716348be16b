#include "messages/MessageCommands.h"

#include "core/CommandRegistry.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/PrintReport.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "messages/MessagePane.h"
#include "messages/clsMessages.h"
#include "messages/frmCalendarEvents.h"
#include "messages/frmMessageDisplay.h"
#include "messages/frmMessageNew.h"
#include "messages/frmReminder.h"
#include "messages/rptMessage.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Report.h"
#include "platform/Ui.h"

#include <QStandardItem>
#include <memory>

namespace MessageCommands {

void MessageDisplay() {
    Trap(QStringLiteral("frmMain.MessageDisplay"), [&] {
        MainPanes& panes = MainPanes::Instance();
        QStandardItemModel& model = panes.messages;
        const QModelIndex current = panes.messageSelection.currentIndex();
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
        const QString date =
            MessagePane::ShownDate(TextOf(rs.Field(QStringLiteral("Date"))), Registry().DateDisplayFormat());
        const QString body = TextOf(rs.Field(QStringLiteral("Body")));
        rs.Close();
        auto* display = new frmMessageDisplay;
        display->SetMessage(title, date, body);
        TheUi().ShowModeless(display, MainWindow());
    });
}

void mnuNewMassage_Click() {
    auto* form = new frmMessageNew(MainWindow());
    form->setAttribute(Qt::WA_DeleteOnClose);
    TheUi().ShowModeless(form, MainWindow());
}

void mnuDeleteMessage_Click() {
    Trap(QStringLiteral("frmMain.mnuDeleteMessage"), [&] {
        Response = MsgBox(QStringLiteral("Do you wish to delete the selected Messages?"), Box::YesNo + Box::Question,
                          QStringLiteral("Delete"));
        if (Response != Answer::Yes) return;
        MainPanes& panes = MainPanes::Instance();
        QStandardItemModel& model = panes.messages;
        // From the last item up, so that removing one leaves the rows still to
        // visit where they were.
        for (int row = model.rowCount() - 1; row >= 0; --row) {
            if (!panes.messageSelection.isRowSelected(row, QModelIndex())) continue;
            clsMessages messages;
            messages.DelMessage(model.item(row, 0)->text());
            model.removeRow(row);
        }
    });
}

void mnuPrintMessage_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintMessage"), [&] {
        MainPanes& panes = MainPanes::Instance();
        const QModelIndex current = panes.messageSelection.currentIndex();
        QStandardItem* item = current.isValid() ? panes.messages.item(current.row(), 0) : nullptr;
        if (!item) return;
        rptMessage layout;
        layout.MessageTitle = item->text();
        PrintReport(layout.Build(), QStringLiteral("Message.htm"), false);
    });
}

void mnuPurgeMessages_Click() { clsMessages().PurgeExpired(); }

void mnuExportMessageToOutlook_Click() {
    MainPanes& panes = MainPanes::Instance();
    const QModelIndex current = panes.messageSelection.currentIndex();
    if (!current.isValid()) return;
    const QAbstractItemModel* model = current.model();
    const int row = current.row();
    clsMessages().ExportToOutlook(model->index(row, 0, current.parent()).data().toString(),
                                  model->index(row, 2, current.parent()).data().toString(),
                                  model->index(row, 1, current.parent()).data().toString());
}

void mnuCalendarToday_Click() {
    frmCalendarEvents events(MainWindow());
    TheUi().ShowModal(&events);
}

void DisplayReminders() {
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
            reminder->SetMessageID(title);
            reminder->SetMessageText(TextOf(due.Field(QStringLiteral("Body"))));
            reminder->setWindowTitle(QStringLiteral("Reminder ") + title);
            // The query has already kept out the later dates, so this stays
            // false here; the mark is for reminders raised otherwise.
            if (date != QLatin1String("None") && IsDate(date))
                reminder->ReminderOverdue = DateDiff(QStringLiteral("d"), CDate(date), today) < 0;
            TheUi().ShowModeless(reminder, MainWindow());
            due.MoveNext();
        }
        due.Close();
    });
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuMessageDisplay"), MessageDisplay);
    commands.Add(QStringLiteral("mnuNewMassage"), mnuNewMassage_Click);
    commands.Add(QStringLiteral("mnuDeleteMessage"), mnuDeleteMessage_Click);
    commands.Add(QStringLiteral("mnuPrintMessage"), mnuPrintMessage_Click);
    commands.Add(QStringLiteral("mnuPurgeMessages"), mnuPurgeMessages_Click);
    commands.Add(QStringLiteral("mnuExportMessageToOutlook"), mnuExportMessageToOutlook_Click);
    commands.Add(QStringLiteral("mnuCalendarToday"), mnuCalendarToday_Click);
}

}  // namespace MessageCommands
