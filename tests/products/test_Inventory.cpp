#include "core/CommandRegistry.h"
#include "core/clsRegistry.h"
#include "products/ProductCommands.h"
#include "products/frmInventorySuggestions.h"
#include "products/frmProductInventory.h"
#include "products/modInventory.h"
#include "products/rptInventory.h"

#include "support/Rows.h"
#include "support/TestEnv.h"
#include "support/Views.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTreeWidget>

namespace {

class InventoryTest : public LarderTest {
protected:
    // Today is 11/22/2026.
    static qint32 Product(const QString& name, const QString& maker, const QVariant& bought, QVariantMap more = {}) {
        QVariantMap row{{"Name", name},  {"Manufacturer", maker}, {"Size", "1 lb"}, {"Category", "Pantry"},
                        {"Cost", 2.5},   {"TimesPurchased", 3},   {"lastpurchasedquantity", 2}};
        if (bought.isValid()) row.insert("LastPurchasedDate", bought);
        row.insert(more);
        return rows::Add("Product", row);
    }
    static qint32 Current(const QString& name, const QString& maker, QVariantMap more = {}) {
        QVariantMap row{{"Name", "Week"},     {"ItemName", name}, {"ItemManufacturer", maker}, {"ItemQuantity", "4"},
                        {"ItemCost", 1.25},   {"Dates", "None"},  {"IsCurrent", true},         {"CouponID", 0}};
        row.insert(more);
        return rows::Add("ShopList", row);
    }
    static qint32 Coupon(const QString& product, const QString& owner = "Week") {
        return rows::Add("Coupons", {{"Manufacturer", "Acme"}, {"Product", product}, {"Size", "1 lb"},
                                     {"Expiration", "Never"}, {"OwnerList", owner}});
    }
    static QString Bought(qint32 id) { return TextOf(rows::Field("Product", "ID", id, "LastPurchasedDate")); }
    static int OnHand() { return rows::Count("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50#"); }
    void Generic(const QString& lines) {
        QFile f(HomeFile("TrivialItem.lis"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(lines.toUtf8());
    }
    static void Expiry(bool notify, bool next, int days = 30) {
        Registry().ConsiderInventoryEmpty(true);
        Registry().InventoryDays(qint16(days));
        Registry().InventoryNotifyEmpty(notify);
        Registry().InventoryOnNextList(next);
    }
};

TEST_F(InventoryTest, AnItemRunsOutOnTheSecondDayAfterItsPeriod) {
    const qint32 d0 = Product("Rice", "Acme", QDate(2026, 10, 23));  // 30 days ago: d = 0
    const qint32 d1 = Product("Oats", "Acme", QDate(2026, 10, 22));  // d = 1
    const qint32 d2 = Product("Flour", "Acme", QDate(2026, 10, 21));  // d = 2
    rows::Add("SpendHistory", {{"ItemID", d2}, {"ItemListCost", 2}, {"ItemListName", ""}});

    Registry().ConsiderInventoryEmpty(false);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(OnHand(), 3);

    // Both off: the stock goes, the catalogue row and its history stay.
    Expiry(false, false);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(OnHand(), 2);
    EXPECT_NE(Bought(d0), Bought(d2));
    EXPECT_EQ(Bought(d1), "10/22/2026");
    EXPECT_EQ(rows::Count("SELECT * FROM Product"), 3);
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 1);
}

TEST_F(InventoryTest, TheFourSettingsOfTheRunOutItem) {
    const qint32 old = Product("Tea", "O'Brien", QDate(2026, 1, 1));

    // Notify and next: nothing ever leaves.
    Expiry(true, true);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(OnHand(), 1);
    EXPECT_EQ(ui.count(), 0);

    // Notify only: the question, No only empties the stock.
    Expiry(true, false);
    ui.answer(Answer::No);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(LastBox(),
              "Move Item: Inventory for O'Brien's Tea is about to be removed.\r\nDo you want to move it to the next "
              "Shopping List or delete it?\r\n\r\nPress 'Yes' to move it to the next Shopping List, 'No' to delete "
              "it.");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::HelpButton);
    EXPECT_EQ(ui.lastBox().context, 1099);
    EXPECT_EQ(OnHand(), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);

    // Yes puts it on the list "Expired" as well.
    rows::Set("SELECT * FROM Product WHERE [ID] = " + QString::number(old), "LastPurchasedDate", QDate(2026, 1, 1));
    ui.answer(Answer::Yes);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(OnHand(), 0);
    EXPECT_EQ(rows::Joined("SELECT * FROM ShopList", {"Name", "ItemName", "ItemManufacturer", "ItemQuantity",
                                                      "ItemStyle", "IsCurrent"}),
              QStringList({"Expired|Tea|O'Brien|2|Pantry|True"}));

