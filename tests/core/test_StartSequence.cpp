#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/frmMain.h"
#include "messages/frmReminder.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QFile>

namespace {

class StartTest : public LarderTest {
protected:
    void AddMessage(const QString& title, const QString& date, int reminderTime) {
        Recordset rs;
        rs.Open("SELECT * FROM Messages", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Title", title);
        rs.setField("Body", "Body of " + title);
        rs.setField("Date", date);
        rs.setField("Type", 1);
        rs.setField("ReminderTime", reminderTime);
        rs.Update();
    }
};

TEST_F(StartTest, StatusTextsAppearInOrderAndTheCaptionCarriesTheVersion) {
    frmMain w;
    w.Form_Load();
    EXPECT_EQ(w.StartStatusTexts(),
              QStringList({"Loading Messages ...", "Loading QuickStart ...", "Loading Manufacturers/Coupons ...",
                           "Loading Recipes ...", "Loading Shopping List ...", "Loading Meals ...",
                           "Loading Dictionary ...", "Removing old Inventory ...", "Removing old Cost History ..."}));
    EXPECT_TRUE(w.windowTitle().startsWith("Larderkeep  v. "));
    EXPECT_TRUE(Registry().SpellCheckAvailable());
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(Registry().GetValue("Settings", "InstallDir"), Home());
}

TEST_F(StartTest, BackupReminderComesAfterSevenWholeDays) {
    Registry().BackupReminder(true);
    Registry().LastBackup("11/15/2026");  // exactly 7 days before the pinned today
    {
        frmMain w;
        w.Form_Load();
        EXPECT_EQ(ui.count(), 0);
    }
    Registry().LastBackup("11/14/2026");
    ui.answer(vb::No);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 1);
    const auto& box = ui.lastBox();
    EXPECT_EQ(box.prompt, "Your current backup is older than 7 days. It is recommended that you backup your database "
                          "regularly. Do you want to run a backup now?");
    EXPECT_EQ(box.title, "Notice");
    EXPECT_EQ(box.buttons, 292 + 16384);
    EXPECT_EQ(box.context, 1091);
    EXPECT_EQ(box.helpFile, Registry().HelpFile());

