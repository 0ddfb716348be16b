// The start of the main window: its boxes, the panes it fills, and what ends it.
#include "core/clsRegistry.h"
#include "messages/frmReminder.h"
#include "platform/Database.h"
#include "support/MainWindowTest.h"

#include <QCalendarWidget>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <sqlite3.h>

namespace {

class StartTest : public MainWindowTest {
protected:
    void AddMessage(const QString& title, const QString& date, int reminderTime, int type = 1) {
        rows::Message(title, "Body of " + title, date, type, reminderTime);
    }
};

TEST_F(StartTest, AStartFillsEveryPaneFromTheDatabaseAndSaysWhatItLoads) {
    rows::Recipe("Leek Soup", "Soups,Quick");
    rows::Add("Manufacturer", {{"Name", "Acme"}});
    rows::Add(
        "Coupons",
        {{"Manufacturer", "Acme"}, {"Product", "Oats"}, {"Size", "12 oz"}, {"Quantity", "1"}, {"Expiration", "Never"}});
    rows::Add("ShopList", {{"Name", "Weekly"}, {"ItemName", "Milk"}, {"ItemManufacturer", "Any"}, {"IsCurrent", true}});
    rows::Meal("Friday, Nov 27 2026", {{"Dates", "11/27/2026"}, {"MainCourse", "Leek Soup"}});
    rows::Add("Product", {{"Name", "Tea"}, {"LastPurchasedDate", "11/20/2026"}});
    Registry().QuickViewOptions("Coupon::Inventory");

    frmMain w;
    w.Form_Load();
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(w.StartStatusTexts(),
              QStringList({"Loading Messages ...", "Loading QuickStart ...", "Loading Manufacturers/Coupons ...",
                           "Loading Recipes ...", "Loading Shopping List ...", "Loading Meals ...",
                           "Loading Dictionary ...", "Removing old Inventory ...", "Removing old Cost History ..."}));
    EXPECT_TRUE(w.windowTitle().startsWith("Larderkeep  v. "));
    EXPECT_TRUE(Registry().SpellCheckAvailable());
    EXPECT_EQ(Registry().GetValue("Settings", "InstallDir"), Home());

    EXPECT_EQ(Children(panes.FindByKey(panes.recipes, "Soups")), QStringList({"Leek Soup"}));
    EXPECT_EQ(Children(panes.FindByKey(panes.recipes, "Quick")), QStringList({"Leek Soup"}));
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Acme")), QStringList({"1-12 oz Oats"}));
    EXPECT_TRUE(panes.FindByKey(panes.coupons, "Root")->font().bold());
    EXPECT_EQ(Cells(panes.currentList, 0), QStringList({"Milk"}));
    EXPECT_EQ(panes.currentList.columnCount(), 4);
    EXPECT_NE(panes.FindByKey(panes.meals, "Meal::Friday, Nov 27 2026"), nullptr);
    EXPECT_TRUE(panes.boldMealDates.contains(QDate(2026, 11, 27)));
    EXPECT_EQ(w.calMeals->selectedDate(), QDate(2026, 11, 27));
    EXPECT_EQ(panes.quickStart.rowCount(), 2);
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook: General");
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 1");
    EXPECT_EQ(w.StatusPanelInventory->text(), "Inventory: 1 Items");
    // Every pane but the meal tree has its header.
    QStringList captions;
    for (QLabel* header : w.headers) captions << header->text();
    captions.sort();
    EXPECT_EQ(captions, QStringList({" Coupons", " Current Shopping List", " Meal Calendar", " Message Center",
                                     " Quick Start Menu", " Recipes"}));
}

TEST_F(StartTest, TheBackupReminderSpeaksAfterSevenWholeDaysOrWhenThereWasNone) {
    Registry().BackupReminder(true);
    const QString old =
        "Notice: Your current backup is older than 7 days. It is recommended that you backup your "
        "database regularly. Do you want to run a backup now?";
    // Exactly seven days before the pinned today is not too old yet.
    const std::tuple<QString, QString, int> cases[] = {
        {"11/15/2026", "", 0},
        {"Never", "No Backup: The database has never been Backed up.", Box::Exclamation},
        {"11/14/2026", old, 292 + 16384}};
    for (const auto& [last, box, buttons] : cases) {
        SCOPED_TRACE(last.toStdString());
        Registry().LastBackup(last);
        ui.clear();
        if (!box.isEmpty()) ui.answer(buttons == Box::Exclamation ? Answer::OK : Answer::No);
        frmMain w;
        w.Form_Load();
        ASSERT_EQ(ui.count(), box.isEmpty() ? 0 : 1);
        if (box.isEmpty()) continue;
        EXPECT_EQ(LastBox(), box);
        EXPECT_EQ(ui.lastBox().buttons, buttons);
    }
    EXPECT_EQ(ui.lastBox().context, 1091);
    EXPECT_EQ(ui.lastBox().helpFile, Registry().HelpFile());

    // Yes runs no backup yet and says so.
    ui.clear();
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    frmMain again;
    again.Form_Load();
    EXPECT_EQ(ui.prompts().last(), "Add Code!");
}

TEST_F(StartTest, CompactAtStartReportsBecauseTheConnectionIsNotOpenYet) {
    Registry().DBCompact(2);
    CloseDatabase();
    ui.answer(Answer::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_GE(ui.count(), 1);
    EXPECT_EQ(ui.boxes().first().prompt,
              "Error: Operation is not allowed when the object is closed. (Occurred in DBCompact)");
    EXPECT_TRUE(ConnectionMain().IsOpen());  // the start still opened it afterwards
}

TEST_F(StartTest, AMissingDatabaseSaysSoOnceAndTheStartEnds) {
    CloseDatabase();
    QFile::remove(HomeFile("Larderkeep.mdb"));
    ui.answer(Answer::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "Missing Database: The Larderkeep database is missing, please select 'OK' the close program.");
    EXPECT_EQ(ui.lastBox().buttons, Box::Critical);
    EXPECT_FALSE(w.StartStatusTexts().contains("Loading Messages ..."));
    EXPECT_TRUE(w.Ended());
    EXPECT_EQ(w.ExitStatus(), 1);
    EXPECT_FALSE(ConnectionMain().IsOpen());
}

// A database file that cannot be used: one box naming the file and what is
// wrong, the program ends with a failure status, and the file keeps every byte.
TEST_F(StartTest, AnUnusableDatabaseEndsTheStartWithOneBoxAndIsLeftAsItWas) {
    const QString path = HomeFile("Larderkeep.mdb");
    QByteArray whole;
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        whole = f.readAll();
    }
    struct Case {
        const char* name;
        QByteArray bytes;
        const char* trouble;
    };
    QByteArray random(8192, '\0');
    for (int i = 0; i < random.size(); ++i) random[i] = char((i * 7919 + 13) % 251);
    const Case cases[] = {
        {"random bytes", random, "The file is not a Larderkeep database."},
        {"empty", QByteArray(), "The file is not a Larderkeep database."},
        {"truncated", whole.left(whole.size() / 2), "The file is damaged"},
        {"another program's database", QByteArray(), "The file is not a Larderkeep database."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CloseDatabase();
        QFile::remove(path);
        QByteArray bytes = c.bytes;
        if (QByteArray(c.name) == "another program's database") {
            // A real SQLite file holding none of our tables.
            sqlite3* db = nullptr;
            ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &db), SQLITE_OK);
            sqlite3_exec(db, "CREATE TABLE Notes(x)", nullptr, nullptr, nullptr);
            sqlite3_close(db);
            QFile f(path);
            ASSERT_TRUE(f.open(QIODevice::ReadOnly));
            bytes = f.readAll();
        } else {
            QFile f(path);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(bytes);
        }
        ui.clear();
        ui.answer(Answer::OK);
        frmMain w;
        w.Form_Load();
        ASSERT_EQ(ui.count(), 1) << ui.prompts().join(" | ").toStdString();
        EXPECT_EQ(ui.boxes()[0].title, "Database Error");
        EXPECT_EQ(ui.boxes()[0].buttons, Box::Critical);
        EXPECT_TRUE(ui.boxes()[0].prompt.contains(QDir::toNativeSeparators(path)));
        EXPECT_TRUE(ui.boxes()[0].prompt.contains(QString::fromLatin1(c.trouble)))
            << ui.boxes()[0].prompt.toStdString();
        EXPECT_TRUE(w.Ended());
        EXPECT_EQ(w.ExitStatus(), 1);
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_EQ(f.readAll(), bytes);
    }
}