    // Next only: onto the list without a question, then the misspelled column
    // stops the walk in the error box, and the item stays on hand.
    rows::Set("SELECT * FROM Product WHERE [ID] = " + QString::number(old), "LastPurchasedDate", QDate(2026, 1, 1));
    Product("Jam", "Acme", QDate(2026, 1, 2));
    rows::Add("ShopList", {{"Name", "Other"}, {"ItemName", "x"}, {"IsCurrent", false}});
    Expiry(false, true);
    ui.answer(Answer::OK);
    modInventory::RemoveExpiredItems();
    EXPECT_EQ(ui.lastBox().title, "Error");
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Inventory.RemoveExpiredItems)"));
    EXPECT_EQ(OnHand(), 2);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Name] = 'Expired'"), 1);
}

TEST_F(InventoryTest, PurchasesOfTheCurrentListAreWrittenAndTheLinesGo) {
    const qint32 tea = Product("Tea", "O'Brien", QVariant(), {{"TimesPurchased", QVariant()}});
    const qint32 used = Coupon("Tea");
    const qint32 other = Coupon("Jam");
    Current("Tea", "O'Brien", {{"CouponID", used}, {"Dates", "2026-11-20"}});
    Current("Bread", "Nobody", {{"CouponID", other}, {"ItemQuantity", "2 loaves"}});
    const qint32 kept = Coupon("Milk");
    rows::Add("ShopList", {{"Name", "Later"}, {"ItemName", "Tea"}, {"ItemManufacturer", "O'Brien"},
                           {"IsCurrent", false}});

    modInventory::CreateInventory();
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(rows::Joined("SELECT * FROM Product WHERE [ID] = " + QString::number(tea),
                           {"TimesPurchased", "LastPurchasedDate", "lastpurchasedquantity"}),
              QStringList({"1|11/22/2026|4"}));
    EXPECT_EQ(rows::Joined("SELECT * FROM SpendHistory", {"ItemID", "ItemListCost", "ItemListDate", "ItemListName"}),
              QStringList({QString::number(tea) + "|1.25|11/20/2026|Week"}));
    // Each line's own coupon goes, a product on file or not; the list's others stay.
    EXPECT_EQ(rows::Column("SELECT * FROM Coupons", "ID"), QStringList({QString::number(kept)}));
    EXPECT_EQ(rows::Column("SELECT * FROM ShopList", "Name"), QStringList({"Later"}));

    // A second print finds nothing left to count.
    modInventory::CreateInventory();
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 1);
}

TEST_F(InventoryTest, GenericItemsAreNeverPurchases) {
    EXPECT_FALSE(modInventory::Generic("Water"));  // no file: nothing is generic
    Generic("Salt\r\nCold water\r\n");
    EXPECT_TRUE(modInventory::Generic("WATER"));
    EXPECT_FALSE(modInventory::Generic("Sea salt"));  // the item is looked for in the line

    Product("Water", "Acme", QVariant(), {{"Size", "1 l"}});
    Product("Water", "Acme", QVariant(), {{"Size", "5 l"}});
    Current("Water", "Acme");
    ui.answer(Answer::OK);
    ui.answer(Answer::OK);
    modInventory::CreateInventory();
    EXPECT_EQ(ui.prompts(), QStringList(2, "Water is marked as a 'Generic Item' and will not be added."));
    EXPECT_EQ(ui.lastBox().title, "Notice");
    EXPECT_EQ(OnHand(), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);
}

TEST_F(InventoryTest, RemovingFromInventoryLeavesTheSentinelDate) {
    const qint32 id = Product("Tea", "Acme", QDate(2026, 11, 1));
    EXPECT_TRUE(modInventory::RemoveFromInventory(id));
    EXPECT_EQ(Bought(id), "1/1/1950");
    EXPECT_EQ(OnHand(), 0);
    EXPECT_FALSE(modInventory::RemoveFromInventory(id + 100));
}

