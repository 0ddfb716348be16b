#include "lists/clsShopList.h"
#include "recipes/RecipeTestRows.h"
#include "support/TestEnv.h"

namespace {

class ShopListTest : public LarderTest {
protected:
    void AddItem(const QString& item, const QString& style, const QString& source) {
        Recordset rs;
        rs.Open("SELECT * FROM ShopList", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("Name", "Weekly");
        rs.setField("ItemName", item);
        rs.setField("ItemStyle", style);
        rs.setField("ItemSource", source);
        rs.setField("IsCurrent", true);
        rs.Update();
    }
};

}  // namespace

TEST_F(ShopListTest, AdjustRecipeNameRewritesExactStylesAndEverySourceMention) {
    AddItem("beans", "Chili", "");
    AddItem("onion", "For Chili", "chili; CHILI night");
    AddItem("bread", "Bakery", "Sandwich");
    AddItem("corn", "chili", "Chili Dog");
    clsShopList list;
    list.AdjustRecipeName("Chili", "Texas Chili");
    EXPECT_EQ(Column("SELECT [ItemStyle] FROM ShopList ORDER BY [ID]", "ItemStyle"),
              QStringList({"Texas Chili", "For Chili", "Bakery", "Texas Chili"}));
    EXPECT_EQ(Column("SELECT [ItemSource] FROM ShopList ORDER BY [ID]", "ItemSource"),
              QStringList({"", "Texas Chili; Texas Chili night", "Sandwich", "Texas Chili Dog"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ShopListTest, AdjustRecipeNameWithQuotes) {
    AddItem("apples", "Mom's Pie", "for Mom's Pie");
    clsShopList list;
    list.AdjustRecipeName("Mom's Pie", "Grandma's \"Best\" Pie");
    EXPECT_EQ(Column("SELECT * FROM ShopList", "ItemStyle"), QStringList({"Grandma's \"Best\" Pie"}));
    EXPECT_EQ(Column("SELECT * FROM ShopList", "ItemSource"), QStringList({"for Grandma's \"Best\" Pie"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ShopListTest, ReadsComeFromTheRowWritesStayInTheObject) {
    AddItem("beans", "", "");
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
