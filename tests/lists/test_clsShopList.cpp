#include "lists/clsShopList.h"

#include "core/ChangeNotices.h"
#include "core/clsRegistry.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QSignalSpy>

class ShopListTest : public LarderTest {
protected:
    static qint32 Row(const QString& list, const QString& item, QVariantMap more = {}) {
        QVariantMap row{{"Name", list},      {"ItemName", item}, {"ItemQuantity", "2"},
                        {"ItemSize", "can"}, {"Store", "Any"},   {"ItemManufacturer", "Any"},
                        {"ItemStyle", ""},   {"ItemSource", ""}, {"IsCurrent", true},
                        {"CouponID", 0}};
        row.insert(more);
        return rows::Add("ShopList", row);
    }
    // Adds an item the way the editor and list generation do.
    static bool Add(const QString& list, const QString& item, const QString& quantity, const QString& size = "can",
                    const QString& source = "") {
        clsShopList shop;
        shop.Name(list);
        shop.ItemName(item);
        shop.ItemQuantity(quantity);
        shop.ItemSize(size);
        shop.ItemSource(source);
        shop.Store("Any");
        shop.IsCurrent(true);
        return shop.AddItem();
    }
    static QStringList Rows(const QStringList& fields, const QString& where = "1 = 1") {
        return rows::Joined("SELECT * FROM ShopList WHERE " + where + " ORDER BY [ID]", fields);
    }
    static void Chart(const QString& from, const QString& to, double constant) {
        rows::Add("Conversion",
                  {{"RowDescription", from}, {"ColumnDescription", to}, {"ConversionConstant", constant}});
    }
};

TEST_F(ShopListTest, AddingToAnItemOnTheListJoinsQuantitiesByTheLooseAdd) {
    Chart("crate", "tray", 0);
    struct Case {
        QString rowQuantity, rowSize, quantity, size, expected, box;
    } cases[] = {
        {"2", "can", "3", "can", "23, ", ""},
        {"2", "can", "1 1/2", "can", "21.5, ", ""},  // the fraction turns decimal first
        {"2", "can", "3 cans", "can", "5, ", ""},
        {"2", "can", "two", "can", "2, ", ""},
        {"2", "can", "", "can", "2, ", ""},
        {"2", "can", "1,5", "can", "21,5, ", ""},
        {"2", "can", "1/2", "can", "20, ", "Error: Subscript out of range (Occurred in Convert.FractionToDecimal)"},
        {"2", "tbsp", "1", "cup", "162, ", ""},  // 16 tbsp to the cup, joined before the row's
        {"2", "tub", "5", "sack", "2, ", ""},    // no chart row: the row's quantity stays
    };
    for (const Case& c : cases) {
        const QString item = "item " + c.quantity + " " + c.size;
        SCOPED_TRACE(item.toStdString());
        Row("Weekly", item, {{"ItemQuantity", c.rowQuantity}, {"ItemSize", c.rowSize}, {"ItemCost", 1.25}});
        if (!c.box.isEmpty()) ui.answer(Answer::OK);
        EXPECT_FALSE(Add("Weekly", item, c.quantity, c.size));
        EXPECT_EQ(Rows({"ItemQuantity", "ItemSize", "ItemCost"}, "[ItemName] = " + rows::Literal(item)),
                  QStringList{c.expected + "|" + c.rowSize + "|1.25"});
        EXPECT_EQ(ui.prompts(), c.box.isEmpty() ? QStringList() : QStringList{c.box});
        ui.clear();
    }
    // The source follows the merged quantity.
    Row("Weekly", "rice");
    Add("Weekly", "rice", "3", "can", "Chili");
    EXPECT_EQ(Rows({"ItemQuantity", "ItemSource"}, "[ItemName] = 'rice'"), QStringList{"23, Chili|"});
}

