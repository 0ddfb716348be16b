#include "products/clsProduct.h"
#include "products/clsSpendHistory.h"

#include "core/Dates.h"
#include "core/clsRegistry.h"
#include "products/ProductEvents.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QFile>

class ProductTest : public LarderTest {
protected:
    qint32 Product(const QString& name, const QString& maker, const QString& size, const QVariant& bought = {}) {
        QVariantMap row{{"Name", name}, {"Manufacturer", maker}, {"Size", size}, {"Category", "Dairy"}};
        if (bought.isValid()) row.insert("LastPurchasedDate", bought);
        return rows::Add("Product", row);
    }
    void History(qint32 item, const QString& store, const QString& cost, const QString& date = "11/01/2026") {
        rows::Add("SpendHistory",
                  {{"ItemID", item}, {"ItemStore", store}, {"ItemListCost", cost}, {"ItemListDate", date}});
    }
};

TEST_F(ProductTest, WriteNewStoresTheRowRaisesItsEventAndPlacesItInInventoryOnRequest) {
    QList<int> events;
    QObject listener;
    QObject::connect(&ProductEvents::Instance(), &ProductEvents::ProductEvent, &listener, [&](int n) { events << n; });
    clsProduct product;
    const qint32 plain =
        product.WriteNew("Ben's", "Rice \"Long\"", "Pasta", "2 lb", true, false, Currency::fromDouble(1.25), "0");
    const qint32 stocked = product.WriteNew("Any", "Milk", "Dairy", "1 gal", false, true, Currency(), "0");
    EXPECT_GT(stocked, plain);
    EXPECT_EQ(events, QList<int>({1, 1}));
    product.OpenDB("SELECT * FROM Product ORDER BY [ID]", adOpenKeyset, adLockReadOnly);
    EXPECT_EQ(product.Name(), "Rice \"Long\"");
    EXPECT_TRUE(product.IsLookout());
    EXPECT_EQ(product.Cost(), Currency::fromDouble(1.25));
    EXPECT_EQ(product.LastPurchasedDate(), QDateTime(QDate(1899, 12, 30), QTime()));  // never set
    product.MoveNext();
    EXPECT_EQ(product.LastPurchasedDate().date(), QDate(2026, 11, 22));
    EXPECT_EQ(product.LastPurchaseQty(), 1);
    // A setter fills the member only; the read still comes from the row.
    product.Name("Something else");
    EXPECT_EQ(product.Name(), "Milk");
}

TEST_F(ProductTest, AGivenSizeReplacesTheManufacturerInTheExistenceTest) {
    Product("Oats", "Quaker", "18 oz");
    clsProduct product;
    // A size given means the maker is not asked.
    EXPECT_EQ(QList<bool>({product.Exists("Oats", "Kellogg", "18 oz"), product.Exists("Oats", "Quaker", "42 oz"),
                           product.Exists("Oats", "Quaker", ""), product.Exists("Oats", "Kellogg", ""),
                           product.Exists("Oats", "", ""), product.Exists("O'Brien's \"Oats\"", "O'Brien", "")}),
              QList<bool>({true, false, true, false, true, false}));
    EXPECT_EQ(QList<qint32>({product.GetItemID("Oats", "Quaker", ""), product.GetItemID("Oats", "Quaker", "18 oz"),
                             product.GetItemID("Oats", "Kellogg", "")}),
              QList<qint32>({1, 1, -1}));
    product.ChangeCost("Oats", "Quaker", "18 oz", Currency::fromDouble(3.49));
    EXPECT_EQ(product.CostInfo("Oats", "Quaker", "18 oz"), Currency::fromDouble(3.49));
    EXPECT_EQ(product.CostInfo("Oats", "Quaker", "1 oz"), Currency());
    EXPECT_TRUE(product.UpdatePalmCost(1, Currency::fromDouble(2.99)));
    EXPECT_FALSE(product.UpdatePalmCost(99, Currency::fromDouble(2.99)));
}