    ui.clear();
    ui.answer(vb::Yes);
    ui.answer(vb::OK);
    frmMain again;
    again.Form_Load();
    EXPECT_EQ(ui.prompts().last(), "Add Code!");
}

TEST_F(StartTest, NeverBackedUpIsSaidOnce) {
    Registry().BackupReminder(true);
    ui.answer(vb::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "The database has never been Backed up.");
    EXPECT_EQ(ui.lastBox().title, "No Backup");
    EXPECT_EQ(ui.lastBox().buttons, 48);
}

TEST_F(StartTest, CompactAtStartReportsBecauseTheConnectionIsNotOpenYet) {
    Registry().DBCompact(2);
    CloseDatabase();
    ui.answer(vb::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_GE(ui.count(), 1);
    EXPECT_EQ(ui.boxes().first().prompt,
              "Error: Operation is not allowed when the object is closed. (Occurred in DBCompact)");
    EXPECT_TRUE(ConnectionMain().IsOpen());  // step 7 still opened it
}

TEST_F(StartTest, AMissingDatabaseSaysSoAndTheRestFailsIntoTheHandler) {
    CloseDatabase();
    QFile::remove(HomeFile("Larderkeep.mdb"));
    ui.answer(vb::OK);  // missing database
    ui.answer(vb::OK);  // the exit check cannot read its messages
    ui.answer(vb::OK);  // the next step's failure
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 3);
    EXPECT_EQ(ui.boxes()[0].prompt, "The Larderkeep database is missing, please select 'OK' the close program.");
    EXPECT_EQ(ui.boxes()[0].title, "Missing Database");
    EXPECT_EQ(ui.boxes()[0].buttons, 16);
    EXPECT_TRUE(ui.boxes()[1].prompt.endsWith("(Occurred in frmMain.mnuExit)"));
    EXPECT_TRUE(ui.boxes()[2].prompt.startsWith("Error: "));
    EXPECT_TRUE(ui.boxes()[2].prompt.endsWith("(Occurred in frmMain.Load)"));
    EXPECT_FALSE(w.Ended());
}

TEST_F(StartTest, ACorruptDatabaseIsRefusedAndLeftAsItWas) {
    CloseDatabase();
    const QByteArray junk(8192, '\x5a');
    {
        QFile f(HomeFile("Larderkeep.mdb"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(junk);
    }
    ui.answer(vb::OK);
    ui.answer(vb::OK);
    ui.answer(vb::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 3);
    EXPECT_EQ(ui.boxes()[0].title, "Database Error");
    EXPECT_NE(ui.boxes()[0].prompt.indexOf(HomeFile("Larderkeep.mdb")), -1);
    QFile f(HomeFile("Larderkeep.mdb"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), junk);
}

TEST_F(StartTest, QuickSearchFileIsKeptOnlyWhenAsked) {
    auto touch = [&] {
        QFile f(HomeFile("qs.dat"));
        f.open(QIODevice::WriteOnly);
        f.write("x");
    };
    touch();
    Registry().SaveQuickSearch(true);
    frmMain keep;
    keep.Form_Load();
    EXPECT_TRUE(QFile::exists(HomeFile("qs.dat")));

    Registry().SaveQuickSearch(false);
    frmMain drop;
    drop.Form_Load();
    EXPECT_FALSE(QFile::exists(HomeFile("qs.dat")));
}

TEST_F(StartTest, AMissingDictionaryTurnsSpellCheckOff) {
    QFile::remove(HomeFile("dictionary.dic"));
    ui.answer(vb::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "SpellCheck dictionary was not found, this option will not be available");
    EXPECT_EQ(ui.lastBox().title, "Missing Dictionary");
    EXPECT_EQ(ui.lastBox().buttons, 48);
    EXPECT_FALSE(Registry().SpellCheckAvailable());
}

TEST_F(StartTest, OnlyTheExactCommandLinePrints) {
    frmMain lower;
    lower.SetCommandLine("/l");
    lower.Form_Load();
    EXPECT_EQ(lower.CommandLineReport(), "");

    frmMain upper;
    upper.SetCommandLine("/L");
    // This machine has no printer: the printout is offered as a PDF.
    ui.answerFile(HomeFile("list.pdf"));
    upper.Form_Load();
    EXPECT_EQ(upper.CommandLineReport(), "rptStandard");
    EXPECT_TRUE(QFile::exists(HomeFile("list.pdf")));
    // The start went on after the print.
    EXPECT_EQ(upper.StartStatusTexts().first(), "Loading Messages ...");
}

TEST_F(StartTest, OverdueRemindersHoldTheProgramOpenUntilDealtWith) {
    AddMessage("Call the plumber", "11/20/2026", 1);
    AddMessage("Someday", "None", 1);
    AddMessage("Ignored", "11/01/2026", 4);
    AddMessage("Later", "12/01/2026", 1);
    frmMain w;
    w.Form_Load();

    w.mnuExit();
    EXPECT_FALSE(w.Ended());
    ASSERT_EQ(ui.modeless().size(), 1);
    auto* reminder = qobject_cast<frmReminder*>(ui.modeless().first().data());
    ASSERT_NE(reminder, nullptr);
    EXPECT_EQ(reminder->MessageID(), "Call the plumber");
    EXPECT_EQ(reminder->windowTitle(), "Reminder Call the plumber");

    // The reminder is dealt with (ignored); the second close ends the program.
    Recordset rs;
    rs.Open("SELECT * FROM Messages WHERE [Title] = 'Call the plumber'", ConnectionMain(), adOpenKeyset, adLockOptimistic);
    rs.setField("ReminderTime", 4);
    rs.Update();
    rs.Close();
    w.mnuExit();
    EXPECT_TRUE(w.Ended());
    EXPECT_FALSE(ConnectionMain().IsOpen());
}

TEST_F(StartTest, UnmappedToolbarKeysSayComingSoon) {
    frmMain w;
    ui.answer(vb::OK);
    w.tbMain_ButtonClick("NewCoupon");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "This feature will be added soon, please use the Menus.");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
}

}  // namespace
