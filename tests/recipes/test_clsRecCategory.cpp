#include "core/MainPanes.h"
#include "recipes/RecipeTestRows.h"
#include "recipes/clsRecCategory.h"
#include "support/TestEnv.h"

#include <QFont>

namespace {

class RecCategoryTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        StartRecipeTree({"Fish", "Quick"});
    }
};

}  // namespace

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
    AddRecipe(Recipe("Trout", "Fish"));
    AddRecipe(Recipe("Fish Tacos", "Fish, Quick"));
    AddRecipe(Recipe("Shrimp", "Shellfish"));
    AddRecipeNode("Fish", "Trout");
    AddRecipeNode("Quick", "Fish", "Recipe");  // a recipe named like the category stays

    clsRecCategory categories;
    categories.RemoveCategory("Fish");
    EXPECT_FALSE(categories.Exists("Fish"));
    EXPECT_TRUE(categories.Exists("Shellfish"));
    EXPECT_EQ(RecipeValue("Trout", "Style").toString(), "");
    EXPECT_EQ(RecipeValue("Fish Tacos", "Style").toString(), "Fish, Quick");
    EXPECT_EQ(RecipeValue("Shrimp", "Style").toString(), "Shellfish");
    EXPECT_EQ(TreeLines(), QStringList({"Quick", "Quick/Fish"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecCategoryTest, RemovingAnUnknownOrQuotedCategoryChangesNothingElse) {
    AddRecipe(Recipe("Trout", "Fish"));
    clsRecCategory categories;
    categories.RemoveCategory("Mom's");
    categories.RemoveCategory("Nothing");
    EXPECT_EQ(RecipeValue("Trout", "Style").toString(), "Fish");
    EXPECT_EQ(TreeLines(), QStringList({"Fish", "Quick"}));
    EXPECT_EQ(ui.count(), 0);
}
