// The main window's panes as the database fills them, checked through the pane
// models and the status panels.
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

#include <QLabel>
#include <QListView>
#include <QStandardItem>
#include <QTreeView>

namespace {

class PaneTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        MainPanes::Instance().ClearAll();
    }
    void TearDown() override {
        MainPanes::Instance().ClearAll();
        LarderTest::TearDown();
    }

    void Add(const QString& table, const QVariantMap& values) {
        Recordset rs;
        rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        for (auto it = values.begin(); it != values.end(); ++it) rs.setField(it.key(), it.value());
        rs.Update();
    }
    void AddRecipe(const QString& title, const QString& style, const QString& cookbook = "General",
                   bool favourite = false) {
        Add("Recipie", {{"Title", title}, {"Style", style}, {"CookbookName", cookbook}, {"Favorite", favourite}});
    }
    void AddCategory(const QString& name) { Add("RecipieCategory", {{"Name", name}}); }
    int Rows(const QString& sql) {
        Recordset rs;
        rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return rs.RecordCount();
    }
    // "Category/Title" for each recipe node.
    QStringList RecipeLines() {
        MainPanes& panes = MainPanes::Instance();
        QStringList out;
        for (QStandardItem* node : panes.AllNodes(panes.recipes))
            if (node->parent() && node->parent()->parent()) out << node->parent()->text() + "/" + node->text();
        return out;
    }
    QStringList Children(QStandardItem* node) {
        QStringList out;
        for (int r = 0; node && r < node->rowCount(); ++r) out << node->child(r)->text();
        return out;
    }

    // The template database brings its own categories; these tests start bare.
    void NoCategories() {
        Recordset rs;
        rs.Open("SELECT * FROM RecipieCategory", ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.Delete();
            rs.MoveNext();
        }
    }

    MainPanes& panes = MainPanes::Instance();
};

TEST_F(PaneTest, ARecipeShowsUnderEachOfItsCategoriesAndMissingOnesAreCreated) {
    NoCategories();
    AddCategory("Soup");
    AddCategory("  Quick ");  // keyed and shown trimmed
    AddRecipe("Leek Soup", "Soup, Quick");
    AddRecipe("Fish Stew", "Stew ,Fish", "General", true);
    AddRecipe("Other Book", "Soup", "Grandma's");
    CurrentCookbook = "General";

    frmMain w;
    w.LoadRecipies();

    QStandardItem* root = panes.FindByKey(panes.recipes, "Root");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->text(), "Recipies");
    // The table's categories first, in name order, then those met in recipes.
    EXPECT_EQ(Children(root), QStringList({"Quick", "Soup", "Stew", "Fish"}));
    EXPECT_EQ(RecipeLines(), QStringList({"Quick/Leek Soup", "Soup/Leek Soup", "Stew/Fish Stew", "Fish/Fish Stew"}));
    // Both missing categories are in the table now, stored once each.
    EXPECT_EQ(Rows("SELECT * FROM RecipieCategory WHERE [Name] = 'Stew'"), 1);
    EXPECT_EQ(Rows("SELECT * FROM RecipieCategory WHERE [Name] = 'Fish'"), 1);

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

    // Loading again rebuilds rather than doubles.
    w.LoadRecipies();
    EXPECT_EQ(RecipeLines().size(), 4);
    EXPECT_EQ(Rows("SELECT * FROM RecipieCategory"), 4);
}

