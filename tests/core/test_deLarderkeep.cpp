#include "core/deLarderkeep.h"

#include "core/Globals.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

namespace {

class ReportDataTest : public LarderTest {
protected:
    void AddListItem(const QString& list, const QString& store, const QString& item, const QString& style,
                     bool current, int order = 0, const QString& isle = QString()) {
        Recordset rs;
        rs.Open("SELECT * FROM ShopList", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Name", list);
        rs.setField("Store", store);
        rs.setField("ItemName", item);
        rs.setField("ItemStyle", style);
        rs.setField("ItemQuantity", "1");
        rs.setField("IsCurrent", current);
        rs.setField("ShopOrder", order);
        rs.setField("ShopIsle", isle);
        rs.Update();
    }
    void AddProduct(const QString& name, const QString& category, const QVariant& bought) {
        Recordset rs;
        rs.Open("SELECT * FROM Product", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Name", name);
        rs.setField("Manufacturer", "Acme");
        rs.setField("Category", category);
        rs.setField("Cost", 2.5);
        if (bought.isValid()) rs.setField("LastPurchasedDate", bought);
        rs.Update();
    }
};

}  // namespace

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
    AddProduct("Flour", "Baking", QDate(2026, 11, 1));
    AddProduct("Sugar", "Baking", QDate(1949, 6, 1));
    AddProduct("Salt", "Spices", QVariant());
    const Report report = deLarderkeep::cmInventory();
    EXPECT_EQ(report.RowCount(), 1);
    EXPECT_TRUE(report.ToText().contains("11/01/2026"));
    EXPECT_TRUE(report.ToText().contains("$2.50"));
}

TEST_F(ReportDataTest, ReportsReadTheFileEvenBeforeTheMainConnectionOpens) {
    AddListItem("Week", "Corner", "Milk", "Dairy", true);
    CloseDatabase();
    EXPECT_EQ(deLarderkeep::cmShoppingList().RowCount(), 1);
}
