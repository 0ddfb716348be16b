#include "MessageRows.h"
#include "core/MainPanes.h"
#include "messages/clsMessages.h"
#include "support/MailCapture.h"

#include <QDir>
#include <QFile>
#include <QStandardItem>

namespace {

class MessagesTest : public MailCaptureTest {
protected:
    static void PaneRow(const QString& title) {
        MainPanes::Instance().messages.appendRow(MainPanes::MakeNode(QString(), title));
    }
    static QStringList PaneTitles() {
        QStringList out;
        const auto& model = MainPanes::Instance().messages;
        for (int r = 0; r < model.rowCount(); ++r) out << model.item(r, 0)->text();
        return out;
    }
    void ExpectError(const QString& description, const QString& label) {
        ASSERT_EQ(ui.count(), 1);
        EXPECT_EQ(ui.lastBox().title, "Error");
        EXPECT_EQ(ui.lastBox().prompt, "Error: " + description + " (Occurred in " + label + ")");
        ui.clear();
    }
};

TEST_F(MessagesTest, TheFirstMessageEverWrittenLosesItsBodyAndLaterOnesKeepTheirs) {
    ASSERT_EQ(MessageRows::Count(), 0);
    clsMessages messages;
    QString body = "Buy flour";
    EXPECT_TRUE(messages.WriteNew("Baking", body, "None", 2, 4));
    EXPECT_EQ(body, "(None)");  // the caller's own text changes too
    EXPECT_EQ(MessageRows::Field("Baking", "Body").toString(), "(None)");

    QString second = "Call the vet";
    EXPECT_TRUE(messages.WriteNew("Vet", second, "11/30/2026", 1, 4));
    EXPECT_EQ(second, "Call the vet");
    EXPECT_EQ(MessageRows::Field("Vet", "Body").toString(), "Call the vet");
    EXPECT_EQ(MessageRows::Field("Vet", "Date").toString(), "2026-11-30");
    EXPECT_EQ(MessageRows::Field("Vet", "Type").toInt(), 1);
    EXPECT_EQ(MessageRows::Field("Vet", "ReminderTime").toInt(), 4);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, DuplicateTitlesAreStoredAndDeletedOneAtATime) {
    MessageRows::Add("Seed", "x", "None", 2, 4);
    clsMessages messages;
    messages.WriteNew("Pay milkman", "first", "None", 2, 4);
    messages.WriteNew("Pay milkman", "second", "None", 2, 4);
    EXPECT_EQ(MessageRows::Count("[Title] = 'Pay milkman'"), 2);
    EXPECT_TRUE(messages.Exists("Pay milkman"));

    EXPECT_TRUE(messages.DelMessage("Pay milkman"));
    EXPECT_EQ(MessageRows::Count("[Title] = 'Pay milkman'"), 1);
    EXPECT_EQ(MessageRows::Field("Pay milkman", "Body").toString(), "second");
    EXPECT_TRUE(messages.DelMessage("Pay milkman"));
    EXPECT_FALSE(messages.DelMessage("Pay milkman"));
    EXPECT_FALSE(messages.Exists("Pay milkman"));
    EXPECT_EQ(MessageRows::Count(), 1);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, TitlesWithApostrophesAndQuotesSurviveEveryLookUp) {
    MessageRows::Add("Seed", "x", "None", 2, 4);
    const QString title = "Mom's \"special\" ' OR '1'='1";
    clsMessages messages;
    ASSERT_TRUE(messages.WriteNew(title, "It's \"done\"; 'really'", "None", 1, 4));
    EXPECT_TRUE(messages.Exists(title));
    EXPECT_FALSE(messages.Exists("Mom's"));

    messages.Body("Now it's \"changed\"");
    EXPECT_TRUE(messages.UpdateMessage(title));
    EXPECT_EQ(MessageRows::Field(title, "Body").toString(), "Now it's \"changed\"");
    EXPECT_TRUE(messages.DelMessage(title));
    EXPECT_EQ(MessageRows::Count(), 1);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, UpdateWritesOnlyTheFirstKeptMemberOfBodyDateAndTime) {
    MessageRows::Add("Oil change", "old", "11/01/2026", 1, 4);
    {
        clsMessages m;
        m.Body("new body");
        m.MesDate("12/24/2026");
        m.ReminderTime(2);
        EXPECT_TRUE(m.UpdateMessage("Oil change"));
    }
    EXPECT_EQ(MessageRows::Field("Oil change", "Body").toString(), "new body");
    EXPECT_EQ(MessageRows::Field("Oil change", "Date").toString(), "2026-11-01");
    EXPECT_EQ(MessageRows::Field("Oil change", "ReminderTime").toInt(), 4);
    {
        clsMessages m;
        m.MesDate("12/24/2026");
        m.ReminderTime(2);
        m.UpdateMessage("Oil change");
    }
    EXPECT_EQ(MessageRows::Field("Oil change", "Date").toString(), "2026-12-24");
    EXPECT_EQ(MessageRows::Field("Oil change", "ReminderTime").toInt(), 4);
    {
        clsMessages m;
        m.ReminderTime(3);
        m.UpdateMessage("Oil change");
    }
    EXPECT_EQ(MessageRows::Field("Oil change", "ReminderTime").toInt(), 3);
    {
        clsMessages m;  // nothing kept: the row stays as it is
        EXPECT_TRUE(m.UpdateMessage("Oil change"));
        m.ReminderTime(1);
        EXPECT_FALSE(m.UpdateMessage("No such message"));
    }
    EXPECT_EQ(MessageRows::Field("Oil change", "Body").toString(), "new body");
    EXPECT_EQ(MessageRows::Field("Oil change", "ReminderTime").toInt(), 3);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, TitlesLongerThanFiftyAreRefusedByTheStoreAndLongBodiesAreNot) {
    MessageRows::Add("Seed", "x", "None", 2, 4);
    clsMessages messages;
    const QString fifty(50, 'a');
    EXPECT_TRUE(messages.WriteNew(fifty, QString(100000, 'b'), "None", 2, 4));
    EXPECT_EQ(MessageRows::Field(fifty, "Body").toString().size(), 100000);

    // The arguments go in as given; only the Subject member keeps 50.
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.WriteNew(fifty + "c", "body", "None", 2, 4));
    ExpectError("The field is too small to accept the amount of data you attempted to add.", "Message.WriteNew");
    EXPECT_EQ(MessageRows::Count(), 2);

