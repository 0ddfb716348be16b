#include "publish/clsCalendar.h"
#include "support/MailCapture.h"

#include <QDir>
#include <QFile>

class CalendarTest : public MailCaptureTest {
protected:
    static QByteArray Read(const QString& path) {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
};

TEST_F(CalendarTest, TheFileHoldsItsFourteenLinesInTheirFixedFormEvenWhenEmpty) {
    clsCalendar event;
    event.Summary = "Dinner at Jo's";
    event.Description = "Bring \"the\" pie";
    event.Location = "12 Elm St";
    event.Attendee = "jo@example.com";
    event.StartDate = QDateTime(QDate(2026, 11, 22), QTime(18, 30, 5));
    event.EndDate = QDateTime(QDate(2026, 11, 29), QTime(0, 0));
    event.CreatedDate = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5));

    ui.answer(Answer::No);
    const QString path = event.WriteData("Dinner at Jo's");
    EXPECT_EQ(path, QDir(Home()).filePath("Dinner at Jo's.vcs"));
    EXPECT_EQ(Read(path), QByteArray("BEGIN: VCALENDAR\r\n"
                                     "VERSION: 1.0\r\n"
                                     "BEGIN: VEVENT\r\n"
                                     "SUMMARY:Dinner at Jo's\r\n"
                                     "DESCRIPTION:Bring \"the\" pie\r\n"
                                     "LOCATION:12 Elm St\r\n"
                                     "ATTENDEE:jo@example.com\r\n"
                                     "DTSTART:20261122T183005\r\n"
                                     "DTEND:20261129T000000\r\n"
                                     "DUE:\r\n"
                                     "COMPLETED:\r\n"
                                     "DCREATED:20260102T030405\r\n"
                                     "END: VEVENT\r\n"
                                     "END: VCALENDAR\r\n"));
    EXPECT_EQ(LastBox(),
              "Send Calendar Event: Dinner at Jo's.vcs was created.\r\nWould you like to sent it to someone? ");
    EXPECT_EQ(ui.lastBox().buttons & 7, Box::YesNo);
    EXPECT_TRUE(links.isEmpty());

    clsCalendar empty;
    ui.answer(Answer::No);
    EXPECT_EQ(Read(empty.WriteData("blank")), QByteArray("BEGIN: VCALENDAR\r\nVERSION: 1.0\r\nBEGIN: VEVENT\r\n"
                                                         "SUMMARY:\r\nDESCRIPTION:\r\nLOCATION:\r\nATTENDEE:\r\n"
                                                         "DTSTART:\r\nDTEND:\r\nDUE:\r\nCOMPLETED:\r\nDCREATED:\r\n"
                                                         "END: VEVENT\r\nEND: VCALENDAR\r\n"));
}

TEST_F(CalendarTest, AYesAsksForAnAddressAndMailsTheFileAlong) {
    clsCalendar event;
    event.Summary = "Pot luck";
    ui.answer(Answer::Yes);
    ui.answerInput("sam@example.org");
    const QString path = event.WriteData("Pot luck");
    EXPECT_EQ(ui.lastBox().kind, "InputBox");
    EXPECT_EQ(LastBox(), "Email Address: What email address would you like to send it to?");
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links[0], "mailto:sam@example.org?Subject=Pot luck&Attach=\"" + QString(path).replace(" ", "%20") + "\"");
    EXPECT_TRUE(links[0].contains("Pot%20luck.vcs\""));

    // Cancelling the address box sends nothing; the file stays.
    ui.answer(Answer::Yes);
    ui.answerInput(QString());
    EXPECT_EQ(event.WriteData("Pot luck"), path);
    EXPECT_EQ(links.size(), 1);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(CalendarTest, NamesThatNoFileMayCarryAreMadeSafe) {
    clsCalendar event;
    ui.answer(Answer::No);
    const QString path = event.WriteData("1/2 price: \"pies\"?");
    EXPECT_EQ(QFileInfo(path).fileName(), "1_2 price_ _pies__.vcs");
    EXPECT_EQ(QFileInfo(path).absolutePath(), QDir(Home()).absolutePath());
    EXPECT_EQ(ui.lastBox().prompt, "1_2 price_ _pies__.vcs was created.\r\nWould you like to sent it to someone? ");

    // A temporary folder that cannot be written to is reported, not fatal.
    qputenv("TMPDIR", QFile::encodeName(HomeFile("Larderkeep.mdb")));
    ui.answer(Answer::OK);
    EXPECT_EQ(event.WriteData("x"), QString());
    EXPECT_EQ(ui.lastBox().prompt, "Error: Path/File access error (Occurred in clsCalendar.WriteData)");
}

TEST_F(CalendarTest, DatesConvertBothWaysAndTheZoneLetterChangesNothing) {
    const QDateTime lastSecond(QDate(2002, 12, 31), QTime(23, 59, 59));
    EXPECT_EQ(QStringList({clsCalendar::ConvertTovCalDateTime(lastSecond),
                           clsCalendar::ConvertTovCalDateTime(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7))),
                           clsCalendar::ConvertTovCalDateTime(QDateTime())}),
              QStringList({"20021231T235959", "20260304T050607", ""}));
    // Places beyond their range roll on, as date arithmetic does.
    const std::pair<const char*, QDateTime> stamps[] = {{"20021231T235959", lastSecond},
                                                        {"  20021231T235959  ", lastSecond},
                                                        {"20021231T235959Z", lastSecond},
                                                        {"20030101T080000Z", QDateTime(QDate(2003, 1, 1), QTime(8, 0))},
                                                        {"20021232T240000", QDateTime(QDate(2003, 1, 2), QTime(0, 0))}};
    for (const auto& [stamp, when] : stamps) EXPECT_EQ(clsCalendar::ConvertFromvCalDateTime(stamp), when) << stamp;
    EXPECT_EQ(ui.count(), 0);

    // Texts that are not stamps give no date and say so.
    for (const QString& bad : {QString(), QString("tomorrow at six"), QString("2002-12-31 23:59"), QString("2002")}) {
        ui.answer(Answer::OK);
        EXPECT_FALSE(clsCalendar::ConvertFromvCalDateTime(bad).isValid()) << bad.toStdString();
        EXPECT_EQ(ui.lastBox().prompt, "Error: Type mismatch (Occurred in clsCalendar.ConvertFromvCalDateTime)");
    }
    EXPECT_EQ(ui.count(), 4);
}
