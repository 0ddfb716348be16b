// The main window's panes as the database fills them, checked through the pane
// models and the status panels, and the message centre's commands.
#include "core/ListView.h"
#include "core/clsRegistry.h"
#include "messages/MessageCommands.h"
#include "messages/frmMessageDisplay.h"
#include "messages/frmReminder.h"
#include "platform/Database.h"
#include "support/MainWindowTest.h"
#include "support/RecipeTree.h"

#include <QFile>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTextEdit>

namespace {

using PaneTest = MainWindowTest;

TEST_F(PaneTest, ARecipeShowsUnderEachOfItsCategoriesAndMissingOnesAreCreated) {
    // The starting database brings categories of its own; this test starts bare.
    ConnectionMain().ExecScript("DELETE FROM RecipieCategory");
    rows::Add("RecipieCategory", {{"Name", "Soup"}});
    rows::Add("RecipieCategory", {{"Name", "  Quick "}});  // keyed and shown trimmed
    rows::Recipe("Leek Soup", "Soup, Quick");
    rows::Recipe("Fish Stew", "Stew ,Fish", "General", {{"Favorite", true}});
    rows::Recipe("Other Book", "Soup", "Grandma's");
    CurrentCookbook = "General";
    Registry().ExpandRecipeList(true);
    frmMain w;
    w.LoadRecipies();
    EXPECT_EQ(panes.FindByKey(panes.recipes, "Root")->text(), "Recipies");
    // The table's categories first, in name order, then those met in recipes.
    QStringList lines = tree::Lines();
    EXPECT_EQ(lines, QStringList({"Quick", "Soup", "Stew", "Fish", "Quick/Leek Soup", "Soup/Leek Soup",
                                  "Stew/Fish Stew", "Fish/Fish Stew"}));
    // The missing categories are in the table now, stored once each.
    EXPECT_EQ(rows::Count("SELECT * FROM RecipieCategory WHERE [Name] IN ('Stew', 'Fish')"), 2);

    // Loading again rebuilds rather than doubles, and leaves every category open rather than toggled shut.
    w.LoadRecipies();
    QStringList again = tree::Lines();
    lines.sort();
    again.sort();
    EXPECT_EQ(again, lines);
    EXPECT_EQ(rows::Count("SELECT * FROM RecipieCategory"), 4);
    const QList<QStandardItem*> categories = panes.FindByTag(panes.recipes, "RecipeCategory");
    EXPECT_EQ(categories.size(), 4);
    for (QStandardItem* category : categories)
        EXPECT_TRUE(w.tvRecipes->isExpanded(category->index())) << category->text().toStdString();

    QStandardItem* soup = panes.FindByKey(panes.recipes, "Soup");
    EXPECT_TRUE(soup->font().bold());
    EXPECT_EQ(soup->data(MainPanes::TagRole).toString(), "RecipeCategory");
    QStandardItem* leek = soup->child(0);
    EXPECT_EQ(leek->data(MainPanes::TagRole).toString(), "Recipe");
    EXPECT_EQ(leek->foreground().color(), QColor(100, 100, 100));
    QStandardItem* stew = panes.FindByKey(panes.recipes, "Stew")->child(0);
    EXPECT_EQ(stew->data(MainPanes::TagRole).toString(), "RecipeFavorite");
    EXPECT_EQ(stew->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");
    EXPECT_NE(stew->foreground().color(), QColor(100, 100, 100));
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 2");
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook: General");
}

TEST_F(PaneTest, WithNoCookbookEveryRecipeShowsAndThePanelSaysSo) {
    ConnectionMain().ExecScript("DELETE FROM RecipieCategory");
    rows::Recipe("Leek Soup", "Soup");
    rows::Recipe("Apple Pie", "Dessert", "Grandma's");
    rows::Recipe("No Category", "");
    frmMain w;
    w.LoadRecipies();
    EXPECT_EQ(tree::Lines(), QStringList({"Dessert", "Soup", "Dessert/Apple Pie", "Soup/Leek Soup"}));
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 3");
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook:  (Showing all)");

    // The apostrophe is quoted for the count, not in the cookbook's name.
    CurrentCookbook = "Grandma's";
    w.ReloadRecipes();
    EXPECT_EQ(tree::Lines().filter("/"), QStringList({"Dessert/Apple Pie"}));
    EXPECT_EQ(CurrentCookbook, "Grandma's");
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 1");
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook: Grandma's");
    // Closing the cookbook reloads with all of them.
    w.RunCommand("mnuCloseCookbook");
    EXPECT_EQ(CurrentCookbook, "");
    EXPECT_EQ(tree::Lines().filter("/").size(), 2);
}

TEST_F(PaneTest, TheCurrentListShowsManufacturersExceptAnyAndOnlyCurrentRows) {
    for (const auto& [name, maker, current] :
         {std::tuple{"Milk", "Any", true}, {"Cereal", "Acme", true}, {"Soap", "Acme", false}})
        rows::Add("ShopList", {{"Name", "Weekly"},
                               {"ItemName", name},
                               {"ItemManufacturer", maker},
                               {"ItemQuantity", "2"},
                               {"ItemSize", "1 gal"},
                               {"ItemStyle", "Dairy"},
                               {"IsCurrent", current},
                               {"Store", "Any"},
                               {"Dates", "None"}});
    frmMain w;
    w.LoadShoppingList();
    QStandardItemModel& list = panes.currentList;
    EXPECT_EQ(list.horizontalHeaderItem(0)->text(), "Item");
    EXPECT_EQ(Lines(list), QStringList({"Milk|2|1 gal|Dairy", "Acme's Cereal|2|1 gal|Dairy"}));

    // A reload replaces the rows; a sorted list stays sorted.
    // The list starts ascending, so the first click turns it around.
    w.lvCurrentList->ColumnClick(0);
    EXPECT_EQ(w.lvCurrentList->SortOrder(), Qt::DescendingOrder);
    w.LoadShoppingList();
    EXPECT_EQ(Cells(list, 0), QStringList({"Milk", "Acme's Cereal"}));
}

void AddCoupon(const QString& maker, const QString& product, const QString& size, const QString& expiration) {
    rows::Add(
        "Coupons",
        {{"Manufacturer", maker}, {"Product", product}, {"Size", size}, {"Quantity", "1"}, {"Expiration", expiration}});
}

TEST_F(PaneTest, CouponsHangUnderTheirManufacturersTurnRedPastTheirDateAndTheSettingActs) {
    Registry().CouponExpireNofication(true);
    Registry().CouponExpireDays(5);
    Registry().CouponExpiredAction(3);
    rows::Add("Manufacturer", {{"Name", "Zeta"}});
    rows::Add("Manufacturer", {{"Name", "Acme"}});
    AddCoupon("Newco", "Tea", "box", "12/31/2026");
    for (const auto& [product, expiration] : {std::pair{"Old", "11/21/2026"},
                                              {"Today", "11/22/2026"},
                                              {"Soon", "11/26/2026"},
                                              {"Later", "11/27/2026"},
                                              {"Forever", "Never"},
                                              {"Smudged", "next Tuesday"}})
        AddCoupon("Acme", product, "box", expiration);
    frmMain w;
    panes.AddNode(panes.coupons, "", "Root", "Coupons");
    ui.answer(Answer::OK);
    w.LoadCoupons();
    EXPECT_EQ(LastBox(), "Pending Expiration: There are Coupons that are going to expire in the next 5 days.");
    // The stranger is entered as a manufacturer, which sorts the tree.
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Root")), QStringList({"Acme", "Newco", "Zeta"}));
    EXPECT_TRUE(panes.FindByKey(panes.coupons, "Newco")->font().bold());
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Newco")), QStringList({"1-box Tea"}));
    QStandardItem* acme = panes.FindByKey(panes.coupons, "Acme");
    QStringList looks;
    for (int r = 0; r < acme->rowCount(); ++r) {
        QStandardItem* n = acme->child(r);
        looks << n->text() + "|" + n->data(MainPanes::ImageKeyRole).toString() + "|" +
                     (n->foreground().color() == QColor(255, 0, 0) ? "red" : "plain");
    }
    // d = 0 warns but is not past; a date that cannot be read is no warning.
    EXPECT_EQ(looks, QStringList({"1-box Old (Expired)|CouponExpire|red", "1-box Today|CouponExpire|plain",
                                  "1-box Soon|CouponExpire|plain", "1-box Later|Coupon|plain",
                                  "1-box Forever|Coupon|plain", "1-box Smudged|Coupon|plain"}));
    EXPECT_EQ(panes.FindByKey(panes.coupons, "C" + acme->child(0)->data(MainPanes::TagRole).toString()),
              acme->child(0));

    // Offering the purge is remembered for the start; purging removes only the past,
    // and another load doubles neither the tree nor the new manufacturer.
    Registry().CouponExpiredAction(2);
    w.LoadAllCoupons();
    EXPECT_TRUE(w.PurgeOnStart);
    w.PurgeOnStart = false;
    // The purge itself stops at an expiration it cannot read.
    ConnectionMain().ExecScript("DELETE FROM Coupons WHERE Product = 'Smudged'");
    Registry().CouponExpiredAction(1);
    w.LoadAllCoupons();
    EXPECT_FALSE(w.PurgeOnStart);
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons ORDER BY [Product]", "Product"),
              QStringList({"Forever", "Later", "Soon", "Tea", "Today"}));
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme")->rowCount(), 4);
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Root")), QStringList({"Acme", "Newco", "Zeta"}));
    EXPECT_EQ(rows::Count("SELECT * FROM Manufacturer WHERE [Name] = 'Newco'"), 1);
}

TEST_F(PaneTest, MealsShowOnceByNameWithTheirCoursesAndTheirDaysBold) {
    rows::Meal("Sunday Roast",
               {{"MainCourse", "Roast Beef"}, {"SideDishOne", "Peas"}, {"Appetizer", " "}, {"Favorite", true}});
    rows::Meal("Sunday Roast", {{"MainCourse", "Gravy"}, {"SideDishOne", " "}});
    rows::Meal("Wednesday, Nov 25 2026", {{"Dates", "11/25/2026"}, {"MainCourse", "Leek Soup"}});
    frmMain w;
    w.LoadMealList();
    ASSERT_EQ(panes.meals.rowCount(), 2);
    QStandardItem* roast = panes.FindByKey(panes.meals, "Meal::Sunday Roast");
    ASSERT_NE(roast, nullptr);
    EXPECT_EQ(roast->data(MainPanes::TagRole).toString(), "Meal");
    EXPECT_TRUE(roast->font().bold());
    EXPECT_EQ(Children(roast), QStringList({"Roast Beef", "Peas", "Gravy"}));
    EXPECT_EQ(roast->child(0)->data(MainPanes::TagRole).toString(), "Recipie");
    EXPECT_TRUE(roast->child(0)->data(MainPanes::KeyRole).toString().endsWith("Main"));
    EXPECT_TRUE(roast->child(1)->data(MainPanes::KeyRole).toString().endsWith("SideOne"));
    EXPECT_FALSE(panes.FindByKey(panes.meals, "Meal::Wednesday, Nov 25 2026")->font().bold());
    EXPECT_EQ(panes.boldMealDates, QSet<QDate>({QDate(2026, 11, 25)}));
}

TEST_F(PaneTest, InventoryCountsWhatWasBoughtSinceTheSentinelDate) {
    for (const auto& [name, bought] : {std::pair{"Milk", "11/01/2026"}, {"Eggs", "1/1/1950"}, {"Jam", "10/12/2026"}})
        rows::Add("Product", {{"Name", name}, {"LastPurchasedDate", bought}});
    frmMain w;
    w.SetCurrentInventory();
    EXPECT_EQ(w.StatusPanelInventory->text(), "Inventory: 2 Items");
}

// The message centre: a row per message, and the commands on the selected rows.
class MessageCentreTest : public MainWindowTest {
protected:
    QStandardItemModel& Pane() { return panes.messages; }
    QStringList Reminders() {
        QStringList out;
        for (const auto& w : ui.modeless())
            if (auto* r = qobject_cast<frmReminder*>(w.data())) out << r->MessageID();
        return out;
    }
    int ReminderTime(const QString& title) { return rows::Field("Messages", "Title", title, "ReminderTime").toInt(); }
    void Select(frmMain& w, const QList<int>& rows) {
        QItemSelectionModel* s = w.lvMessageCenter->selectionModel();
        s->clearSelection();
        for (int r : rows) s->select(Pane().index(r, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        if (!rows.isEmpty()) s->setCurrentIndex(Pane().index(rows.first(), 0), QItemSelectionModel::NoUpdate);
    }
};

TEST_F(MessageCentreTest, TheListShowsTitleDateAndTheFirstFortyCharactersOnOneLine) {
    rows::Message("Freezer", "Defrost the freezer\r\nand wipe the shelves down before Friday", "11/20/2026", 1, 1);
    rows::Message("Recipe club", "Bring a dessert", "None", 2, 4);
    rows::Message("Odd date", "Text", "next week-ish", 2, 4);
    frmMain w;
    w.LoadMessages();
    ASSERT_EQ(Pane().columnCount(), 3);
    EXPECT_EQ(QStringList({Pane().horizontalHeaderItem(0)->text(), Pane().horizontalHeaderItem(1)->text(),
                           Pane().horizontalHeaderItem(2)->text()}),
              QStringList({"Subject", "Date", "Message"}));
    EXPECT_EQ(Lines(Pane()), QStringList({"Freezer|11/20/2026|Defrost the freezer;and wipe the shelves",
                                          "Recipe club|None|Bring a dessert", "Odd date|next week-ish|Text"}));
    EXPECT_EQ(Pane().item(0)->data(MainPanes::KeyRole).toString(), "Defrost the freezer\r");
    EXPECT_EQ(Pane().item(0)->data(MainPanes::ImageKeyRole).toString(), "Reminder");
    EXPECT_EQ(Pane().item(1)->data(MainPanes::ImageKeyRole).toString(), "Message");

    // Loading again rebuilds rather than adds; a new row arrives alone.
    Registry().DateDisplayFormatWrite("dddd, mmm d yyyy");
    w.LoadMessages();
    EXPECT_EQ(Cells(Pane(), 1), QStringList({"Friday, Nov 20 2026", "None", "next week-ish"}));
    w.AddMessage("Coupon", "Discard Coupon for Acme's Oats", "11/22/2026", 1);
    ASSERT_EQ(Pane().rowCount(), 4);
    EXPECT_EQ(Lines(Pane())[3], "Coupon|Sunday, Nov 22 2026|Discard Coupon for Acme's Oats");
    EXPECT_EQ(Pane().item(3)->data(MainPanes::ImageKeyRole).toString(), "Reminder");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MessageCentreTest, DueRemindersPopUpAtStartAndIgnoredOnesStayQuietUntilTheNext) {
    rows::Message("Due yesterday", "Water the plants", "11/21/2026", 1, 4);
    rows::Message("Due this morning", "Defrost", "11/22/2026", 1, 1);
    rows::Message("Due tonight", "Later today", "11/22/2026 8:00 PM", 1, 4);
    rows::Message("Undated", "Whenever", "None", 1, 4);
    rows::Message("Garbled", "?", "someday", 1, 4);
    rows::Message("Plain note", "Not a reminder", "11/01/2026", 2, 4);
    {
        frmMain w;
        MessageCommands::DisplayReminders();
        ASSERT_EQ(Reminders(), QStringList({"Due yesterday", "Due this morning"}));
        auto* first = qobject_cast<frmReminder*>(ui.modeless().first().data());
        EXPECT_EQ(first->windowTitle(), "Reminder Due yesterday");
        EXPECT_EQ(first->lblReminder->text(), "Water the plants");
        EXPECT_FALSE(first->ReminderOverdue);
        EXPECT_EQ(first->parentWidget(), &w);
        // Fresh and ignored reminders are armed (4 to 1); plain messages keep what they had.
        EXPECT_EQ(rows::Count("SELECT * FROM Messages WHERE [Type] = 1 AND [ReminderTime] = 4"), 0);
        EXPECT_EQ(ReminderTime("Undated"), 1);
        EXPECT_EQ(ReminderTime("Plain note"), 4);
        EXPECT_EQ(ui.prompts().size(), 0);

        for (const auto& shown : ui.modeless()) qobject_cast<frmReminder*>(shown.data())->cmdIgnore_Click();
        EXPECT_EQ(ReminderTime("Due yesterday"), 4);
        ui.clear();
        w.mnuExit();
        EXPECT_TRUE(w.Ended());
        EXPECT_TRUE(ui.modeless().isEmpty());
    }
    ConnectionMain().Open(HomeFile("Larderkeep.mdb"));
    frmMain again;
    MessageCommands::DisplayReminders();
    EXPECT_EQ(Reminders(), QStringList({"Due yesterday", "Due this morning"}));
    EXPECT_EQ(ReminderTime("Due yesterday"), 1);
}

TEST_F(MessageCentreTest, DisplayShowsTheStoredTextOrDropsAnItemThatIsGone) {
    rows::Message("Mom's birthday", "Order the cake\r\nand candles", "12/05/2026", 2, 4);
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
    EXPECT_EQ(LastBox(), "Coming Soon: This feature will be added soon!");

    Select(w, {1});
    ui.answer(Answer::OK);
    w.RunCommand("mnuMessageDisplay");
    EXPECT_EQ(LastBox(),
              "Missing: The Message, entitled Vanished, could not be located so, it will be removed from view.");
    EXPECT_EQ(Cells(Pane(), 0), QStringList({"Mom's birthday"}));
}

TEST_F(MessageCentreTest, DeleteRemovesEverySelectedMessageAfterAYes) {
    for (const char* t : {"One", "Two", "Three", "Two"}) rows::Message(t, "b", "None", 2, 4);
    frmMain w;
    w.LoadMessages();
    Select(w, {0, 2, 3});
    ui.answer(Answer::No);
    w.RunCommand("mnuDeleteMessage");
    EXPECT_EQ(LastBox(), "Delete: Do you wish to delete the selected Messages?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question);
    EXPECT_EQ(rows::Count("SELECT * FROM Messages"), 4);

    ui.answer(Answer::Yes);
    w.RunCommand("mnuDeleteMessage");
    EXPECT_EQ(Cells(Pane(), 0), QStringList({"Two"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Messages", "Title"), QStringList({"Two"}));
}

TEST_F(MessageCentreTest, PrintingKeepsAnHtmlCopyInTheReportFolderOrSaysWhyNot) {
    rows::Message("Party list", "Chairs\r\nNapkins", "12/31/2026", 2, 4);
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
    for (const char* part : {"Party list", "Napkins", "Thursday, Dec 31 2026"})
        EXPECT_TRUE(html.contains(part)) << part;

    // A folder that cannot take the copy is reported, and the last report stays what it was.
    Registry().AlwaysPrintPreview(true);
    for (const QString& folder : {HomeFile("no/such/folder"), HomeFile("Larderkeep.mdb")}) {
        Registry().SaveReportDirectory(folder);
        ui.answerModal([](QDialog*) { return 0; });
        ui.answer(Answer::OK);
        w.RunCommand("mnuPrintMessage");
        EXPECT_EQ(LastBox(), "Error: Error: Path/File access error (Occurred in frmMain.mnuPrintMessage)");
        EXPECT_EQ(LastReportFile, HomeFile("Message.htm"));
    }

    // Preview instead of print; without REPORT_BACKUP no copy is made.
    QFile::remove(HomeFile("Message.htm"));
    LastReportFile.clear();
    Registry().SaveReportCopy(false);
    ui.answerModal([](QDialog*) { return 0; });
    w.RunCommand("mnuPrintMessage");
    EXPECT_EQ(ui.lastBox().kind, "Modal");
    EXPECT_FALSE(QFile::exists(HomeFile("Message.htm")));
    EXPECT_TRUE(LastReportFile.isEmpty());
}

}  // namespace
