#include "messages/MessageRows.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "messages/MessageCommands.h"
#include "messages/frmMessageDisplay.h"
#include "messages/frmReminder.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QItemSelectionModel>
#include <QLabel>
#include <QStandardItem>
#include <QTextEdit>

namespace {

class MessageCentreTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MainPanes::Instance().ClearAll();
    }
    QStandardItemModel& Pane() { return MainPanes::Instance().messages; }
    QStringList Row(int r) {
        return {Pane().item(r, 0)->text(), Pane().item(r, 1)->text(), Pane().item(r, 2)->text()};
    }
    QStringList Titles() {
        QStringList out;
        for (int r = 0; r < Pane().rowCount(); ++r) out << Pane().item(r, 0)->text();
        return out;
    }
    QStringList ReminderTitles() {
        QStringList out;
        for (const auto& w : ui.modeless())
            if (auto* r = qobject_cast<frmReminder*>(w.data())) out << r->MessageID();
        return out;
    }
    void Select(frmMain& w, const QList<int>& rows) {
        QItemSelectionModel* s = w.lvMessageCenter->selectionModel();
        s->clearSelection();
        for (int r : rows) s->select(Pane().index(r, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        if (!rows.isEmpty()) s->setCurrentIndex(Pane().index(rows.first(), 0), QItemSelectionModel::NoUpdate);
    }
};

TEST_F(MessageCentreTest, TheListShowsTitleDateAndTheFirstFortyCharactersOnOneLine) {
    MessageRows::Add("Freezer", "Defrost the freezer\r\nand wipe the shelves down before Friday", "11/20/2026", 1, 1);
    MessageRows::Add("Recipe club", "Bring a dessert", "None", 2, 4);
    MessageRows::Add("Odd date", "Text", "next week-ish", 2, 4);
    frmMain w;
    w.LoadMessages();

    ASSERT_EQ(Pane().columnCount(), 3);
    EXPECT_EQ(Pane().horizontalHeaderItem(0)->text(), "Subject");
    EXPECT_EQ(Pane().horizontalHeaderItem(1)->text(), "Date");
    EXPECT_EQ(Pane().horizontalHeaderItem(2)->text(), "Message");
    ASSERT_EQ(Pane().rowCount(), 3);
    EXPECT_EQ(Row(0), QStringList({"Freezer", "11/20/2026", "Defrost the freezer;and wipe the shelves"}));
    EXPECT_EQ(Row(1), QStringList({"Recipe club", "None", "Bring a dessert"}));
    EXPECT_EQ(Row(2), QStringList({"Odd date", "next week-ish", "Text"}));
    EXPECT_EQ(Pane().item(0)->data(MainPanes::KeyRole).toString(), "Defrost the freezer\r");
    EXPECT_EQ(Pane().item(0)->data(MainPanes::ImageKeyRole).toString(), "Reminder");
    EXPECT_EQ(Pane().item(1)->data(MainPanes::ImageKeyRole).toString(), "Message");

    // Loading again rebuilds rather than adds; a new row arrives alone.
    Registry().DateDisplayFormatWrite("dddd, mmm d yyyy");
    w.LoadMessages();
    EXPECT_EQ(Pane().rowCount(), 3);
    EXPECT_EQ(Row(0)[1], "Friday, Nov 20 2026");
    w.AddMessage("Coupon", "Discard Coupon for Acme's Oats", "11/22/2026", 1);
    ASSERT_EQ(Pane().rowCount(), 4);
    EXPECT_EQ(Row(3), QStringList({"Coupon", "Sunday, Nov 22 2026", "Discard Coupon for Acme's Oats"}));
    EXPECT_EQ(Pane().item(3)->data(MainPanes::ImageKeyRole).toString(), "Reminder");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessageCentreTest, AtStartFreshAndIgnoredRemindersAreArmedAndDueOnesPopUp) {
    MessageRows::Add("Due yesterday", "Water the plants", "11/21/2026", 1, 4);
    MessageRows::Add("Due this morning", "Defrost", "11/22/2026", 1, 1);
    MessageRows::Add("Due tonight", "Later today", "11/22/2026 8:00 PM", 1, 4);
    MessageRows::Add("Undated", "Whenever", "None", 1, 4);
    MessageRows::Add("Garbled", "?", "someday", 1, 4);
    MessageRows::Add("Plain note", "Not a reminder", "11/01/2026", 2, 4);
    frmMain w;
    MessageCommands::DisplayReminders();

    EXPECT_EQ(ReminderTitles(), QStringList({"Due yesterday", "Due this morning"}));
    auto* first = qobject_cast<frmReminder*>(ui.modeless().first().data());
    EXPECT_EQ(first->windowTitle(), "Reminder Due yesterday");
    EXPECT_EQ(first->lblReminder->text(), "Water the plants");
    EXPECT_FALSE(first->ReminderOverdue);
    EXPECT_EQ(first->parentWidget(), &w);

    // Reminders move from 4 to 1; plain messages keep what they had.
    EXPECT_EQ(MessageRows::Count("[Type] = 1 AND [ReminderTime] = 4"), 0);
    EXPECT_EQ(MessageRows::Field("Undated", "ReminderTime").toInt(), 1);
    EXPECT_EQ(MessageRows::Field("Plain note", "ReminderTime").toInt(), 4);
    EXPECT_EQ(ui.prompts().size(), 0);
}

TEST_F(MessageCentreTest, AnIgnoredReminderStaysQuietAtExitAndReturnsAtTheNextStart) {
    MessageRows::Add("Renew permit", "Town hall", "11/10/2026", 1, 1);
    {
        frmMain w;
        MessageCommands::DisplayReminders();
        ASSERT_EQ(ReminderTitles(), QStringList({"Renew permit"}));
        qobject_cast<frmReminder*>(ui.modeless().first().data())->cmdIgnore_Click();
        EXPECT_EQ(MessageRows::Field("Renew permit", "ReminderTime").toInt(), 4);
        ui.clear();
        w.mnuExit();
        EXPECT_TRUE(w.Ended());
        EXPECT_TRUE(ui.modeless().isEmpty());
    }
    ConnectionMain().Open(HomeFile("Larderkeep.mdb"));
    frmMain again;
    MessageCommands::DisplayReminders();
    EXPECT_EQ(ReminderTitles(), QStringList({"Renew permit"}));
    EXPECT_EQ(MessageRows::Field("Renew permit", "ReminderTime").toInt(), 1);
}

TEST_F(MessageCentreTest, DisplayShowsTheStoredTextOrDropsAnItemThatIsGone) {
    MessageRows::Add("Mom's birthday", "Order the cake\r\nand candles", "12/05/2026", 2, 4);
    frmMain w;
    w.LoadMessages();
    w.AddMessage("Vanished", "was here", "None", 2);
    w.RunCommand("mnuMessageDisplay");  // nothing selected: nothing to show
    EXPECT_EQ(ui.count(), 0);

    Select(w, {0});
    w.RunCommand("mnuMessageDisplay");
    ASSERT_EQ(ui.modeless().size(), 1);
    auto* display = qobject_cast<frmMessageDisplay*>(ui.modeless().first().data());
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(display->windowTitle(), "Mom's birthday");
    EXPECT_EQ(display->lblDate->text(), "12/05/2026");
    EXPECT_EQ(display->txtMessage->toPlainText(), "Order the cake\nand candles");
    ui.answer(Answer::OK);
    display->cmdExport_Click();
    EXPECT_EQ(ui.lastBox().prompt, "This feature will be added soon!");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");

    Select(w, {1});
    ui.answer(Answer::OK);
    w.RunCommand("mnuMessageDisplay");
    EXPECT_EQ(ui.lastBox().prompt,
              "The Message, entitled Vanished, could not be located so, it will be removed from view.");
    EXPECT_EQ(ui.lastBox().title, "Missing");
    EXPECT_EQ(Titles(), QStringList({"Mom's birthday"}));
}

TEST_F(MessageCentreTest, DeleteRemovesEverySelectedMessageAfterAYes) {
    for (const char* t : {"One", "Two", "Three", "Two"}) MessageRows::Add(t, "b", "None", 2, 4);
    frmMain w;
    w.LoadMessages();
    Select(w, {0, 2, 3});

    ui.answer(Answer::No);
    w.RunCommand("mnuDeleteMessage");
    EXPECT_EQ(ui.lastBox().prompt, "Do you wish to delete the selected Messages?");
    EXPECT_EQ(ui.lastBox().title, "Delete");
    EXPECT_EQ(ui.lastBox().buttons, 36);
    EXPECT_EQ(MessageRows::Count(), 4);

    ui.answer(Answer::Yes);
    w.RunCommand("mnuDeleteMessage");
    EXPECT_EQ(Titles(), QStringList({"Two"}));
    EXPECT_EQ(MessageRows::Count(), 1);
    EXPECT_EQ(MessageRows::Field("Two", "Title").toString(), "Two");
}

TEST_F(MessageCentreTest, PrintingKeepsAnHtmlCopyInTheReportFolder) {
    MessageRows::Add("Party list", "Chairs\r\nNapkins", "12/31/2026", 2, 4);
    frmMain w;
    w.LoadMessages();
    Select(w, {0});
    Registry().AlwaysPrintPreview(false);
    Registry().SaveReportCopy(true);
    Registry().SaveReportDirectory(Home());

    // No printer on the test machine: the printout is offered as a PDF.
    ui.answerFile(HomeFile("party.pdf"));
    w.RunCommand("mnuPrintMessage");
    EXPECT_TRUE(QFile::exists(HomeFile("party.pdf")));
    EXPECT_EQ(LastReportFile, HomeFile("Message.htm"));
    QFile copy(HomeFile("Message.htm"));
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(copy.readAll());
    EXPECT_TRUE(html.contains("Party list"));
    EXPECT_TRUE(html.contains("Napkins"));
    EXPECT_TRUE(html.contains("Thursday, Dec 31 2026"));

    // Preview instead of print; without REPORT_BACKUP no copy is made.
    QFile::remove(HomeFile("Message.htm"));
    LastReportFile.clear();
    Registry().AlwaysPrintPreview(true);
    Registry().SaveReportCopy(false);
    ui.answerModal([](QDialog*) { return 0; });
    w.RunCommand("mnuPrintMessage");
    EXPECT_EQ(ui.lastBox().kind, "Modal");
    EXPECT_FALSE(QFile::exists(HomeFile("Message.htm")));
    EXPECT_TRUE(LastReportFile.isEmpty());
}

TEST_F(MessageCentreTest, AReportFolderThatCannotTakeTheCopyIsReportedAndForgotten) {
    MessageRows::Add("Party list", "Chairs", "None", 2, 4);
    frmMain w;
    w.LoadMessages();
    Select(w, {0});
    Registry().AlwaysPrintPreview(true);
    Registry().SaveReportCopy(true);
    LastReportFile = "earlier.htm";

    for (const QString& folder : {HomeFile("no/such/folder"), HomeFile("Larderkeep.mdb")}) {
        Registry().SaveReportDirectory(folder);
        ui.answerModal([](QDialog*) { return 0; });
        ui.answer(Answer::OK);
        w.RunCommand("mnuPrintMessage");
        EXPECT_EQ(ui.lastBox().title, "Error");
        EXPECT_EQ(ui.lastBox().prompt, "Error: Path/File access error (Occurred in frmMain.mnuPrintMessage)");
        EXPECT_EQ(LastReportFile, "earlier.htm");
    }
}

}  // namespace