TEST_F(ProductTest, AddingToInventoryAsksAboutAnItemOnHandAndIgnoresSharedNames) {
    Registry().InventoryDays(10);
    Product("Butter", "Land O'Lakes", "1 lb", QDate(2026, 11, 12));
    Product("Flour", "Any", "5 lb", "1/1/50");
    Product("Salt", "Morton", "1 lb");
    Product("Salt", "Any", "2 lb");
    clsProduct product;

    ui.answer(Answer::No);
    product.AddToInventory("Butter");
    // From the purchase to ten days after today: the figure grows with age.
    EXPECT_EQ(LastBox(),
              "Add Item: That Item is already in Inventory but will be marked as empty in20 days.\r\n"
              "Would you still like to add this Item to Inventory?");
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Butter'", "LastPurchasedDate")[0].left(10),
              "11/12/2026");
    ui.answer(Answer::Yes);
    product.AddToInventory("Butter");
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Butter'", "LastPurchasedDate")[0].left(10),
              "11/22/2026");

    product.AddToInventory("Flour");  // the sentinel: not on hand, no question
    EXPECT_EQ(rows::Column("SELECT * FROM Product WHERE [Name] = 'Flour'", "LastPurchasedDate")[0].left(10),
              "11/22/2026");
    product.AddToInventory("Salt");  // two products of the name: nothing
    EXPECT_EQ(rows::Count("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50# AND [Name] = 'Salt'"), 0);
}

TEST_F(ProductTest, PossibleInventoryEndsOnTheLastDayOfThePeriod) {
    Registry().InventoryDays(7);
    Product("Eggs", "Any", "dozen", QDate(2026, 11, 15));  // d = 0
    Product("Milk", "Any", "1 gal", QDate(2026, 11, 16));  // d = 1
    Product("Tea", "Any", "box", "1/1/50");
    Product("Jam", "Any", "jar");
    clsProduct product;
    auto possible = [&](const QString& name, const QString& size) {
        product.Name(name);
        product.Manufacturer("Any");
        product.Size(size);
        return product.HasPossibleInventory();
    };
    EXPECT_EQ(QList<bool>({possible("Eggs", "dozen"), possible("Milk", "1 gal"), possible("Tea", "box"),
                           possible("Jam", "jar"), possible("Milk", "2 gal")}),
              QList<bool>({false, true, false, false, false}));
}

TEST_F(ProductTest, PricePointsCountOnlyHistoryWithAStoreAndACost) {
    const qint32 a = Product("Coffee", "Folgers", "1 lb");
    const qint32 b = Product("Coffee", "Maxwell", "1 lb");
    History(a, "Aldi", "4.99");
    History(a, "", "5.49");
    History(b, "Lidl", "0");
    clsProduct product;
    EXPECT_FALSE(product.MultiplePricePoints("Coffee"));
    History(b, "Lidl", "4.99");  // the same price again is a second point
    EXPECT_TRUE(product.MultiplePricePoints("Coffee"));
    EXPECT_FALSE(product.MultiplePricePoints("Tea"));
}