TEST_F(InventoryTest, TheScreenShowsFiltersAndSearchesWhatIsOnHand) {
    Registry().InventoryDays(3);
    const qint32 tea = Product("Tea", "O'Brien", QDate(2026, 11, 20), {{"lookout", true}});
    Product("Jam", "Acme", QDate(2026, 10, 1), {{"TimesPurchased", 12}});
    Product("Gone", "Acme", QDate(1950, 1, 1));
    frmProductInventory form;
    EXPECT_EQ(form.windowTitle(), "Current Inventory");
    form.lvInventory->sortByColumn(frmProductInventory::colName, Qt::AscendingOrder);
    EXPECT_EQ(views::Lines(form.lvInventory),
              QStringList({"Jam|Acme|    2|1 lb|10/01/2026|   12|Pantry", "Tea|O'Brien|    2|1 lb|11/20/2026|    3|Pantry"}));
    // e counts from the purchase to today plus the period: recent items warn.
    EXPECT_EQ(form.lvInventory->topLevelItem(1)->data(0, frmProductInventory::ImageKeyRole), "InventoryWarning");
    EXPECT_EQ(form.lvInventory->topLevelItem(0)->data(0, frmProductInventory::ImageKeyRole), "InventoryOK");

    form.cboSearch->setEditText("o'b");
    form.optManufacturers->setChecked(true);
    EXPECT_EQ(form.VisibleCount(), 1);
    form.cboSearch->setEditText("");

    // The filter: the last day counts whole; look-out and not-listed narrow it.
    form.dtpMinDate->setDate(QDate(2026, 11, 1));
    form.dtpMaxDate->setDate(QDate(2026, 11, 20));
    form.cmdApplyFilter_Click();
    EXPECT_EQ(form.lvInventory->topLevelItemCount(), 1);
    rows::Add("ShopList", {{"Name", "Week"}, {"ItemName", "Tea"}, {"ItemManufacturer", "O'Brien"}, {"ItemSize", "1 lb"}});
    form.chkNotOnShopList->setChecked(true);
    ui.answer(Answer::OK);
    form.cmdApplyFilter_Click();
    EXPECT_EQ(LastBox(), "Notice: No Items matched the Filter criteria, Please select again.");

    // Onto the list with its coupon, and out of the inventory when asked.
    form.chkNotOnShopList->setChecked(false);
    form.cmdApplyFilter_Click();
    const qint32 coupon = Coupon("Tea", "");
    rows::Set("SELECT * FROM Coupons", "Manufacturer", "O'Brien");
    form.lvInventory->setCurrentItem(form.lvInventory->topLevelItem(0));
    form.chkRemoveWhenListed->setChecked(true);
    ui.answer(Answer::Yes);
    form.mnuAddToShoppingList_Click();
    EXPECT_EQ(LastBox(), "Coupon Alert: There is a Coupon for this Item, Do you want to use it?");
    EXPECT_EQ(TextOf(rows::Field("Coupons", "ID", coupon, "OwnerList")), "Current");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList WHERE [Name] = 'From Inventory' AND [IsCurrent] = True"), 1);
    EXPECT_EQ(Bought(tea), "1/1/1950");
    EXPECT_EQ(form.lvInventory->topLevelItemCount(), 0);

    form.LoadInventory();
    form.lvInventory->setCurrentItem(form.lvInventory->topLevelItem(0));
    form.mnuRemoveItem_Click();
    EXPECT_EQ(OnHand(), 0);
    EXPECT_EQ(form.lvInventory->topLevelItemCount(), 0);
}

TEST_F(InventoryTest, ReportsAndCommandsReachTheScreens) {
    Product("Tea", "Acme", QDate(2026, 11, 20));
    Product("Flour", "Acme", QVariant());
    const QString sheet = rptInventory::Worksheet().ToText();
    EXPECT_TRUE(sheet.contains("Tea"));
    EXPECT_FALSE(sheet.contains("Flour"));
    EXPECT_TRUE(sheet.contains("On Hand"));

    CommandRegistry commands;
    ProductCommands::Register(commands);
    for (const char* key : {"mnuProductInventory", "mnuPrintInventoryReport", "mnuPrintInventoryWorkSheet",
                            "mnuSuggestUsingInventory"})
        EXPECT_TRUE(commands.Has(key)) << key;
    QString opened;
    ui.answerModal([&](QDialog* d) {
        opened = d->objectName() + ":" + QString::number(qobject_cast<frmProductInventory*>(d)->VisibleCount());
        return 0;
    });
    commands.Run("mnuProductInventory");
    EXPECT_EQ(opened, "frmProductInventory:1");
}

TEST_F(InventoryTest, SuggestionsScoreEachRecipeOnceForItsFirstMatch) {
    rows::Recipe("Plain Cake", "Cakes", "General", {{"Ingredient1", "2 cups flour"}, {"Ingredient2", "1 cup sugar"}});
    rows::Recipe("Loved Bread", "Breads", "General",
                 {{"Ingredient3", "3 cups Flour"}, {"Favorite", true}, {"TimesUsed", 7}});
    rows::Recipe("Salad", "Sides", "General", {{"Ingredient1", "lettuce"}});
    frmInventorySuggestions form;
    EXPECT_EQ(form.windowTitle(), "Recipe Suggestions Using Inventory");
    for (const char* item : {"sugar", "flour"}) {
        form.cboSingleItem->setEditText(item);
        form.cmdAddItem_Click();
    }
    form.GetIngredientSuggestions();
    EXPECT_EQ(views::Lines(form.lvRecipeList),
              QStringList({"4|Loved Bread|General|Breads|flour", "1|Plain Cake|General|Cakes|flour"}));
    EXPECT_EQ(form.lblStatus->text(), "Done.");

    // From the inventory: what is on hand is searched for, typed entry is off.
    Product("Lettuce", "Farm", QDate(2026, 11, 20));
    form.optSuggestFromInventory->click();
    EXPECT_FALSE(form.cboSingleItem->isEnabled());
    form.GetIngredientSuggestions();
    EXPECT_EQ(views::Lines(form.lvRecipeList), QStringList({"1|Salad|General|Sides|Lettuce"}));
}

}  // namespace