TEST_F(PaneTest, WithNoCookbookEveryRecipeShowsAndThePanelSaysSo) {
    NoCategories();
    AddRecipe("Leek Soup", "Soup");
    AddRecipe("Apple Pie", "Dessert", "Grandma's");
    AddRecipe("No Category", "");
    CurrentCookbook.clear();
    frmMain w;
    w.LoadRecipies();
    EXPECT_EQ(RecipeLines(), QStringList({"Dessert/Apple Pie", "Soup/Leek Soup"}));
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 3");
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook:  (Showing all)");

    // Closing the cookbook reloads with all of them.
    CurrentCookbook = "Grandma's";
    w.ReloadRecipes();
    EXPECT_EQ(RecipeLines(), QStringList({"Dessert/Apple Pie"}));
    // The apostrophe is quoted for the count, not in the cookbook's name.
    EXPECT_EQ(CurrentCookbook, "Grandma's");
    EXPECT_EQ(w.StatusPanelRecipes->text(), "Recipes: 1");
    EXPECT_EQ(w.StatusPanelCookbook->text(), "Current Cookbook: Grandma's");
    w.RunCommand("mnuCloseCookbook");
    EXPECT_EQ(CurrentCookbook, "");
    EXPECT_EQ(RecipeLines().size(), 2);
}

TEST_F(PaneTest, ExpandRecipesOpensEveryCategory) {
    NoCategories();
    AddRecipe("Leek Soup", "Soup");
    AddRecipe("Apple Pie", "Dessert");
    CurrentCookbook = "General";
    Registry().ExpandRecipeList(true);
    frmMain w;
    w.LoadRecipies();
    EXPECT_TRUE(w.tvRecipes->isExpanded(panes.FindByKey(panes.recipes, "Soup")->index()));
    EXPECT_TRUE(w.tvRecipes->isExpanded(panes.FindByKey(panes.recipes, "Dessert")->index()));
    // A reload is expanded again, not toggled shut.
    w.LoadRecipies();
    EXPECT_TRUE(w.tvRecipes->isExpanded(panes.FindByKey(panes.recipes, "Soup")->index()));
}

TEST_F(PaneTest, TheCurrentListShowsManufacturersExceptAnyAndOnlyCurrentRows) {
    auto item = [&](const QString& name, const QString& maker, bool current) {
        Add("ShopList", {{"Name", "Weekly"}, {"ItemName", name}, {"ItemManufacturer", maker},
                         {"ItemQuantity", "2"}, {"ItemSize", "1 gal"}, {"ItemStyle", "Dairy"},
                         {"IsCurrent", current}, {"Store", "Any"}, {"Dates", "None"}});
    };
    item("Milk", "Any", true);
    item("Cereal", "Acme", true);
    item("Soap", "Acme", false);
    frmMain w;
    w.LoadShoppingList();
    QStandardItemModel& list = panes.currentList;
    ASSERT_EQ(list.rowCount(), 2);
    EXPECT_EQ(list.item(0, 0)->text(), "Milk");
    EXPECT_EQ(list.item(1, 0)->text(), "Acme's Cereal");
    EXPECT_EQ(list.item(1, 1)->text(), "2");
    EXPECT_EQ(list.item(1, 2)->text(), "1 gal");
    EXPECT_EQ(list.item(1, 3)->text(), "Dairy");
    EXPECT_EQ(list.horizontalHeaderItem(0)->text(), "Item");

    // A reload replaces the rows; a sorted list stays sorted.
    // The list starts ascending, so the first click turns it around.
    w.lvCurrentList->ColumnClick(0);
    EXPECT_EQ(w.lvCurrentList->SortOrder(), Qt::DescendingOrder);
    w.LoadShoppingList();
    ASSERT_EQ(list.rowCount(), 2);
    EXPECT_EQ(list.item(0, 0)->text(), "Milk");
    EXPECT_EQ(list.item(1, 0)->text(), "Acme's Cereal");
}

