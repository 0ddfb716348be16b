#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/MainPanes.h"
#include "core/frmMain.h"
#include "messages/frmReminder.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QCalendarWidget>
#include <QFile>
#include <QLabel>
#include <QStandardItem>

namespace {

class StartTest : public LarderTest {
protected:
    void AddMessage(const QString& title, const QString& date, int reminderTime, int type = 1) {
        Recordset rs;
        rs.Open("SELECT * FROM Messages", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Title", title);
        rs.setField("Body", "Body of " + title);
        rs.setField("Date", date);
        rs.setField("Type", type);
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
    ui.answer(Answer::No);
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
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    frmMain again;
    again.Form_Load();
    EXPECT_EQ(ui.prompts().last(), "Add Code!");
}

TEST_F(StartTest, NeverBackedUpIsSaidOnce) {
    Registry().BackupReminder(true);
    ui.answer(Answer::OK);
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
    ui.answer(Answer::OK);
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
    ui.answer(Answer::OK);  // missing database
    ui.answer(Answer::OK);  // the exit check cannot read its messages
    ui.answer(Answer::OK);  // the message centre's own handlers report
    ui.answer(Answer::OK);
    ui.answer(Answer::OK);  // the next step without one ends the start
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 5);
    EXPECT_EQ(ui.boxes()[0].prompt, "The Larderkeep database is missing, please select 'OK' the close program.");
    EXPECT_EQ(ui.boxes()[0].title, "Missing Database");
    EXPECT_EQ(ui.boxes()[0].buttons, 16);
    EXPECT_TRUE(ui.boxes()[1].prompt.endsWith("(Occurred in frmMain.mnuExit)"));
    EXPECT_TRUE(ui.boxes()[2].prompt.endsWith("(Occurred in frmMain.LoadMessages)"));
    EXPECT_TRUE(ui.boxes()[3].prompt.endsWith("(Occurred in frmLoad.DisplayReminders)"));
    EXPECT_TRUE(ui.boxes()[4].prompt.startsWith("Error: "));
    EXPECT_TRUE(ui.boxes()[4].prompt.endsWith("(Occurred in frmMain.Load)"));
    // The start stopped at the coupons: nothing after them was loaded.
    EXPECT_FALSE(w.StartStatusTexts().contains("Loading Recipes ..."));
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
    for (int i = 0; i < 5; ++i) ui.answer(Answer::OK);
    frmMain w;
    w.Form_Load();
    ASSERT_EQ(ui.count(), 5);
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
    ui.answer(Answer::OK);
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
    Recordset rs;
    rs.Open("SELECT * FROM Messages WHERE [Title] = 'Call the plumber'", ConnectionMain(), adOpenKeyset, adLockOptimistic);
    rs.setField("ReminderTime", 4);
    rs.Update();
    rs.Close();
    w.mnuExit();
    EXPECT_TRUE(w.Ended());
    EXPECT_FALSE(ConnectionMain().IsOpen());
}

TEST_F(StartTest, AStartFillsEveryPaneFromTheDatabase) {
    auto add = [](const QString& table, const QVariantMap& values) {
        Recordset rs;
        rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        for (auto it = values.begin(); it != values.end(); ++it) rs.setField(it.key(), it.value());
        rs.Update();
    };
    add("Recipie", {{"Title", "Leek Soup"}, {"Style", "Soups,Quick"}, {"CookbookName", "General"}});
    add("Manufacturer", {{"Name", "Acme"}});
    add("Coupons", {{"Manufacturer", "Acme"}, {"Product", "Oats"}, {"Size", "12 oz"}, {"Quantity", "1"},
                    {"Expiration", "Never"}});
    add("ShopList", {{"Name", "Weekly"}, {"ItemName", "Milk"}, {"ItemManufacturer", "Any"}, {"IsCurrent", true}});
    add("Meal", {{"Name", "Friday, Nov 27 2026"}, {"Meal", "Dinner"}, {"Dates", "11/27/2026"},
                 {"MainCourse", "Leek Soup"}});
    add("Product", {{"Name", "Tea"}, {"LastPurchasedDate", "11/20/2026"}});
    Registry().QuickViewOptions("Coupon::Inventory");
    MainPanes::Instance().ClearAll();

    frmMain w;
    w.Form_Load();
    EXPECT_EQ(ui.count(), 0);
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* soups = panes.FindByKey(panes.recipes, "Soups");
    ASSERT_NE(soups, nullptr);
    EXPECT_EQ(soups->child(0)->text(), "Leek Soup");
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Quick")->rowCount(), 1);
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme")->child(0)->text(), "1-12 oz Oats");
    EXPECT_TRUE(panes.FindByKey(panes.coupons, "Root")->font().bold());
    EXPECT_EQ(panes.currentList.item(0, 0)->text(), "Milk");
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
    MainPanes::Instance().ClearAll();
}

TEST_F(StartTest, UnmappedToolbarKeysSayComingSoon) {
    frmMain w;
    ui.answer(Answer::OK);
    w.tbMain_ButtonClick("Calculator");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "This feature will be added soon, please use the Menus.");
    EXPECT_EQ(ui.lastBox().title, "Coming Soon");
}

}  // namespace