TEST_F(ProductTest, DeletingAsksAboutOldHistoryAndListsAndRaisesItsEvent) {
    Registry().CostHistoryMonths(3);
    const qint32 old = Product("Cocoa", "Any", "tin");
    History(old, "Aldi", "2.00", "01/05/2026");
    History(old, "Aldi", "2.10", "11/01/2026");
    QList<int> events;
    QObject listener;
    QObject::connect(&ProductEvents::Instance(), &ProductEvents::ProductEvent, &listener, [&](int n) { events << n; });
    clsProduct product;

    ui.answer(Answer::No);
    product.Delete("Cocoa");
    EXPECT_EQ(LastBox(),
              "Delete Product: That Product has a Cost History, are you certain that you wish to delete it?");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo + Box::Question + Box::DefaultButton2);
    EXPECT_EQ(rows::Count("SELECT * FROM Product"), 1);

    ui.answer(Answer::Yes);
    product.Delete("Cocoa");
    EXPECT_EQ(rows::Count("SELECT * FROM Product"), 0);
    EXPECT_EQ(rows::Column("SELECT * FROM SpendHistory", "ItemListCost"), QStringList({"2.1"}));  // recent stays
    EXPECT_EQ(events, QList<int>({2}));

    // Recent history only: no question. On a list: the list is asked about.
    const qint32 tea = Product("Tea", "Any", "box");
    History(tea, "Aldi", "3.00", "11/20/2026");
    rows::Add("ShopList", {{"Name", "Week's"}, {"ItemName", "Tea"}});
    ui.answer(Answer::No);
    product.Delete("Tea");
    EXPECT_EQ(ui.count(), 3);
    EXPECT_EQ(LastBox(), "Confirm Delete: Tea is on the Week's Shopping List. Do you still wish to delete it?");
    EXPECT_EQ(rows::Count("SELECT * FROM Product"), 1);
    ui.answer(Answer::Yes);
    product.Delete("Tea");
    EXPECT_EQ(rows::Count("SELECT * FROM Product"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM ShopList"), 0);
}

TEST_F(ProductTest, TheCatalogueFileQuotesEveryFieldAndIsNotWrittenEmpty) {
    clsProduct product;
    ui.answer(Answer::OK);
    product.ExportList();
    EXPECT_EQ(ui.lastBox().prompt, "There are not Products to export.");
    EXPECT_FALSE(QFile::exists(clsProduct::ExportFile()));

    rows::Add("Product",
              {{"Manufacturer", "Ben's"}, {"Name", "Rice, \"Long\""}, {"Size", "2 lb"}, {"Category", "Pasta"}});
    rows::Add("Product", {{"Manufacturer", "Any"}, {"Name", "Milk"}});
    product.ExportList();
    QFile f(clsProduct::ExportFile());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(),
              QByteArray("\"Ben's\",\"Rice, \"\"Long\"\"\",\"2 lb\",\"Pasta\"\r\n\"Any\",\"Milk\",\"\",\"\"\r\n"));
    f.close();

    ui.answer(Answer::No);
    product.ExportList();
    EXPECT_EQ(LastBox(), "Over-Write: There is a previous Product List file, Overwrite it?");
    EXPECT_TRUE(QFile::exists(clsProduct::ExportFile()));

    // A target that cannot be written is reported, not taken for done.
    ASSERT_TRUE(QFile::remove(clsProduct::ExportFile()));
    ASSERT_TRUE(QDir().mkpath(clsProduct::ExportFile()));
    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    product.ExportList();
    EXPECT_TRUE(ui.lastBox().prompt.contains("Path/File access error")) << ui.lastBox().prompt.toStdString();
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurring in Product.ExportList)")) << ui.lastBox().prompt.toStdString();
}

TEST_F(ProductTest, CostTextsAcceptADollarSignAndRefuseTheRest) {
    const std::pair<const char*, Currency> costs[] = {{"$1.25", Currency::fromDouble(1.25)},
                                                      {" 3 ", Currency(3)},
                                                      {"", Currency()},
                                                      {"-5", Currency(-5)},
                                                      {"$", Currency()}};
    for (const auto& [text, cost] : costs) EXPECT_EQ(clsProduct::CostFromText(text), cost) << text;
    EXPECT_FALSE(clsProduct::CostFromText("1.2.3"));
    EXPECT_FALSE(clsProduct::CostFromText("abc"));
}

TEST_F(ProductTest, PurgingHistoryKeepsTheKeptMonthsOnly) {
    History(1, "Aldi", "1", "08/21/2026");
    History(1, "Aldi", "2", "08/22/2026");
    History(2, "Aldi", "3", "11/21/2026");
    Registry().CostHistoryMonths(3);
    bool done = false;
    clsSpendHistory().PurgeExpired(0, 0, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(rows::Column("SELECT * FROM SpendHistory", "ItemListCost"), QStringList({"2", "3"}));

    Registry().CostHistoryMonths(0);  // today is the cut-off
    clsSpendHistory().PurgeExpired(0, 2, done);
    EXPECT_EQ(rows::Column("SELECT * FROM SpendHistory", "ItemListCost"), QStringList({"2"}));

    clsSpendHistory history;
    history.ItemListName("Week");
    EXPECT_FALSE(history.ListExists("Week"));
    history.ItemID(5);
    history.ItemListCost(Currency::fromDouble(1.5));
    history.ItemStore("Lidl");
    history.AddRecord();
    EXPECT_TRUE(history.ListExists("Week"));
    const qint32 id = rows::Column("SELECT * FROM SpendHistory WHERE [ItemID] = 5", "SpendID")[0].toInt();
    history.UpdateItemStore(id, "O'Hare Mart");
    history.FinalizeUpdate(id, "Month");
    EXPECT_EQ(rows::Column("SELECT * FROM SpendHistory WHERE [ItemID] = 5", "ItemStore"), QStringList({"O'Hare Mart"}));
    EXPECT_FALSE(history.ListExists("Week"));
    history.DeleteID(id);
    EXPECT_EQ(rows::Count("SELECT * FROM SpendHistory WHERE [ItemID] = 5"), 0);
}
