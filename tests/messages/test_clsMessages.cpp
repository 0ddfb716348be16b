#include "core/MainPanes.h"
#include "messages/clsMessages.h"
#include "support/MailCapture.h"
#include "support/Rows.h"

#include <QDir>
#include <QFile>
#include <QStandardItem>

class MessagesTest : public MailCaptureTest {
protected:
    static QString Of(const QString& title, const QString& column) {
        return rows::Field("Messages", "Title", title, column).toString();
    }
    static int Count(const QString& where = "1 = 1") { return rows::Count("SELECT * FROM Messages WHERE " + where); }
    void ExpectError(const QString& description, const QString& label) {
        ASSERT_EQ(ui.count(), 1);
        EXPECT_EQ(LastBox(), "Error: Error: " + description + " (Occurred in " + label + ")");
        ui.clear();
    }
};

TEST_F(MessagesTest, TheFirstMessageEverWrittenLosesItsBodyAndLaterOnesKeepTheirs) {
    ASSERT_EQ(Count(), 0);
    clsMessages messages;
    QString body = "Buy flour";
    EXPECT_TRUE(messages.WriteNew("Baking", body, "None", 2, 4));
    EXPECT_EQ(body, "(None)");  // the caller's own text changes too
    EXPECT_EQ(Of("Baking", "Body"), "(None)");

    QString second = "Call the vet";
    EXPECT_TRUE(messages.WriteNew("Vet", second, "11/30/2026", 1, 4));
    EXPECT_EQ(second, "Call the vet");
    EXPECT_EQ(QStringList({Of("Vet", "Body"), Of("Vet", "Date"), Of("Vet", "Type"), Of("Vet", "ReminderTime")}),
              QStringList({"Call the vet", "2026-11-30", "1", "4"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, DuplicateTitlesAreStoredAndDeletedOneAtATimeAndQuotesSurviveEveryLookUp) {
    rows::Message("Seed", "x", "None", 2, 4);
    clsMessages messages;
    messages.WriteNew("Pay milkman", "first", "None", 2, 4);
    messages.WriteNew("Pay milkman", "second", "None", 2, 4);
    EXPECT_EQ(Count("[Title] = 'Pay milkman'"), 2);
    EXPECT_TRUE(messages.Exists("Pay milkman"));
    EXPECT_TRUE(messages.DelMessage("Pay milkman"));
    EXPECT_EQ(Count("[Title] = 'Pay milkman'"), 1);
    EXPECT_EQ(Of("Pay milkman", "Body"), "second");
    EXPECT_TRUE(messages.DelMessage("Pay milkman"));
    EXPECT_FALSE(messages.DelMessage("Pay milkman"));
    EXPECT_FALSE(messages.Exists("Pay milkman"));

    const QString title = "Mom's \"special\" ' OR '1'='1";
    ASSERT_TRUE(messages.WriteNew(title, "It's \"done\"; 'really'", "None", 1, 4));
    EXPECT_TRUE(messages.Exists(title));
    EXPECT_FALSE(messages.Exists("Mom's"));
    messages.Body("Now it's \"changed\"");
    EXPECT_TRUE(messages.UpdateMessage(title));
    EXPECT_EQ(Of(title, "Body"), "Now it's \"changed\"");
    EXPECT_TRUE(messages.DelMessage(title));
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, UpdateWritesOnlyTheFirstKeptMemberOfBodyDateAndTime) {
    rows::Message("Oil change", "old", "11/01/2026", 1, 4);
    auto state = [&] {
        return QStringList({Of("Oil change", "Body"), Of("Oil change", "Date"), Of("Oil change", "ReminderTime")});
    };
    {
        clsMessages m;
        m.Body("new body");
        m.MesDate("12/24/2026");
        m.ReminderTime(2);
        EXPECT_TRUE(m.UpdateMessage("Oil change"));
    }
    EXPECT_EQ(state(), QStringList({"new body", "2026-11-01", "4"}));
    {
        clsMessages m;
        m.MesDate("12/24/2026");
        m.ReminderTime(2);
        m.UpdateMessage("Oil change");
    }
    EXPECT_EQ(state(), QStringList({"new body", "2026-12-24", "4"}));
    {
        clsMessages m;
        m.ReminderTime(3);
        m.UpdateMessage("Oil change");
    }
    EXPECT_EQ(state(), QStringList({"new body", "2026-12-24", "3"}));
    {
        clsMessages m;  // nothing kept: the row stays as it is
        EXPECT_TRUE(m.UpdateMessage("Oil change"));
        m.ReminderTime(1);
        EXPECT_FALSE(m.UpdateMessage("No such message"));
    }
    EXPECT_EQ(state(), QStringList({"new body", "2026-12-24", "3"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, TitlesLongerThanFiftyAreRefusedByTheStoreAndLongBodiesAreNot) {
    rows::Message("Seed", "x", "None", 2, 4);
    clsMessages messages;
    const QString fifty(50, 'a');
    EXPECT_TRUE(messages.WriteNew(fifty, QString(100000, 'b'), "None", 2, 4));
    EXPECT_EQ(Of(fifty, "Body").size(), 100000);

    // The arguments go in as given; only the Subject member keeps 50.
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.WriteNew(fifty + "c", "body", "None", 2, 4));
    ExpectError("The field is too small to accept the amount of data you attempted to add.", "Message.WriteNew");
    EXPECT_EQ(Count(), 2);

    // An empty title is a row like any other, and can be found again.
    EXPECT_TRUE(messages.WriteNew("", "", "None", 2, 4));
    EXPECT_TRUE(messages.Exists(""));
    EXPECT_TRUE(messages.DelMessage(""));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, AFailedOperationReportsUnderItsOwnNameAndReturnsTheDefault) {
    ConnectionMain().Close();
    clsMessages messages;
    messages.ReminderTime(1);
    const QString closed = "Operation is not allowed when the object is closed.";
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.Exists("x"));
    ExpectError(closed, "Message.Exists");
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.DelMessage("x"));
    ExpectError(closed, "Message.DelMessage");
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.UpdateMessage("x"));
    ExpectError(closed, "Message.UpdateMessage");
    ui.answer(Answer::OK);
    EXPECT_EQ(messages.PurgeExpired(), 0);
    ExpectError(closed, "Messages.PurgeExpired");
}

TEST_F(MessagesTest, PurgeDeletesOnlyRealDatesBeforeNowAndTheirPaneItems) {
    ui.answer(Answer::OK);
    EXPECT_EQ(clsMessages().PurgeExpired(), 0);
    EXPECT_EQ(LastBox(), "No Expired: There are no expired Messages in the database.");
    ui.clear();

    // "Past two" is today, before 10 o'clock now.
    const QList<QStringList> messages = {{"Past one", "11/01/2026", "1"},
                                         {"Past two", "11/22/2026", "2"},
                                         {"Undated", "None", "1"},
                                         {"Garbled", "1999 or so", "1"},
                                         {"Blank", "", "2"},
                                         {"Future", "11/23/2026", "1"}};
    for (const QStringList& m : messages) {
        rows::Message(m[0], "text", m[1], m[2].toInt(), m[2] == "1" ? 1 : 4);
        MainPanes::Instance().messages.appendRow(MainPanes::MakeNode(QString(), m[0]));
    }
    // The count takes in what sorts before now; the walk deletes only dates.
    ui.answer(Answer::No);
    clsMessages purge;
    EXPECT_EQ(purge.PurgeExpired(), 0);
    EXPECT_EQ(LastBox(), "Delete Messages: There are 4 messages, Are you sure?");
    EXPECT_EQ(Count(), 6);

    ui.answer(Answer::Yes);
    EXPECT_EQ(purge.PurgeExpired(), 2);
    EXPECT_EQ(rows::Column("SELECT * FROM Messages ORDER BY [Title]", "Title"),
              QStringList({"Blank", "Future", "Garbled", "Undated"}));
    QStringList pane;
    for (int r = 0; r < MainPanes::Instance().messages.rowCount(); ++r)
        pane << MainPanes::Instance().messages.item(r, 0)->text();
    EXPECT_EQ(pane, QStringList({"Undated", "Garbled", "Blank", "Future"}));
    EXPECT_EQ(ui.count(), 2);
}

TEST_F(MessagesTest, ExportWritesAWeekLongEventAndOffersToMailIt) {
    ui.answer(Answer::No);
    clsMessages messages;
    const QString path = messages.ExportToOutlook("Dentist", "Bring the card", "11/25/2026");
    EXPECT_EQ(path, QDir(Home()).filePath("Dentist.vcs"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(text.contains("SUMMARY:Dentist\r\nDESCRIPTION:Bring the card\r\n"));
    EXPECT_TRUE(
        text.contains("DTSTART:20261122T000000\r\nDTEND:20261129T000000\r\nDUE:20261125T000000\r\n"
                      "COMPLETED:20261122T000000\r\nDCREATED:20261122T000000\r\n"));
    EXPECT_EQ(ui.lastBox().title, "Send Calendar Event");
    EXPECT_TRUE(links.isEmpty());

    // Without a date the due field stays empty; a Yes mails the file.
    ui.answer(Answer::Yes);
    ui.answerInput("ann@example.com");
    const QString undated = messages.ExportToOutlook("Call Ann", "About Sunday");
    QFile second(undated);
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(second.readAll()).contains("\r\nDUE:\r\n"));
    ASSERT_EQ(links.size(), 1);
    EXPECT_EQ(links[0], "mailto:ann@example.com?Subject=Call Ann&Body=About Sunday&Attach=\"" +
                            QString(undated).replace(" ", "%20") + "\"");
}
