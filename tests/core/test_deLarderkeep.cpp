#include "core/deLarderkeep.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

class ReportDataTest : public LarderTest {
protected:
    static void AddListItem(const QString& list, const QString& store, const QString& item, const QString& style,
                            bool current, int order = 0, const QString& isle = QString()) {
        rows::Add("ShopList", {{"Name", list},
                               {"Store", store},
                               {"ItemName", item},
                               {"ItemStyle", style},
                               {"ItemQuantity", "1"},
                               {"IsCurrent", current},
                               {"ShopOrder", order},
                               {"ShopIsle", isle}});
    }
};

TEST_F(ReportDataTest, StandardListGroupsOnlyCurrentItemsByCategory) {
    AddListItem("Week", "Corner", "Milk", "Dairy", true);
    AddListItem("Week", "Corner", "Bread", "Bakery", true);
    AddListItem("Old", "Corner", "Cheese", "Dairy", false);
    const Report report = deLarderkeep::ByName("rptStandard");
    EXPECT_EQ(report.Title(), "Standard List");
    EXPECT_EQ(report.RowCount(), 2);
    const QString text = report.ToText();
    EXPECT_LT(text.indexOf("Bakery"), text.indexOf("Dairy"));
    EXPECT_FALSE(text.contains("Cheese"));
    // The file is read even before the main connection opens.
    CloseDatabase();
    EXPECT_EQ(deLarderkeep::cmShoppingList().RowCount(), 2);
}

TEST_F(ReportDataTest, AisleReportKeepsTheWalkOrderAndQuotesTheStore) {
    AddListItem("Week", "Joe's", "Soap", "Household", true, 3, "9");
    AddListItem("Week", "Joe's", "Apples", "Produce", true, 1, "1");
    AddListItem("Week", "Joe's", "Milk", "Dairy", true, 2, "4");
    AddListItem("Week", "Other", "Tea", "Drinks", true, 1, "2");
    const QString text = deLarderkeep::cmShoplistByIsle("Joe's").ToText();
    EXPECT_LT(text.indexOf("Apples"), text.indexOf("Milk"));
    EXPECT_LT(text.indexOf("Milk"), text.indexOf("Soap"));
    EXPECT_FALSE(text.contains("Tea"));
}

TEST_F(ReportDataTest, InventoryHoldsOnlyProductsEverBought) {
    for (const auto& [name, bought] : QList<QPair<QString, QVariant>>{
             {"Flour", QDate(2026, 11, 1)}, {"Sugar", QDate(1949, 6, 1)}, {"Salt", QVariant()}}) {
        QVariantMap row{{"Name", name}, {"Manufacturer", "Acme"}, {"Category", "Baking"}, {"Cost", 2.5}};
        if (bought.isValid()) row.insert("LastPurchasedDate", bought);
        rows::Add("Product", row);
    }
    const Report report = deLarderkeep::cmInventory();
    EXPECT_EQ(report.RowCount(), 1);
    EXPECT_TRUE(report.ToText().contains("11/01/2026"));
    EXPECT_TRUE(report.ToText().contains("$2.50"));
}