TEST_F(StartTest, ADatabaseInUseByAnotherProgramSaysSo) {
    CloseDatabase();
    const QString path = HomeFile("Larderkeep.mdb");
    // Another program holds the write lock for the whole start.
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    ui.answer(Answer::OK);
    frmMain w;
    w.Form_Load();
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    ASSERT_EQ(ui.count(), 1);
    EXPECT_TRUE(ui.boxes()[0].prompt.contains("in use")) << ui.boxes()[0].prompt.toStdString();
    EXPECT_TRUE(ui.boxes()[0].prompt.contains(QDir::toNativeSeparators(path)));
    EXPECT_TRUE(w.Ended());
}

TEST_F(StartTest, QuickSearchFileIsKeptOnlyWhenAsked) {
    for (bool keep : {true, false}) {
        QFile f(HomeFile("qs.dat"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.close();
        Registry().SaveQuickSearch(keep);
        frmMain w;
        w.Form_Load();
        EXPECT_EQ(QFile::exists(HomeFile("qs.dat")), keep);
    }
}

TEST_F(StartTest, AMissingDictionaryTurnsSpellCheckOff) {
    QFile::remove(HomeFile("dictionary.dic"));
    ui.answer(Answer::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "Missing Dictionary: SpellCheck dictionary was not found, this option will not be available");
    EXPECT_EQ(ui.lastBox().buttons, Box::Exclamation);
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
    AddMessage("Ignored", "11/01/2026", 4, 2);  // a note, not a reminder: never re-armed
    AddMessage("Later", "12/01/2026", 1);
    frmMain w;
    w.Form_Load();
    // The start showed what had fallen due; the exit check comes on top.
    const int atStart = int(ui.modeless().size());
    w.mnuExit();
    EXPECT_FALSE(w.Ended());
    ASSERT_EQ(ui.modeless().size(), atStart + 1);
    auto* reminder = qobject_cast<frmReminder*>(ui.modeless().last().data());
    ASSERT_NE(reminder, nullptr);
    EXPECT_EQ(reminder->MessageID(), "Call the plumber");
    EXPECT_EQ(reminder->windowTitle(), "Reminder Call the plumber");

    // The reminder is dealt with (ignored); the second close ends the program.
    rows::Set("SELECT * FROM Messages WHERE [Title] = 'Call the plumber'", "ReminderTime", 4);
    w.mnuExit();
    EXPECT_TRUE(w.Ended());
}

TEST_F(StartTest, AReminderWithADamagedDateNeverHoldsTheExit) {
    AddMessage("Junk date", "someday soon", 1);
    AddMessage("Blank date", "", 1);
    frmMain w;
    w.Form_Load();
    w.mnuExit();
    EXPECT_TRUE(w.Ended());
    EXPECT_TRUE(ui.prompts().filter("Type mismatch").isEmpty());
    EXPECT_FALSE(ConnectionMain().IsOpen());
}

}  // namespace
