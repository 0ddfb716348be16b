#include "lists/clsShopList.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class ShopListTest : public LarderTest {
protected:
    static void AddItem(const QString& item, const QString& style, const QString& source) {
        rows::Add("ShopList", {{"Name", "Weekly"},
                               {"ItemName", item},
                               {"ItemStyle", style},
                               {"ItemSource", source},
                               {"IsCurrent", true}});
    }
};

TEST_F(ShopListTest, AdjustRecipeNameRewritesExactStylesAndEverySourceMention) {
    AddItem("beans", "Chili", "");
    AddItem("onion", "For Chili", "chili; CHILI night");
    AddItem("bread", "Bakery", "Sandwich");
    AddItem("corn", "chili", "Chili Dog");
    AddItem("apples", "Mom's Pie", "for Mom's Pie");
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
