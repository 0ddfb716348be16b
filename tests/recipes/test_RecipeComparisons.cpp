#include "recipes/RecipeComparisons.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class ComparisonsTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        RecipeComparisons::Instance().Clear();
    }
};

TEST_F(ComparisonsTest, EachListedRecipeGetsItsDetailsLine) {
    rows::Recipe("Chili", "Soups,Quick", "Family",
                 {{"Course", "Main Course"},
                  {"PrepTime", "45 mins."},
                  {"Servings", "6 Servings"},
                  {"Favorite", true},
                  {"TimesUsed", 4},
                  {"Instructions", "Brown~" + QString(200, 'x')}});
    rows::Recipe("Mom's Toast", "Quick");
    RecipeComparisons& list = RecipeComparisons::Instance();
    for (const char* title : {"Chili", "Gone", "Mom's Toast"}) list.Add(title);
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
    for (const char* title : {"A", "B", "A"}) list.Add(title);
    EXPECT_TRUE(list.RemoveFirst("A"));
    EXPECT_EQ(list.Titles(), QStringList({"B", "A"}));
    EXPECT_FALSE(list.RemoveFirst("C"));
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
}