TEST_F(PaneTest, CouponsHangUnderTheirManufacturersAndStrangersAreAdded) {
    Add("Manufacturer", {{"Name", "Zeta"}});
    Add("Manufacturer", {{"Name", "Acme"}});
    Add("Coupons", {{"Manufacturer", "Acme"}, {"Product", "Oats"}, {"Size", "12 oz"}, {"Quantity", "2"},
                    {"Expiration", "Never"}});
    Add("Coupons", {{"Manufacturer", "Newco"}, {"Product", "Tea"}, {"Size", "box"}, {"Quantity", "1"},
                    {"Expiration", "12/31/2026"}});
    frmMain w;
    panes.AddNode(panes.coupons, "", "Root", "Coupons");
    w.LoadCoupons();
    QStandardItem* root = panes.FindByKey(panes.coupons, "Root");
    // The stranger is entered as a manufacturer, which sorts the tree.
    EXPECT_EQ(Children(root), QStringList({"Acme", "Newco", "Zeta"}));
    EXPECT_TRUE(panes.FindByKey(panes.coupons, "Newco")->font().bold());
    QStandardItem* acme = panes.FindByKey(panes.coupons, "Acme");
    ASSERT_EQ(acme->rowCount(), 1);
    QStandardItem* oats = acme->child(0);
    EXPECT_EQ(oats->text(), "2-12 oz Oats");
    const QString id = oats->data(MainPanes::TagRole).toString();
    EXPECT_EQ(panes.FindByKey(panes.coupons, "C" + id), oats);
    EXPECT_EQ(Rows("SELECT * FROM Manufacturer WHERE [Name] = 'Newco'"), 1);
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Newco")), QStringList({"1-box Tea"}));

    // Another load neither doubles the tree nor the new manufacturer.
    w.LoadAllCoupons();
    EXPECT_EQ(Children(panes.FindByKey(panes.coupons, "Root")), QStringList({"Acme", "Newco", "Zeta"}));
    EXPECT_EQ(Rows("SELECT * FROM Manufacturer WHERE [Name] = 'Newco'"), 1);
}

TEST_F(PaneTest, CouponsPastTheirDateTurnRedAndNearOnesWarnThenTheSettingActs) {
    Registry().CouponExpireNofication(true);
    Registry().CouponExpireDays(5);
    Registry().CouponExpiredAction(3);
    auto coupon = [&](const QString& product, const QString& expiration) {
        Add("Coupons", {{"Manufacturer", "Acme"}, {"Product", product}, {"Size", "box"}, {"Quantity", "1"},
                        {"Expiration", expiration}});
    };
    coupon("Old", "11/21/2026");
    coupon("Today", "11/22/2026");
    coupon("Soon", "11/26/2026");
    coupon("Later", "11/27/2026");
    coupon("Forever", "Never");
    coupon("Smudged", "next Tuesday");
    frmMain w;
    panes.AddNode(panes.coupons, "", "Root", "Coupons");
    ui.answer(Answer::OK);
    w.LoadCoupons();
    EXPECT_EQ(ui.lastBox().prompt, "There are Coupons that are going to expire in the next 5 days.");
    EXPECT_EQ(ui.lastBox().title, "Pending Expiration");

    QStandardItem* acme = panes.FindByKey(panes.coupons, "Acme");
    ASSERT_EQ(acme->rowCount(), 6);
    auto look = [&](int row) {
        QStandardItem* n = acme->child(row);
        return n->text() + "|" + n->data(MainPanes::ImageKeyRole).toString() + "|" +
               (n->foreground().color() == QColor(255, 0, 0) ? "red" : "plain");
    };
    EXPECT_EQ(look(0), "1-box Old (Expired)|CouponExpire|red");
    EXPECT_EQ(look(1), "1-box Today|CouponExpire|plain");  // d = 0 warns but is not past
    EXPECT_EQ(look(2), "1-box Soon|CouponExpire|plain");
    EXPECT_EQ(look(3), "1-box Later|Coupon|plain");
    EXPECT_EQ(look(4), "1-box Forever|Coupon|plain");
    EXPECT_EQ(look(5), "1-box Smudged|Coupon|plain");

    // Offering the purge is remembered for the start; purging removes only the past.
    Registry().CouponExpiredAction(2);
    w.LoadAllCoupons();
    EXPECT_TRUE(w.PurgeOnStart);
    w.PurgeOnStart = false;
    {
        // The purge itself stops at an expiration it cannot read.
        Recordset smudged;
        smudged.Open("SELECT * FROM Coupons WHERE [Product] = 'Smudged'", ConnectionMain(), adOpenKeyset,
                     adLockOptimistic);
        smudged.Delete();
    }
    Registry().CouponExpiredAction(1);
    w.LoadAllCoupons();
    EXPECT_FALSE(w.PurgeOnStart);
    EXPECT_EQ(Rows("SELECT * FROM Coupons"), 4);
    EXPECT_EQ(Rows("SELECT * FROM Coupons WHERE [Product] = 'Old'"), 0);
    EXPECT_EQ(panes.FindByKey(panes.coupons, "Acme")->rowCount(), 4);
}