    // An empty title is a row like any other, and can be found again.
    EXPECT_TRUE(messages.WriteNew("", "", "None", 2, 4));
    EXPECT_TRUE(messages.Exists(""));
    EXPECT_TRUE(messages.DelMessage(""));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessagesTest, AFailedOperationReportsUnderItsOwnNameAndReturnsTheDefault) {
    ConnectionMain().Close();
    clsMessages messages;
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.Exists("x"));
    ExpectError("Operation is not allowed when the object is closed.", "Message.Exists");
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.DelMessage("x"));
    ExpectError("Operation is not allowed when the object is closed.", "Message.DelMessage");
    messages.ReminderTime(1);
    ui.answer(Answer::OK);
    EXPECT_FALSE(messages.UpdateMessage("x"));
    ExpectError("Operation is not allowed when the object is closed.", "Message.UpdateMessage");
    ui.answer(Answer::OK);
    EXPECT_EQ(messages.PurgeExpired(), 0);
    ExpectError("Operation is not allowed when the object is closed.", "Messages.PurgeExpired");
}

TEST_F(MessagesTest, PurgeDeletesOnlyRealDatesBeforeNowAndTheirPaneItems) {
    ui.answer(Answer::OK);
    clsMessages none;
    EXPECT_EQ(none.PurgeExpired(), 0);
    EXPECT_EQ(ui.lastBox().prompt, "There are no expired Messages in the database.");
    EXPECT_EQ(ui.lastBox().title, "No Expired");
    ui.clear();

    MessageRows::Add("Past one", "a", "11/01/2026", 1, 1);
    MessageRows::Add("Past two", "b", "11/22/2026", 2, 4);  // today, before 10 o'clock now
    MessageRows::Add("Undated", "c", "None", 1, 1);
    MessageRows::Add("Garbled", "d", "1999 or so", 1, 1);
    MessageRows::Add("Blank", "e", "", 2, 4);
    MessageRows::Add("Future", "f", "11/23/2026", 1, 1);
    for (const char* t : {"Past one", "Past two", "Undated", "Garbled", "Blank", "Future"}) PaneRow(t);

    // The count takes in what sorts before now; the walk deletes only dates.
    ui.answer(Answer::No);
    clsMessages messages;
    EXPECT_EQ(messages.PurgeExpired(), 0);
    EXPECT_EQ(ui.lastBox().prompt, "There are 4 messages, Are you sure?");
    EXPECT_EQ(ui.lastBox().title, "Delete Messages");
    EXPECT_EQ(MessageRows::Count(), 6);

    ui.answer(Answer::Yes);
    EXPECT_EQ(messages.PurgeExpired(), 2);
    EXPECT_EQ(MessageRows::Count(), 4);
    EXPECT_FALSE(MessageRows::Field("Past one", "Title").isValid());
    EXPECT_FALSE(MessageRows::Field("Past two", "Title").isValid());
    EXPECT_EQ(PaneTitles(), QStringList({"Undated", "Garbled", "Blank", "Future"}));
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
    EXPECT_TRUE(text.contains("DTSTART:20261122T000000\r\nDTEND:20261129T000000\r\nDUE:20261125T000000\r\n"
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

}  // namespace