TEST_F(ShopListTest, QuantitiesThatCannotJoinStandAsASecondCurrentRow) {
    Chart("crate", "tray", 0);
    Row("Weekly", "eggs", {{"ItemSize", "tray"}, {"CouponID", 4}});
    clsShopList shop;
    shop.Name("Weekly");
    shop.ItemName("eggs");
    shop.ItemQuantity("1 1/2");
    shop.ItemSize("crate");
    shop.CouponID(9);
    shop.IsCurrent(false);
    EXPECT_TRUE(shop.AddItem());
    EXPECT_EQ(Rows({"ItemQuantity", "ItemSize", "IsCurrent", "Coupon"}),
              QStringList({"2|tray|True|False", "1.5|crate|True|False"}));
    EXPECT_EQ(rows::Column("SELECT [CouponID] FROM ShopList ORDER BY [ID]", "CouponID"), QStringList({"4", "<null>"}));

    // A row quantity that is no number cannot take "3 cans": the error is shown
    // and the new quantity keeps a row of its own.
    Row("Weekly", "flour", {{"ItemQuantity", "a few"}});
    ui.answer(Answer::OK);
    EXPECT_TRUE(Add("Weekly", "flour", "3 cans"));
    EXPECT_EQ(LastBox(), "Error: Error: Type mismatch (Occurred in ShopList.ClacQuantity)");
    EXPECT_EQ(Rows({"ItemQuantity"}, "[ItemName] = 'flour'"), QStringList({"a few", "3 cans"}));
}

TEST_F(ShopListTest, ASaveMergesOnlyIntoTheCurrentRowOfItsOwnList) {
    // Another list's current row of the item is never changed by this list's save.
    Row("Weekly", "milk");
    Row("Party", "milk", {{"ItemQuantity", "1"}, {"IsCurrent", false}});
    EXPECT_TRUE(Add("Party", "milk", "3"));
    EXPECT_EQ(Rows({"Name", "ItemQuantity", "IsCurrent"}),
              QStringList({"Weekly|2|True", "Party|1|False", "Party|3|True"}));

    // With both lists current, the save goes to its own list's row even when
    // another list's row comes first.
    EXPECT_FALSE(Add("Party", "milk", "4"));
    EXPECT_EQ(Rows({"Name", "ItemQuantity"}), QStringList({"Weekly|2", "Party|1", "Party|34, "}));
}

TEST_F(ShopListTest, ANewItemIsStoredWhole) {
    QSignalSpy reloads(&Notices(), &ChangeNotices::LoadShoppingList);
    clsShopList shop;
    shop.Name("Weekly");
    shop.ItemName(QString(60, 'x'));
    shop.ItemQuantity("1");
    shop.ItemCost(Currency::fromRaw(12500));
    shop.ItemCoupon(true);
    shop.CouponID(7);
    EXPECT_TRUE(shop.AddItem());
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_EQ(Rows({"Name", "ItemName", "ItemCost", "Coupon", "CouponID", "IsCurrent"}),
              QStringList{"Weekly|" + QString(50, 'x') + "|1.25|True|7|False"});
    // Members never set are stored as empty texts.
    for (const QString column :
         {"Store", "Dates", "ItemManufacturer", "ItemSize", "ItemStyle", "Recurring", "ItemSource"})
        EXPECT_EQ(rows::Column("SELECT * FROM ShopList", column), QStringList{""}) << column.toStdString();
}