TEST_F(PaneTest, MealsShowOnceByNameWithTheirCoursesAndTheirDaysBold) {
    auto meal = [&](const QString& name, const QString& when, const QString& main, const QString& side,
                    bool favourite) {
        Add("Meal", {{"Name", name}, {"Meal", "Dinner"}, {"Dates", when}, {"MainCourse", main},
                     {"SideDishOne", side}, {"Appetizer", " "}, {"Desert", ""}, {"Favorite", favourite}});
    };
    meal("Sunday Roast", "", "Roast Beef", "Peas", true);
    meal("Sunday Roast", "", "Gravy", " ", false);
    meal("Wednesday, Nov 25 2026", "11/25/2026", "Leek Soup", "", false);
    frmMain w;
    w.LoadMealList();
    QStandardItemModel& meals = panes.meals;
    ASSERT_EQ(meals.rowCount(), 2);
    QStandardItem* roast = panes.FindByKey(meals, "Meal::Sunday Roast");
    ASSERT_NE(roast, nullptr);
    EXPECT_EQ(roast->data(MainPanes::TagRole).toString(), "Meal");
    EXPECT_TRUE(roast->font().bold());
    EXPECT_EQ(Children(roast), QStringList({"Roast Beef", "Peas", "Gravy"}));
    EXPECT_EQ(roast->child(0)->data(MainPanes::TagRole).toString(), "Recipie");
    EXPECT_TRUE(roast->child(0)->data(MainPanes::KeyRole).toString().endsWith("Main"));
    EXPECT_TRUE(roast->child(1)->data(MainPanes::KeyRole).toString().endsWith("SideOne"));
    EXPECT_FALSE(panes.FindByKey(meals, "Meal::Wednesday, Nov 25 2026")->font().bold());
    EXPECT_EQ(panes.boldMealDates, QSet<QDate>({QDate(2026, 11, 25)}));
}

TEST_F(PaneTest, QuickStartShowsTheChosenKeysInItsOwnOrder) {
    Registry().QuickViewOptions("Product::Coupon::Nutrition");
    frmMain w;
    w.LoadQuickStart();
    QStringList captions, keys;
    for (int r = 0; r < panes.quickStart.rowCount(); ++r) {
        captions << panes.quickStart.item(r)->text();
        keys << panes.quickStart.item(r)->data(MainPanes::KeyRole).toString();
    }
    EXPECT_EQ(captions, QStringList({"New Coupon", "Nutrition", "New Product"}));
    EXPECT_EQ(keys, QStringList({"Coupon", "Nutrition", "Product"}));

    Registry().QuickViewOptions("");
    w.LoadQuickStart();
    EXPECT_EQ(panes.quickStart.rowCount(), 0);
}

TEST_F(PaneTest, InventoryCountsWhatWasBoughtSinceTheSentinelDate) {
    Add("Product", {{"Name", "Milk"}, {"LastPurchasedDate", "11/01/2026"}});
    Add("Product", {{"Name", "Eggs"}, {"LastPurchasedDate", "1/1/1950"}});
    Add("Product", {{"Name", "Jam"}, {"LastPurchasedDate", "10/12/2026"}});
    frmMain w;
    w.SetCurrentInventory();
    EXPECT_EQ(w.StatusPanelInventory->text(), "Inventory: 2 Items");
}

}  // namespace
