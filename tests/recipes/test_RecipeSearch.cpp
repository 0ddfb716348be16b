#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "recipes/QuickSearchFile.h"
#include "recipes/RecipePane.h"
#include "recipes/frmRecipeList.h"
#include "recipes/frmRecipePreferences.h"
#include "recipes/frmRecipeSearch.h"
#include "recipes/frmRecipeSearchQuick.h"
#include "recipes/modSuggest.h"

#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QStandardItem>
#include <QTreeWidget>

namespace {

// A small household whose scores can be worked out by hand. The history's
// first row (Dinner, 4) is what every category match adds to the possible.
class SuggestTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        rows::Recipe("Toast", "Breakfast", "General", {{"TimesUsed", 3}, {"Ingredient1", "      2%%ea%%bread"}});
        rows::Recipe("Soup", "Lunch,Dinner", "General", {{"Instructions", "Simmer."}});
        rows::Recipe("Cake", "Desert", "General", {{"TimesUsed", 0}, {"Favorite", true}});
    }
    static void History() {
        rows::Add("History", {{"Category", "Dinner"}, {"TimesUsed", 4}});
        rows::Add("History", {{"Category", "Breakfast"}, {"TimesUsed", 2}});
    }
    // "title|score|reason" for each row shown, and whether the run said so.
    static QStringList Run(const QString& keywords, const QStringList& picked, bool limit, int percent,
                           bool favorites = false, bool used = false) {
        QTreeWidget list;
        bool result = false;
        GetSuggestions(&list, keywords, picked, limit, favorites, used, qint16(percent), result);
        QStringList out;
        for (int i = 0; i < list.topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = list.topLevelItem(i);
            out << row->text(0) + "|" + row->text(1) + "|" + row->text(2);
        }
        EXPECT_EQ(result, !out.isEmpty());
        return out;
    }
};

TEST_F(SuggestTest, UseAndHistoryScoresAreWorkedOutPerRecipe) {
    History();
    // Toast: used (1 of 2), Breakfast in the history: +2 hits, +4 possible -> 3/6.
    // Soup: Dinner in the history: 4/6, cut to 66. Cake: 0/2, not above 0.
    EXPECT_EQ(Run("", {}, false, 0),
              QStringList({"Toast|50| Used 3 times;1 Category matches with 4 uses.",
                           "Soup|66|1 Category matches with 4 uses."}));
    // Picking Dinner while limited: Toast is in no picked category and keeps
    // its use only (1/2); Soup gains a possible per category and a hit for
    // Dinner itself: 5/8.
    EXPECT_EQ(Run("", {"Dinner"}, true, 0),
              QStringList({"Toast|50| Used 3 times.", "Soup|62|1 Category matches with 4 uses."}));
    // Favourites only, then only recipes whose count is filled in.
    EXPECT_TRUE(Run("", {}, false, -1, true).join(",").startsWith("Cake|0|"));
    EXPECT_EQ(Run("", {}, false, -1, false, true).size(), 2);
}

TEST_F(SuggestTest, TheThresholdIsStrictAndAnEmptyHistoryCountsNothing) {
    EXPECT_EQ(Run("", {}, false, 50), QStringList());
    EXPECT_EQ(Run("", {}, false, 49), QStringList({"Toast|50| Used 3 times."}));
}

TEST_F(SuggestTest, EveryKeywordIsAHitUnlessItHoldsTheWholeRecipe) {
    rows::Recipe("Tea", "", "General");
    // "Tea" stands inside "green tea", so that keyword misses for Tea alone.
    const QStringList shown = Run("green tea,pie", {}, false, 0);
    EXPECT_TRUE(shown.contains("Tea|33|1 Keyword hits.")) << shown.join("\n").toStdString();
    EXPECT_TRUE(shown.contains("Cake|66|2 Keyword hits.")) << shown.join("\n").toStdString();
}

TEST_F(SuggestTest, AHistoryCountTooBigForTheCountersIsPassedOver) {
    rows::Add("History", {{"Category", "Dinner"}, {"TimesUsed", 40000}});
    // Soup's category match still counts, its hits and uses cannot take it.
    EXPECT_EQ(Run("", {}, false, -1),
              QStringList({"Toast|50| Used 3 times.", "Soup|0|1 Category matches with 0 uses.", "Cake|0|"}));
    EXPECT_EQ(ui.count(), 0);
}

class SearchTest : public LarderTest {};

