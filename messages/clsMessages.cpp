#include "messages/clsMessages.h"

#include <QStandardItem>

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Ui.h"
#include "publish/clsCalendar.h"

namespace {

QString TitleQuery(const QString& title) {
    return QStringLiteral("SELECT * FROM Messages WHERE [Title] = '") + QuoteSql(title) + QLatin1Char('\'');
}

}  // namespace

QString clsMessages::Subject() const { return TextOf(rs.Field(QStringLiteral("Title"))); }
QString clsMessages::Body() const { return TextOf(rs.Field(QStringLiteral("Body"))); }
QString clsMessages::MesDate() const { return TextOf(rs.Field(QStringLiteral("Date"))); }
qint32 clsMessages::ReminderTime() const { return CLng(rs.Field(QStringLiteral("ReminderTime"))); }

bool clsMessages::WriteNew(const QString& title, QString& body, const QString& date, int type, int reminderTime) {
    return Trapped(QStringLiteral("Message.WriteNew"), false, [&] {
        OpenDB(QStringLiteral("SELECT * FROM Messages"), adOpenStatic, adLockOptimistic);
        if (!rs.IsEOF())
            rs.MoveLast();
        else
            body = QStringLiteral("(None)");
        rs.AddNew();
        rs.setField(QStringLiteral("Title"), title);
        rs.setField(QStringLiteral("Body"), body);
        rs.setField(QStringLiteral("Date"), date);
        rs.setField(QStringLiteral("Type"), type);
        rs.setField(QStringLiteral("ReminderTime"), reminderTime);
        rs.Update();
        CloseDB();
        return true;
    });
}

bool clsMessages::WriteNew(const QString& title, const QString& body, const QString& date, int type, int reminderTime) {
    QString copy = body;
    return WriteNew(title, copy, date, type, reminderTime);
}

bool clsMessages::UpdateMessage(const QString& title) {
    return Trapped(QStringLiteral("Message.UpdateMessage"), false, [&] {
        OpenDB(TitleQuery(title), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) {
            if (!body_.isEmpty())
                rs.setField(QStringLiteral("Body"), body_);
            else if (!date_.isEmpty())
                rs.setField(QStringLiteral("Date"), date_);
            else if (reminderTime_ != 0)
                rs.setField(QStringLiteral("ReminderTime"), reminderTime_);
            rs.Update();
        }
        CloseDB();
        return found;
    });
}

bool clsMessages::Exists(const QString& title) {
    return Trapped(QStringLiteral("Message.Exists"), false, [&] {
        OpenDB(TitleQuery(title), adOpenKeyset, adLockReadOnly);
        const bool found = rs.RecordCount() >= 1;
        CloseDB();
        return found;
    });
}

bool clsMessages::DelMessage(const QString& title) {
    return Trapped(QStringLiteral("Message.DelMessage"), false, [&] {
        OpenDB(TitleQuery(title), adOpenKeyset, adLockOptimistic);
        const bool found = !rs.IsEOF();
        if (found) rs.Delete();
        CloseDB();
        return found;
    });
}

qint32 clsMessages::PurgeExpired() {
    qint32 deleted = 0;
    Trapped(QStringLiteral("Messages.PurgeExpired"), [&] {
        OpenDB(QStringLiteral("SELECT * FROM Messages WHERE [Date] < #") + CStr(Clock::Now()) + QLatin1Char('#'),
               adOpenKeyset, adLockOptimistic);
        const qint32 count = rs.RecordCount();
        if (count <= 0) {
            CloseDB();
            MsgBox(QStringLiteral("There are no expired Messages in the database."), Box::Information,
                   QStringLiteral("No Expired"));
            return;
        }
        Response =
            MsgBox(QStringLiteral("There are ") + QString::number(count) + QStringLiteral(" messages, Are you sure?"),
                   Box::YesNo + Box::Question, QStringLiteral("Delete Messages"));
        if (Response == Answer::Yes) {
            // Each row goes as it is passed, so there is no Cancel halfway.
            Progress progress(QStringLiteral("Removing expired messages ..."), count, false);
            int done = 0;
            rs.MoveFirst();
            while (!rs.IsEOF()) {
                progress.Step(done++);
                // Rows whose date is a word or blank sort before any date as
                // well; only real dates have expired.
                if (IsDate(rs.Field(QStringLiteral("Date")))) {
                    const QString title = TextOf(rs.Field(QStringLiteral("Title")));
                    rs.Delete();
                    RemoveFromMessageCenter(title);
                    ++deleted;
                }
                rs.MoveNext();
            }
        }
        CloseDB();
    });
    return deleted;
}

QString clsMessages::ExportToOutlook(const QString& title, const QString& body, const QString& date) {
    return Trap(QStringLiteral("Messages.ExportToOutlook"), QString(), [&] {
        clsCalendar calendar;
        calendar.Summary = title;
        calendar.Description = body;
        const QDateTime today(Clock::Today(), QTime(0, 0));
        calendar.StartDate = today;
        calendar.EndDate = DateAdd(QStringLiteral("d"), 7, today);
        // A reminder's own day is when it falls due; a message without one
        // leaves the due field empty.
        if (IsDate(date)) calendar.DueDate = CDate(date);
        calendar.CreatedDate = today;
        calendar.CompletedDate = today;
        return calendar.WriteData(title);
    });
}

bool clsMessages::RemoveFromMessageCenter(const QString& title) {
    MainPanes& panes = MainPanes::Instance();
    QStandardItemModel& model = panes.messages;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStandardItem* item = model.item(row, 0);
        if (item && item->text() == title) {
            model.removeRow(row);
            return true;
        }
    }
    return false;
}
