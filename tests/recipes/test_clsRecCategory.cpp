#include "core/MainPanes.h"
#include "recipes/clsRecCategory.h"
#include "support/RecipeTree.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QFont>

class RecCategoryTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        tree::Start({"Fish", "Quick"});
    }
};

TEST_F(RecCategoryTest, WriteNewAddsTheRowAndABoldCategoryNode) {
    clsRecCategory categories;
    EXPECT_FALSE(categories.Exists("Brunch"));
    EXPECT_TRUE(categories.WriteNew("Brunch"));
    EXPECT_TRUE(categories.Exists("Brunch"));
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.FindByKey(panes.recipes, "Brunch");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->parent()->data(MainPanes::KeyRole).toString(), "Root");
    EXPECT_EQ(node->data(MainPanes::TagRole).toString(), "RecipeCategory");
    EXPECT_TRUE(node->font().bold());
    EXPECT_FALSE(categories.Exists("Mom's"));  // nothing there, yet the quote is safe
}

TEST_F(RecCategoryTest, RemoveCategoryRewritesOnlyRecipesWhoseWholeListItIs) {
    rows::Recipe("Trout", "Fish");
    rows::Recipe("Fish Tacos", "Fish, Quick");
    rows::Recipe("Shrimp", "Shellfish");
    tree::AddRecipe("Fish", "Trout");
    tree::AddRecipe("Quick", "Fish", "Recipe");  // a recipe named like the category stays
    clsRecCategory categories;
    categories.RemoveCategory("Mom's");  // unknown or quoted: nothing changes
    categories.RemoveCategory("Nothing");
    EXPECT_EQ(tree::Lines(), QStringList({"Fish", "Quick", "Fish/Trout", "Quick/Fish"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Recipie ORDER BY [ID]", "Style"),
              QStringList({"Fish", "Fish, Quick", "Shellfish"}));

    categories.RemoveCategory("Fish");
    EXPECT_FALSE(categories.Exists("Fish"));
    EXPECT_TRUE(categories.Exists("Shellfish"));
    EXPECT_EQ(rows::Column("SELECT * FROM Recipie ORDER BY [ID]", "Style"),
              QStringList({"", "Fish, Quick", "Shellfish"}));
    EXPECT_EQ(tree::Lines(), QStringList({"Quick", "Quick/Fish"}));
    EXPECT_EQ(ui.count(), 0);
}