TEST_F(SearchTest, TheConditionsMakeTheQueryAsWritten) {
    frmRecipeSearch f;
    f.cboField[0]->setCurrentText("Ingredients");
    f.cboOption[0]->setCurrentText("can contain");
    f.txtSearch[0]->setText("egg");
    QString expected = "SELECT * FROM Recipie WHERE ";
    for (int i = 1; i <= 18; ++i) expected += QString("[Ingredient%1]").arg(i) + (i < 18 ? " OR " : "");
    EXPECT_EQ(f.SearchText(), expected + " LIKE '%egg%'");

    f.cboOption[0]->setCurrentText("must not contain");
    f.cboField[2]->setCurrentText("Title");
    f.cboOption[2]->setCurrentText("must equal");
    f.txtSearch[2]->setText("Soup");
    f.chkFavoritesOnly->setChecked(true);
    f.chkUsedOnly->setChecked(true);
    const QString sql = f.SearchText();
    EXPECT_TRUE(sql.contains("[Ingredient17] AND [Ingredient18] <> '%egg%' AND [Title] ='Soup' AND [Favorite]"));
    EXPECT_TRUE(sql.endsWith("[Title] ='Soup' AND [Favorite] = True AND [TimesUsed] > 0"));
}

TEST_F(SearchTest, TheListShowsWhatTheQueryFindsAndReportsABrokenOne) {
    rows::Recipe("Plain Soup", "Soups", "Winter");
    rows::Recipe("Pea Soup", "Soups", "Winter", {{"Favorite", true}});
    rows::Recipe("Salad", "Salads", "Summer");
    frmRecipeList list;
    EXPECT_EQ(list.LoadByCookbook("Winter"), 2);
    EXPECT_EQ(list.lvRecipes->topLevelItem(0)->text(0), "Pea Soup");
    EXPECT_EQ(list.lvRecipes->topLevelItem(0)->data(0, Qt::UserRole).toString(), "Favorite");
    EXPECT_EQ(list.LoadByCategory("Salad"), 1);
    // The text is not quoted: an apostrophe ends the literal.
    ui.answer(Answer::OK);
    EXPECT_EQ(list.LoadRecipes("SELECT * FROM Recipie WHERE [Title] = 'Cook's'"), -1);
    EXPECT_TRUE(LastBox().endsWith("(Occurred in frmRecipeList.LoadRecipes)"));
}

TEST_F(SearchTest, QuickFindWalksTheTreeAndKeepsItsEntriesWhenAsked) {
    rows::Recipe("Pea Soup", "Soups");
    rows::Recipe("Tomato Soup", "Soups");
    rows::Recipe("Salad", "Salads");
    RecipePane::LoadRecipies();
    Registry().SaveQuickSearch(true);
    MainPanes& panes = MainPanes::Instance();
    {
        frmRecipeSearchQuick f;
        f.cboSearch->setEditText("soup");
        // The category "Soups" is no recipe and is passed by.
        ASSERT_TRUE(f.cmdFindNext_Click());
        EXPECT_EQ(panes.CurrentNode(panes.recipes)->text(), "Pea Soup");
        ASSERT_TRUE(f.cmdFindNext_Click());
        EXPECT_EQ(panes.CurrentNode(panes.recipes)->text(), "Tomato Soup");
        ui.answer(Answer::OK);
        EXPECT_FALSE(f.cmdFindNext_Click());
        EXPECT_EQ(LastBox(), "Larderkeep: No more entries for 'soup' were found.");
        f.chkMatch->setChecked(true);
        f.cboSearch->setEditText("Soup");
        ui.answer(Answer::OK);
        EXPECT_FALSE(f.cmdFindNext_Click());
        EXPECT_EQ(ui.lastBox().prompt, "'Soup' was not found.");
        f.optAll->setChecked(true);
        f.cboSearch->setEditText("Soups");
        ASSERT_TRUE(f.cmdFindNext_Click());
        EXPECT_EQ(panes.CurrentNode(panes.recipes)->text(), "Soups");
    }
    EXPECT_EQ(QuickSearchFile::Load(), QStringList({"soup", "Soup", "Soups"}));
    frmRecipeSearchQuick again;
    EXPECT_EQ(again.cboSearch->count(), 3);
}

TEST_F(SearchTest, PreferencesListTheUsedRecipesAndAClearedCountLeaves) {
    rows::Recipe("Stew", "Dinner", "General", {{"TimesUsed", 9}});
    rows::Recipe("Toast", "Breakfast", "General", {{"TimesUsed", 2}});
    rows::Recipe("Salad", "Lunch", "General", {{"TimesUsed", 0}});
    rows::Add("History", {{"Category", "Lunch"}, {"TimesUsed", 1}});
    rows::Add("History", {{"Category", "Dinner"}, {"TimesUsed", 5}});
    frmRecipePreferences f;
    ASSERT_EQ(f.lvFrequentRecipes->topLevelItemCount(), 2);
    EXPECT_EQ(f.lvFrequentRecipes->topLevelItem(0)->text(0), "Toast");
    EXPECT_EQ(f.lvFrequentCategories->topLevelItem(0)->text(0), "Dinner");
    f.lvFrequentRecipes->setCurrentItem(f.lvFrequentRecipes->topLevelItem(1));
    f.mnuClearUseCount_Click();
    ASSERT_EQ(f.lvFrequentRecipes->topLevelItemCount(), 1);
    EXPECT_EQ(f.lvFrequentRecipes->topLevelItem(0)->text(0), "Toast");
}

}  // namespace
