#include "publish/clsCalendar.h"

#include <QDir>
#include <QFile>

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/ProgramFolder.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "platform/Ui.h"
#include "publish/clsCommunications.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");

// One fixed place of the text as a whole number; Type mismatch when it holds
// none, as CInt gives for a bad text.
int Place(const QString& text, int from, int length) {
    const QString part = text.mid(from - 1, length);
    if (!IsNumeric(part)) throw RuntimeError(Err::TypeMismatch);
    return CInt(part);
}

// Year, month and day as the date functions take them: months and days
// beyond their range roll into the next, two-digit years are 19xx or 20xx.
QDate SerialDate(int year, int month, int day) {
    if (year >= 0 && year < 30)
        year += 2000;
    else if (year >= 30 && year < 100)
        year += 1900;
    QDate d(year, 1, 1);
    d = d.addMonths(month - 1).addDays(day - 1);
    if (!d.isValid() || d.year() < 100 || d.year() > 9999) throw RuntimeError(Err::Overflow);
    return d;
}

}  // namespace

QString clsCalendar::ConvertTovCalDateTime(const QDateTime& DateValue) {
    if (!DateValue.isValid()) return QString();
    return DateValue.toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
}

QDateTime clsCalendar::ConvertFromvCalDateTime(const QString& Text) {
    return Trap(QStringLiteral("clsCalendar.ConvertFromvCalDateTime"), QDateTime(), [&] {
        const QString t = Text.trimmed();
        const QDate day = SerialDate(Place(t, 1, 4), Place(t, 5, 2), Place(t, 7, 2));
        const qint64 seconds = qint64(Place(t, 10, 2)) * 3600 + Place(t, 12, 2) * 60 + Place(t, 14, 2);
        QDateTime result = QDateTime(day, QTime(0, 0)).addSecs(seconds);
        // Two characters never equal one, so the time-zone correction is never
        // made: a time marked "Z" is read as written.
        if (t.right(2) == QLatin1String("Z")) result = result.addSecs(-8 * 3600);
        return result;
    });
}

QString clsCalendar::Text() const {
    QString out;
    auto line = [&](const QString& text) { out += text + kCrLf; };
    line(QStringLiteral("BEGIN: VCALENDAR"));
    line(QStringLiteral("VERSION: 1.0"));
    line(QStringLiteral("BEGIN: VEVENT"));
    line(QStringLiteral("SUMMARY:") + Summary);
    line(QStringLiteral("DESCRIPTION:") + Description);
    line(QStringLiteral("LOCATION:") + Location);
    line(QStringLiteral("ATTENDEE:") + Attendee);
    line(QStringLiteral("DTSTART:") + ConvertTovCalDateTime(StartDate));
    line(QStringLiteral("DTEND:") + ConvertTovCalDateTime(EndDate));
    line(QStringLiteral("DUE:") + ConvertTovCalDateTime(DueDate));
    line(QStringLiteral("COMPLETED:") + ConvertTovCalDateTime(CompletedDate));
    line(QStringLiteral("DCREATED:") + ConvertTovCalDateTime(CreatedDate));
    line(QStringLiteral("END: VEVENT"));
    line(QStringLiteral("END: VCALENDAR"));
    return out;
}

QString clsCalendar::FileNameFor(const QString& FileBaseName) {
    return ProgramFolder::SafeFileName(FileBaseName, QStringLiteral("Event"));
}

QString clsCalendar::WriteData(const QString& FileBaseName) {
    return Trap(QStringLiteral("clsCalendar.WriteData"), QString(), [&] {
        const QString name = FileNameFor(FileBaseName);
        const QString path = QDir(QDir::tempPath()).filePath(name + QStringLiteral(".vcs"));
        TextFile::Write(path, Text());

        Response = MsgBox(name + QStringLiteral(".vcs was") + QStringLiteral(" created.") + kCrLf +
                              QStringLiteral("Would you like to sent it to someone? "),
                          Box::YesNo + Box::Question, QStringLiteral("Send Calendar Event"));
        if (Response == Answer::Yes) {
            const QString address = InputBox(QStringLiteral("What email address would you like to send it to?"),
                                             QStringLiteral("Email Address"));
            // An empty answer is the input box's Cancel.
            if (!address.isEmpty()) clsCommunications().SendEmail(address, Summary, Description, path);
        }
        return path;
    });
}
