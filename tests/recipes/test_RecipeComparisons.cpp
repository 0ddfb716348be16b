#include "recipes/RecipeComparisons.h"
#include "recipes/RecipeTestRows.h"
#include "support/TestEnv.h"

namespace {

class ComparisonsTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        RecipeComparisons::Instance().Clear();
    }
};

}  // namespace

TEST_F(ComparisonsTest, EachListedRecipeGetsItsDetailsLine) {
    RecipeRow chili = Recipe("Chili", "Soups,Quick", "Family");
    chili.course = "Main Course";
    chili.prep = "45 mins.";
    chili.servings = "6 Servings";
    chili.favorite = true;
    chili.timesUsed = 4;
    chili.instructions = QString("Brown~") + QString(200, QLatin1Char('x'));
    AddRecipe(chili);
    AddRecipe(Recipe("Mom's Toast", "Quick"));

    RecipeComparisons& list = RecipeComparisons::Instance();
    list.Add("Chili");
    list.Add("Gone");
    list.Add("Mom's Toast");
    const QList<RecipeComparisons::Entry> entries = list.Entries();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].details,
              "Style:Soups,Quick; Course: Main Course; Prep: 45 mins.; Serves: 6 Servings; Marked as Favorite; "
              "Cookbook: Family; Used: 4");
    EXPECT_EQ(entries[0].instructions.size(), RecipeComparisons::InstructionsShown + 3);
    EXPECT_TRUE(entries[0].instructions.endsWith("..."));
    EXPECT_EQ(entries[1].details, "Style:Quick; Course: ; Prep: Not Given; Serves: ; Cookbook: General; Used: 0");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(ComparisonsTest, RemovingTakesTheFirstEqualEntryOnly) {
    RecipeComparisons& list = RecipeComparisons::Instance();
    list.Add("A");
    list.Add("B");
    list.Add("A");
    EXPECT_TRUE(list.RemoveFirst("A"));
    EXPECT_EQ(list.Titles(), QStringList({"B", "A"}));
    EXPECT_FALSE(list.RemoveFirst("C"));
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
}