TEST_F(ShopListTest, AwkwardListNamesAddMergeAndDeleteLikeAnyOther) {
    const QStringList names = {"Mom's List", "Say \"Cheese\"", "Meal::Sunday", QString(200, 'L')};
    Row("Keep", "bread");
    for (const QString& name : names) {
        EXPECT_TRUE(Add(name, "Joe's beans", "2"));
        EXPECT_FALSE(Add(name, "Joe's beans", "3"));
    }
    EXPECT_EQ(Rows({"ItemQuantity"}, "[ItemName] = 'Joe''s beans'"), QStringList({"23, ", "23, ", "23, ", "23, "}));

    // Exists doubles the caller's apostrophes and so never finds such a name.
    clsShopList shop;
    for (QString name : names) EXPECT_EQ(shop.Exists(name), !name.contains('\'')) << name.toStdString();
    QString asked = "Mom's List";
    EXPECT_FALSE(shop.Exists(asked));
    EXPECT_EQ(asked, "Mom''s List");

    for (const QString& name : names) {
        shop.Name(name);
        EXPECT_TRUE(shop.DeleteList());
    }
    EXPECT_EQ(Rows({"Name"}), QStringList{"Keep"});
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ShopListTest, MakeCurrentMarksAislesAndRemoveAllCurrentKeepsTheRows) {
    rows::Add("IsleMap", {{"Store", "Aldi"}, {"ItemCategory", "Dairy"}, {"Isle", "3"}, {"IsleOrder", 2}});
    Row("Weekly", "milk", {{"ItemStyle", "Dairy"}});
    Row("Party", "cheese", {{"ItemStyle", "Dairy"}, {"IsCurrent", false}});
    Row("Party", "kite", {{"ItemStyle", "Toys"}, {"IsCurrent", false}});
    const QStringList fields = {"Name", "IsCurrent", "ShopOrder", "ShopIsle"};
    const QStringList before = Rows(fields);
    clsShopList shop;
    shop.MakeCurrent("", "");
    EXPECT_EQ(Rows(fields), before);
    shop.RemoveAllCurrent();
    shop.MakeCurrent("Party", "Aldi");
    EXPECT_EQ(Rows(fields), QStringList({"Weekly|False|0|", "Party|True|2|3", "Party|True|0|Not Given"}));
    for (int twice = 0; twice < 2; ++twice) {  // the second finds nothing current
        shop.RemoveAllCurrent();
        EXPECT_EQ(Rows(fields), QStringList({"Weekly|False|0|", "Party|False|0|", "Party|False|0|"}));
    }
}

TEST_F(ShopListTest, TheDefaultListFollowsADeleteButNotARename) {
    Row("Weekly", "milk");
    Row("Party", "chips");
    Registry().CurrentShoppingList("Weekly");
    clsShopList shop;
    EXPECT_TRUE(shop.RenameList("Weekly", "Monthly"));
    EXPECT_EQ(Registry().CurrentShoppingList(), "Weekly");
    shop.Name("Monthly");
    EXPECT_TRUE(shop.DeleteList());
    EXPECT_EQ(Registry().CurrentShoppingList(), "Weekly");

    Registry().CurrentShoppingList("Party");
    shop.ClearPreviousList("Party");
    EXPECT_EQ(Registry().CurrentShoppingList(), "Party");
    Row("Party", "dip");
    shop.Name("Party");
    shop.DeleteList();
    EXPECT_EQ(Registry().CurrentShoppingList(), "");
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);
}

TEST_F(ShopListTest, MissingCategoriesAreLookedUpForEachRowsOwnStore) {
    rows::Add("IsleMap", {{"Store", "Aldi"}, {"ItemCategory", "Dairy"}, {"Isle", "3"}, {"IsleOrder", 2}});
    rows::Add("IsleMap", {{"Store", "Aldi"}, {"ItemCategory", "Bakery"}, {"Isle", "1"}, {"IsleOrder", 1}});
    Row("Weekly", "milk", {{"ItemStyle", "Dairy"}, {"Store", "Aldi"}});
    Row("Weekly", "kite", {{"ItemStyle", "Toys"}, {"Store", "Aldi"}});
    Row("Weekly", "ball", {{"ItemStyle", "Toys"}, {"Store", "Aldi"}});
    Row("Weekly", "bread", {{"ItemStyle", "Bakery"}, {"Store", "Kroger"}});
    Row("Old", "glue", {{"ItemStyle", "Crafts"}, {"IsCurrent", false}});
    EXPECT_EQ(clsShopList().AllCategoriesNotMapped("Aldi"), "Toys//Bakery");
    EXPECT_TRUE(clsShopList().ContainsMultipleStores("", ""));
}

TEST_F(ShopListTest, MarkingForAStoreAsksAboutStoreBrandsAndKeepsCoupons) {
    rows::Add("Manufacturer", {{"Name", "Aldi"}});
    rows::Add("Manufacturer", {{"Name", "Kroger Value"}});
    const qint32 coupon = rows::Add("Coupons", {{"Manufacturer", "Aldi"}, {"Product", "rice"}});
    Row("Weekly", "beans", {{"Store", "Aldi"}, {"ItemManufacturer", "Aldi"}});
    Row("Weekly", "corn", {{"ItemManufacturer", "Green Giant"}, {"CouponID", QVariant()}});
    Row("Weekly", "rice", {{"Store", "Aldi"}, {"ItemManufacturer", "Aldi"}, {"CouponID", coupon}});
    Row("Old", "apples", {{"IsCurrent", false}});
    const QStringList fields = {"ItemName", "Store", "ItemManufacturer", "CouponID"};
    const QString notice = "Aldi's rice has a Store Coupon that will be released to be used by another Shopping List.";
    QSignalSpy reloads(&Notices(), &ChangeNotices::LoadShoppingList);

    ui.answer(Answer::Yes);
    ui.answer(Answer::No);
    ui.answer(Answer::OK);
    EXPECT_TRUE(clsShopList().MarkListForStore("Safeway", ""));
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_EQ(ui.prompts(),
              QStringList({"The manufacturer of beans is Aldi which appears to be a Store brand. Would you like to "
                           "convert it to Safeway's brand? ",
                           "The manufacturer of rice is Aldi which appears to be a Store brand. Would you like to "
                           "convert it to Safeway's brand? ",
                           notice}));
    EXPECT_EQ(ui.boxes()[0].title, "Convert Item");
    EXPECT_EQ(Rows(fields), QStringList({"beans|Safeway|Safeway|0", "corn|Safeway|Green Giant|",
                                         "rice|Aldi|Aldi|" + QString::number(coupon), "apples|Any|Any|0"}));

    // A target that is itself a brand asks the other question; the coupon
    // check still looks at the store the row had.
    ui.clear();
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    clsShopList().MarkListForStore("Kroger", "");
    EXPECT_EQ(ui.prompts(), QStringList({"The manufacturer of rice is Aldi which appears to be a Store brand. "
                                         "Krogeris not a Store brand. Would you like to convert it anyway? ",
                                         notice}));
    EXPECT_EQ(Rows(fields, "[ItemName] = 'rice'"), QStringList{"rice|Kroger|Kroger|" + QString::number(coupon)});
}

TEST_F(ShopListTest, LoadListComparesTheColumnNameAsText) {
    Row("Weekly", "milk");
    clsShopList shop;
    shop.LoadList("Name", "Weekly");
    EXPECT_TRUE(shop.dbEOF());
    shop.LoadList("Weekly ", "Weekly");
    EXPECT_EQ(shop.ItemName(), "milk");
    shop.CloseDB();
}

TEST_F(ShopListTest, AdjustRecipeNameRewritesExactStylesAndEverySourceMention) {
    Row("Weekly", "beans", {{"ItemStyle", "Chili"}});
    Row("Weekly", "onion", {{"ItemStyle", "For Chili"}, {"ItemSource", "chili; CHILI night"}});
    Row("Weekly", "bread", {{"ItemStyle", "Bakery"}, {"ItemSource", "Sandwich"}});
    Row("Weekly", "corn", {{"ItemStyle", "chili"}, {"ItemSource", "Chili Dog"}});
    Row("Weekly", "apples", {{"ItemStyle", "Mom's Pie"}, {"ItemSource", "for Mom's Pie"}});
    clsShopList list;
    list.AdjustRecipeName("Chili", "Texas Chili");
    list.AdjustRecipeName("Mom's Pie", "Grandma's \"Best\" Pie");
    EXPECT_EQ(rows::Column("SELECT [ItemStyle] FROM ShopList ORDER BY [ID]", "ItemStyle"),
              QStringList({"Texas Chili", "For Chili", "Bakery", "Texas Chili", "Grandma's \"Best\" Pie"}));
    EXPECT_EQ(rows::Column("SELECT [ItemSource] FROM ShopList ORDER BY [ID]", "ItemSource"),
              QStringList(
                  {"", "Texas Chili; Texas Chili night", "Sandwich", "Texas Chili Dog", "for Grandma's \"Best\" Pie"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ShopListTest, ReadsComeFromTheRowWritesStayInTheObject) {
    Row("Weekly", "beans", {{"ItemStyle", QVariant()}});
    clsShopList list;
    list.OpenDB("SELECT * FROM ShopList", adOpenKeyset, adLockReadOnly);
    list.ItemName("peas");
    EXPECT_EQ(list.ItemName(), "beans");
    EXPECT_EQ(list.Name(), "Weekly");
    EXPECT_TRUE(list.IsCurrent());
    EXPECT_EQ(list.ItemStyle(), "");
    EXPECT_GT(list.ItemID(), 0);
    list.CloseDB();
}
