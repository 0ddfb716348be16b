#include "core/Globals.h"
#include "core/MainPanes.h"
#include "platform/RuntimeError.h"
#include "recipes/RecipeComparisons.h"
#include "recipes/RecipeTestRows.h"
#include "recipes/clsRecipies.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QImage>

namespace {

class RecipiesTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        StartRecipeTree({"Desserts", "Fish", "Quick", "Soups"});
        RecipeComparisons::Instance().Clear();
    }

    void ExpectError(const QString& description, const QString& label) {
        ASSERT_GE(ui.count(), 1);
        EXPECT_EQ(ui.lastBox().prompt, "Error: " + description + " (Occurred in " + label + ")");
        EXPECT_EQ(ui.lastBox().title, "Error");
    }

    // An error box whose description comes from the database engine.
    void ExpectEngineError(const QString& label) {
        ASSERT_GE(ui.count(), 1);
        EXPECT_TRUE(ui.lastBox().prompt.startsWith("Error: ")) << ui.lastBox().prompt.toStdString();
        EXPECT_TRUE(ui.lastBox().prompt.endsWith(" (Occurred in " + label + ")")) << ui.lastBox().prompt.toStdString();
        EXPECT_EQ(ui.lastBox().title, "Error");
    }
};

const QString kApostrophe = QStringLiteral("Mom's Apple Pie");

}  // namespace

// --- quoting ------------------------------------------------------------------

TEST_F(RecipiesTest, AnApostropheTitleIsFoundByTheSingleQuotingFamilyOnly) {
    RecipeRow pie = Recipe(kApostrophe, "Desserts", "Grandma's");
    pie.timesUsed = 3;
    AddRecipe(pie);
    clsRecipies r;

    QString title = kApostrophe;
    EXPECT_EQ(r.GetCookbookName(title), "Grandma's");
    EXPECT_EQ(title, kApostrophe);  // the single family leaves the caller's text alone
    r.SetRecipeImage(title, "/pictures/pie.jpg");
    EXPECT_EQ(r.GetRecipeImage(title), "/pictures/pie.jpg");
    EXPECT_EQ(title, kApostrophe);
    EXPECT_EQ(r.SelectCount("General"), 0);

    EXPECT_FALSE(r.Exists(title));
    EXPECT_EQ(title, "Mom''s Apple Pie");  // doubled in place, and stays so

    title = kApostrophe;
    r.UpdateTimesUsed(title);
    EXPECT_EQ(title, "Mom''s Apple Pie");
    EXPECT_EQ(RecipeValue(kApostrophe, "TimesUsed").toInt(), 3);

    title = kApostrophe;
    r.ClearUses(title);
    EXPECT_EQ(RecipeValue(kApostrophe, "TimesUsed").toInt(), 3);

    // Not found counts as a missing row, which GetUses reports.
    title = kApostrophe;
    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses(title), 0);
    ExpectError(Err::NoCurrentRecord, "Recipe.GetUses");

    QString cookbook = "Grandma's";
    EXPECT_EQ(r.FavoriteCount(cookbook), 0);
    EXPECT_EQ(cookbook, "Grandma''s");
    cookbook = "Grandma's";
    r.ClearCookbookName(cookbook);
    EXPECT_EQ(RecipeValue(kApostrophe, "CookbookName").toString(), "Grandma's");
    cookbook = "Grandma's";
    EXPECT_EQ(r.NewCookbookName(cookbook, "Family"), "Family");
    EXPECT_EQ(cookbook, "Grandma''s");
    EXPECT_EQ(RecipeValue(kApostrophe, "CookbookName").toString(), "Grandma's");

    // The same calls on a plain title do their work.
    AddRecipe(Recipe("Plain Pie", "Desserts", "Family"));
    EXPECT_TRUE(r.Exists(QStringLiteral("Plain Pie")));
    EXPECT_EQ(r.FavoriteCount(QStringLiteral("Family")), 1);
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(RecipiesTest, TitlesAndNamesWithQuotesNeverBreakTheProgram) {
    const QString quoted = "The \"Best\" Chili";
    AddRecipe(Recipe(quoted, "Soups"));
    AddRecipe(Recipe("Joe's \"Famous\" Stew", "Soups", "Joe's \"Own\""));
    clsRecipies r;
    EXPECT_TRUE(r.Exists(quoted));
    EXPECT_EQ(r.GetCookbookName(quoted), "General");
    EXPECT_TRUE(r.Display(quoted).startsWith("Categories: Soups"));
    r.UpdateTimesUsed(quoted);
    EXPECT_EQ(r.GetUses(quoted), 1);

    // The cookbook count quotes with double quotes, which a name holding one
    // breaks: that is an error report and 0, not a failure.
    ui.answer(Answer::OK);
    EXPECT_EQ(r.SelectCount("Joe's \"Own\""), 0);
    ExpectEngineError("Recipe.SelectCount");
    ui.clear();

    EXPECT_EQ(r.DeleteRecipie(quoted), 0);
    EXPECT_FALSE(r.Exists(quoted));
    EXPECT_EQ(r.DeleteRecipie("Joe's \"Famous\" Stew"), 2);
    EXPECT_EQ(ui.count(), 0);
}

// --- the packed ingredients ------------------------------------------------------

TEST_F(RecipiesTest, SlotNineteenIsInvisibleToTheCountAndTheTextView) {
    RecipeRow soup = Recipe("Bean Soup", "Soups");
    soup.packed[1] = "      2%%cup%%beans%%soaked";
    soup.packed[3] = "      1%%%%onion";  // slot 2 left empty: the gap counts
    soup.packed[19] = "      9%%tsp%%secret spice";
    AddRecipe(soup);
    RecipeRow only19 = Recipe("Hidden Soup", "Soups");
    only19.packed[19] = "      1%%pinch%%salt";
    only19.packed[20] = "      1%%dash%%pepper";
    AddRecipe(only19);

    clsRecipies r;
    const QString text = r.Display("Bean Soup");
    EXPECT_EQ(r.IngredientCount(), 3);
    EXPECT_FALSE(text.contains("secret spice"));
    EXPECT_EQ(r.Ingredients(19), "      9%%tsp%%secret spice");  // readable by index all the same
    EXPECT_EQ(r.Ingredients(2), "");
    EXPECT_EQ(r.Ingredients(0), "");
    EXPECT_EQ(r.Ingredients(21), "");

    const QString hidden = r.Display("Hidden Soup");
    EXPECT_EQ(r.IngredientCount(), 0);
    EXPECT_FALSE(hidden.contains("salt"));
    EXPECT_EQ(r.Ingredients(20), "      1%%dash%%pepper");
}

TEST_F(RecipiesTest, IndexedReadersSplitTheRowDisplayPositioned) {
    RecipeRow bread = Recipe("Bread", "Quick");
    bread.packed[1] = "  1 1/2%%cup%%flour%%sifted";
    bread.packed[2] = "      2%%%%eggs";                 // three fields, empty unit
    bread.packed[3] = "a pinch of salt";                 // no separator at all
    AddRecipe(bread);
    clsRecipies r;
    ASSERT_FALSE(r.Display("Bread").isEmpty());
    EXPECT_EQ(r.IngredientQuantity(1), "1 1/2");
    EXPECT_EQ(r.IngredientMeasure(1), "cup");
    EXPECT_EQ(r.IngredientName(1), "flour");
    EXPECT_EQ(r.IngredientMeasure(2), "ea");
    EXPECT_EQ(r.IngredientName(2), "eggs");
    // Without a separator there is no unit field: the out-of-range error goes
    // to the caller, as these readers have no handler of their own.
    try {
        r.IngredientMeasure(3);
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.description(), Err::SubscriptOutOfRange);
    }
    EXPECT_EQ(r.IngredientQuantity(3), "a pinch of salt");
}

TEST_F(RecipiesTest, DisplayBuildsTheTextViewWithFixedFieldsAndLineBreaks) {
    RecipeRow chili = Recipe("Chili", "Soups,Quick");
    chili.course = "Main Course";
    chili.prep = "1 hr. 30 mins.";
    chili.servings = "6 Servings";
    chili.instructions = "Brown the meat.~Add the beans.~Simmer.";
    chili.packed[1] = "      2%%cup%%kidney beans%%drained";
    chili.packed[2] = "      1%%lb%%ground beef";
    chili.packed[4] = "    1/2%%%%onion%%chopped";
    AddRecipe(chili);
    AddRecipe(Recipe("Aardvark Stew"));
    AddRecipe(Recipe("Zucchini Bread"));

    clsRecipies r;
    EXPECT_EQ(r.Display("  Chili "),
              "Categories: Soups,Quick\r\n"
              "Course: Main Course\r\n"
              "Prep Time: 1 hr. 30 mins.\r\n"
              "Servings: 6 Servings\r\n\r\n"
              "      2 cu kidney beans\r\n"
              "      1 lb ground beef\r\n"
              "    1/2 ea onion\r\n"
              "Brown the meat.\r\nAdd the beans.\r\nSimmer.");
    // The readers now stand on that row.
    EXPECT_EQ(r.Name(), "Chili");
    EXPECT_EQ(r.Style(), "Soups,Quick");
    EXPECT_EQ(r.Course(), "Main Course");
    EXPECT_EQ(r.Servings(), 6);
    EXPECT_EQ(r.Uses(), 0);
    EXPECT_FALSE(r.Imported());
    r.Imported(true);
    EXPECT_FALSE(r.Imported());
    EXPECT_EQ(r.Instructions(), "Brown the meat.~Add the beans.~Simmer.");

    // No instructions (Null) end the text after the ingredients.
    EXPECT_EQ(r.Display("Aardvark Stew"),
              "Categories: General\r\nCourse: \r\nPrep Time: \r\nServings: \r\n\r\n");
    EXPECT_EQ(r.Display("Not a recipe"), "");
    EXPECT_EQ(r.Name(), "");  // left at the end of the snapshot

    // The snapshot was taken when the object was made.
    AddRecipe(Recipe("Added Later"));
    EXPECT_EQ(r.Display("Added Later"), "");
    clsRecipies fresh;
    EXPECT_NE(fresh.Display("Added Later"), "");
}

TEST_F(RecipiesTest, LongIngredientsAndLongUnitsAreShownWithoutFailing) {
    RecipeRow r0 = Recipe("Long One");
    r0.packed[1] = PackedIngredient::Pack("      1", "tablespoon", QString(200, QLatin1Char('x')), "minced");
    ASSERT_EQ(r0.packed[1].size(), 100);
    AddRecipe(r0);
    clsRecipies r;
    const QString text = r.Display("Long One");
    EXPECT_TRUE(text.contains("      1 ta " + QString(100 - 7 - 10 - 4, QLatin1Char('x')) + "\r\n"));
    EXPECT_EQ(r.IngredientCount(), 1);
    EXPECT_EQ(r.IngredientMeasure(1), "tablespoon");
}

// --- rename -----------------------------------------------------------------------

TEST_F(RecipiesTest, RenameCarriesTheTitleIntoMealsWithTheMainCourseSlip) {
    AddRecipe(Recipe("Chili", "Soups"));
    MealRow named;
    named.name = "Chili";
    named.appetizer = "Chili";
    named.desert = "Chili";
    named.sideOne = "Chili";
    const qint32 a = AddMeal(named);
    MealRow main;
    main.name = "Sunday, Nov 29 2026";
    main.appetizer = "Salad";
    main.mainCourse = "Chili";
    const qint32 b = AddMeal(main);
    MealRow other;
    other.name = "Other";
    other.mainCourse = "Chili Dog";
    const qint32 c = AddMeal(other);

    clsRecipies r;
    r.RenameRecipie("Chili", "Texas Chili");

    EXPECT_EQ(MealValue(a, "Name").toString(), "Texas Chili");
    EXPECT_EQ(MealValue(a, "Appetizer").toString(), "Texas Chili");
    EXPECT_EQ(MealValue(a, "Desert").toString(), "Texas Chili");
    EXPECT_EQ(MealValue(a, "SideDishOne").toString(), "Chili");  // sides are not followed
    // The main course keeps the old title; the new one lands in Appetizer.
    EXPECT_EQ(MealValue(b, "MainCourse").toString(), "Chili");
    EXPECT_EQ(MealValue(b, "Appetizer").toString(), "Texas Chili");
    EXPECT_EQ(MealValue(b, "Name").toString(), "Sunday, Nov 29 2026");
    EXPECT_EQ(MealValue(c, "MainCourse").toString(), "Chili Dog");
    // The row itself is the entry screen's to rewrite.
    EXPECT_EQ(RecipeValue("Chili", "Title").toString(), "Chili");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, RenameReachesTreeListsGuestsAndTheComparisonList) {
    AddRecipeNode("Soups", "Chili");                       // as the entry screen adds it
    AddRecipeNode("Quick", "Chili", "Recipe");             // as the tree loader adds it
    AddRecipeNode("Quick", "Chili Dog");
    {
        Recordset rs;
        rs.Open("SELECT * FROM ShopList", ConnectionMain(), adOpenStatic, adLockOptimistic);
        for (const auto& [style, source] : QList<QPair<QString, QString>>{
                 {"Chili", "from chili and CHILI night"}, {"For Chili", ""}, {"Canned", "Chili"}}) {
            rs.AddNew();
            rs.setField("Name", "Weekly");
            rs.setField("ItemName", "beans");
            rs.setField("ItemStyle", style);
            rs.setField("ItemSource", source);
            rs.Update();
        }
    }
    AddGuestServed("Ann", "Chili");
    AddGuestServed("Bob", "Chili");
    AddGuestServed("Cy", "Chili Dog");
    RecipeComparisons::Instance().Add("Stew");
    RecipeComparisons::Instance().Add("Chili");
    RecipeComparisons::Instance().Add("Chili");

    clsRecipies r;
    r.RenameRecipie("Chili", "Texas Chili");

    // Only the nodes the entry screen tagged follow the rename.
    EXPECT_EQ(TreeLines(), QStringList({"Desserts", "Fish", "Quick", "Soups", "Quick/Chili", "Quick/Chili Dog",
                                        "Soups/Texas Chili"}));
    EXPECT_EQ(Column("SELECT [ItemStyle] FROM ShopList ORDER BY [ID]", "ItemStyle"),
              QStringList({"Texas Chili", "For Chili", "Canned"}));
    EXPECT_EQ(Column("SELECT [ItemSource] FROM ShopList ORDER BY [ID]", "ItemSource"),
              QStringList({"from Texas Chili and Texas Chili night", "", "Texas Chili"}));
    EXPECT_EQ(Column("SELECT [RecipeName] FROM GuestServed ORDER BY [GuestName]", "RecipeName"),
              QStringList({"Texas Chili", "Texas Chili", "Chili Dog"}));
    EXPECT_EQ(RecipeComparisons::Instance().Titles(), QStringList({"Stew", "Chili", "Texas Chili"}));
}

TEST_F(RecipiesTest, RenameToNothingIsRefusedWithANotice) {
    MealRow m;
    m.name = "Chili";
    const qint32 id = AddMeal(m);
    AddRecipeNode("Soups", "Chili");
    ui.answer(Answer::OK);
    clsRecipies r;
    r.RenameRecipie("Chili", "");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Chili was not renamed!");
    EXPECT_EQ(ui.lastBox().buttons, Box::Exclamation);
    EXPECT_EQ(MealValue(id, "Name").toString(), "Chili");
    EXPECT_TRUE(TreeLines().contains("Soups/Chili"));
}

// --- delete -------------------------------------------------------------------------

TEST_F(RecipiesTest, DeleteAnswersZeroOneOrTwoAndCleansMealsEveryTime) {
    AddRecipe(Recipe("Chili", "Soups"));
    AddRecipe(Recipe("Twice", "Soups"));
    AddRecipe(Recipe("Twice", "Quick"));
    MealRow m;
    m.name = "Party";
    m.appetizer = "Chili";
    m.mainCourse = "Twice";
    m.sideFour = "Ghost";
    const qint32 id = AddMeal(m);
    AddGuestServed("Ann", "Chili");
    AddGuestServed("Ann", "Twice");
    AddRecipeNode("Soups", "Chili");
    AddRecipeNode("Soups", "Twice");

    clsRecipies r;
    EXPECT_EQ(r.DeleteRecipie("Chili"), 0);
    EXPECT_EQ(CountRows("SELECT * FROM Recipie WHERE [Title] = 'Chili'"), 0);
    EXPECT_EQ(MealValue(id, "Appetizer").toString(), " ");
    EXPECT_EQ(Column("SELECT [RecipeName] FROM GuestServed", "RecipeName"), QStringList({"Twice"}));
    EXPECT_FALSE(TreeLines().contains("Soups/Chili"));

    // Two rows of one title: nothing is deleted, but the rest of the clean-up runs.
    EXPECT_EQ(r.DeleteRecipie("Twice"), 1);
    EXPECT_EQ(CountRows("SELECT * FROM Recipie WHERE [Title] = 'Twice'"), 2);
    EXPECT_EQ(MealValue(id, "MainCourse").toString(), " ");
    EXPECT_EQ(CountRows("SELECT * FROM GuestServed"), 0);
    EXPECT_FALSE(TreeLines().contains("Soups/Twice"));

    EXPECT_EQ(r.DeleteRecipie("Ghost"), 2);
    EXPECT_EQ(MealValue(id, "SideDishfour").toString(), " ");
    EXPECT_EQ(CountRows("SELECT * FROM Meal"), 1);  // the meal row stays, empty or not
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, DeletingAnApostropheTitleFindsNoRowButStillCleansTheMeals) {
    AddRecipe(Recipe(kApostrophe, "Desserts"));
    MealRow m;
    m.name = "Tea";
    m.desert = kApostrophe;
    const qint32 id = AddMeal(m);
    AddRecipeNode("Desserts", kApostrophe);

    clsRecipies r;
    QString title = kApostrophe;
    EXPECT_EQ(r.DeleteRecipie(title), 2);
    EXPECT_EQ(title, "Mom''s Apple Pie");
    EXPECT_EQ(MealValue(id, "Desert").toString(), " ");
    EXPECT_EQ(RecipeValue(kApostrophe, "Title").toString(), kApostrophe);
    // The tree is walked with the doubled title, so the node stays.
    EXPECT_TRUE(TreeLines().contains("Desserts/" + kApostrophe));
}

TEST_F(RecipiesTest, DeleteWalksTheTreeByPositionAndPassesOverTheNodeThatMovesUp) {
    AddRecipeNode("Soups", "Stew");
    AddRecipeNode("Soups", " Stew ");  // moves into the freed place and is passed over
    AddRecipeNode("Soups", "Broth");
    clsRecipies r;
    EXPECT_EQ(r.DeleteRecipie("Stew"), 2);
    EXPECT_EQ(TreeLines(), QStringList({"Desserts", "Fish", "Quick", "Soups", "Soups/ Stew ", "Soups/Broth"}));
}

// --- favourites, uses, meals ---------------------------------------------------------

TEST_F(RecipiesTest, MarkFavoriteFlipsTheRowAndTheTitledNodesImages) {
    AddRecipe(Recipe("Chili", "Soups"));
    QStandardItem* titled = AddRecipeNode("Soups", "Chili");
    MainPanes::Instance().SetImageKey(titled, "Recipe");
    QStandardItem* compared = AddRecipeNode("Quick", "Chili");
    MainPanes::Instance().SetImageKey(compared, "RecipeCompare");
    QStandardItem* loaded = AddRecipeNode("Fish", "Chili", "Recipe");
    MainPanes::Instance().SetImageKey(loaded, "Recipe");

    clsRecipies r;
    r.MarkFavorite("Chili");
    EXPECT_TRUE(RecipeValue("Chili", "Favorite").toBool());
    EXPECT_EQ(titled->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");
    EXPECT_EQ(compared->data(MainPanes::ImageKeyRole).toString(), "RecipeCompareFavorite");
    EXPECT_EQ(loaded->data(MainPanes::ImageKeyRole).toString(), "Recipe");  // only "Recipe Title" nodes

    r.MarkFavorite("Chili");
    EXPECT_FALSE(RecipeValue("Chili", "Favorite").toBool());
    EXPECT_EQ(titled->data(MainPanes::ImageKeyRole).toString(), "Recipe");
    EXPECT_EQ(compared->data(MainPanes::ImageKeyRole).toString(), "RecipeCompare");

    r.MarkFavorite("No such recipe");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, IsFavoriteAlwaysEndsInTheErrorReport) {
    RecipeRow fav = Recipe("Chili", "Soups");
    fav.favorite = true;
    AddRecipe(fav);
    clsRecipies r;
    QString title = "Chili";
    ui.answer(Answer::OK);
    EXPECT_FALSE(r.IsFavorite(title));
    ExpectEngineError("Recipe.IsFavorite");
}

TEST_F(RecipiesTest, OnMealAlwaysEndsInTheErrorReportAndDoublesTheCallersText) {
    MealRow m;
    m.name = "Supper";
    m.mainCourse = "Chili";
    AddMeal(m);
    clsRecipies r;
    ui.answer(Answer::OK);
    EXPECT_FALSE(r.OnMeal(QStringLiteral("Chili")));
    ExpectEngineError("Recipe.OnMeal");
    EXPECT_TRUE(ui.lastBox().prompt.contains("Meals")) << ui.lastBox().prompt.toStdString();

    QString apostrophe = "Bob's Chili";
    ui.answer(Answer::OK);
    r.OnMeal(apostrophe);
    EXPECT_EQ(apostrophe, "Bob''s Chili");
    EXPECT_EQ(ui.count(), 2);
}

TEST_F(RecipiesTest, UsesCountFromNullClearAndReportWhenMissing) {
    AddRecipe(Recipe("Chili", "Soups"));
    clsRecipies r;
    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses("Chili"), 0);
    ExpectError(Err::InvalidUseOfNull, "Recipe.GetUses");
    ui.clear();

    r.UpdateTimesUsed("Chili");
    EXPECT_EQ(RecipeValue("Chili", "TimesUsed").toInt(), 1);
    r.UpdateTimesUsed("Chili");
    EXPECT_EQ(r.GetUses("Chili"), 2);
    r.ClearUses("Chili");
    EXPECT_EQ(r.GetUses("Chili"), 0);
    r.UpdateTimesUsed("Nothing");  // a missing title is simply not counted
    EXPECT_EQ(ui.count(), 0);

    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses("Nothing"), 0);
    ExpectError(Err::NoCurrentRecord, "Recipe.GetUses");
}

TEST_F(RecipiesTest, CountsByCookbookAndByCategory) {
    AddRecipe(Recipe("Trout", "Fish", "Lake"));
    AddRecipe(Recipe("Shrimp", "Shellfish,Quick", "Lake"));
    RecipeRow fav = Recipe("Toast", "Quick", "Lake");
    fav.favorite = true;
    AddRecipe(fav);
    AddRecipe(Recipe("Cake", "Desserts"));
    clsRecipies r;
    EXPECT_EQ(r.SelectCount("Lake"), 3);
    EXPECT_EQ(r.FavoriteCount("Lake"), 3);  // every recipe of the cookbook, by design
    EXPECT_EQ(r.CategoryCount("Fish"), 2);  // Shellfish counts too
    EXPECT_EQ(r.CategoryCount("Quick"), 2);
    EXPECT_EQ(r.CategoryCount("Soups"), 0);
}

// --- cookbooks and categories -------------------------------------------------------

TEST_F(RecipiesTest, ClearingACookbookMovesItsRecipesAndFollowsTheCurrentCookbook) {
    AddRecipe(Recipe("Trout", "Fish", "Lake"));
    AddRecipe(Recipe("Perch", "Fish", "Lake"));
    AddRecipe(Recipe("Cake", "Desserts", "Baking"));
    CurrentCookbook = "Lake";
    clsRecipies r;
    r.ClearCookbookName("Lake");
    EXPECT_EQ(Column("SELECT [CookbookName] FROM Recipie ORDER BY [Title]", "CookbookName"),
              QStringList({"Baking", "General", "General"}));
    EXPECT_EQ(CurrentCookbook, "");

    CurrentCookbook = "Baking";
    EXPECT_EQ(r.NewCookbookName("Baking", "Sweets"), "Sweets");
    EXPECT_EQ(RecipeValue("Cake", "CookbookName").toString(), "Sweets");
    EXPECT_EQ(CurrentCookbook, "Baking");  // following the current cookbook is the caller's part
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, RemoveFromCategoryRebuildsTheListAndDropsTheCategoryNode) {
    AddRecipe(Recipe("Trout", "Fish, Quick ,Soups"));
    AddRecipe(Recipe("Chowder", "Soups"));
    AddRecipeNode("Quick", "Trout");
    clsRecipies r;
    r.RemoveFromCategory("Trout", "Quick ");
    EXPECT_EQ(RecipeValue("Trout", "Style").toString(), "Fish ,Soups");
    r.RemoveFromCategory("Chowder", "Soups");
    EXPECT_EQ(RecipeValue("Chowder", "Style").toString(), "");
    // The node named like the category goes (with what hangs under it) when the
    // argument matches its text exactly; "Quick " did not.
    EXPECT_EQ(TreeLines(), QStringList({"Desserts", "Fish", "Quick", "Quick/Trout"}));
    r.RemoveFromCategory("Nothing", "Fish");
    EXPECT_TRUE(TreeLines().contains("Fish"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, AddRecipeCategoryAppendsWithABareComma) {
    AddRecipe(Recipe("Trout", "Fish"));
    AddRecipe(Recipe("Perch", "Fish,"));
    clsRecipies r;
    r.AddRecipeCategory("Quick", "Trout");
    r.AddRecipeCategory("Quick", "Perch");
    r.AddRecipeCategory("Grilling", "Perch");
    EXPECT_EQ(RecipeValue("Trout", "Style").toString(), "Fish,Quick");
    EXPECT_EQ(RecipeValue("Perch", "Style").toString(), "Fish,Quick,Grilling");
    EXPECT_TRUE(TreeLines().contains("Quick/Trout"));
    EXPECT_TRUE(TreeLines().contains("Grilling/Perch"));
    EXPECT_EQ(MainPanes::Instance().FindByKey(MainPanes::Instance().recipes, "Grilling")->data(MainPanes::TagRole),
              "RecipeCategory");
}

TEST_F(RecipiesTest, ChangeCookbookAddsNodesForTheShownCookbookAndRemovesOtherwise) {
    RecipeRow trout = Recipe("Trout", "Fish, Quick", "Lake");
    trout.favorite = true;
    AddRecipe(trout);
    AddRecipe(Recipe("Perch", "Fish", "Lake"));
    AddRecipeNode("Fish", "Perch");
    CurrentCookbook = "River";
    clsRecipies r;
    EXPECT_TRUE(r.ChangeCookbook("Trout", "River"));
    EXPECT_EQ(RecipeValue("Trout", "CookbookName").toString(), "River");
    MainPanes& panes = MainPanes::Instance();
    QList<QStandardItem*> added;
    for (QStandardItem* node : panes.AllNodes(panes.recipes))
        if (node->text() == "Trout") added << node;
    ASSERT_EQ(added.size(), 2);
    EXPECT_EQ(added[0]->parent()->text(), "Fish");
    EXPECT_EQ(added[1]->parent()->text(), "Quick");
    for (QStandardItem* node : added) {
        EXPECT_EQ(node->data(MainPanes::TagRole).toString(), "Recipe Title");
        EXPECT_EQ(node->foreground().color(), QColor(100, 100, 100));
        EXPECT_EQ(node->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");
    }

    EXPECT_TRUE(r.ChangeCookbook("Perch", "Sea"));
    EXPECT_FALSE(TreeLines().contains("Fish/Perch"));
    EXPECT_FALSE(r.ChangeCookbook("Nothing", "Sea"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, SetCourseWritesTheMemberCourseOnTheMemberTitle) {
    AddRecipe(Recipe("Trout", "Fish"));
    AddRecipe(Recipe(kApostrophe, "Desserts"));
    clsRecipies r;
    r.Name("Trout");
    r.Course("Main Course");
    r.SetCourse();
    EXPECT_EQ(RecipeValue("Trout", "Course").toString(), "Main Course");
    r.Name(kApostrophe);
    r.Course("Desert");
    r.SetCourse();
    EXPECT_EQ(RecipeValue(kApostrophe, "Course").toString(), "");
}

// --- pictures ------------------------------------------------------------------------

TEST_F(RecipiesTest, PicturesAreStoredCheckedAndRefusedForUnknownTitles) {
    AddRecipe(Recipe("Trout", "Fish"));
    const QString picture = HomeFile("trout.jpg");
    QImage(4, 4, QImage::Format_RGB32).save(picture, "JPG");
    clsRecipies r;
    EXPECT_FALSE(r.ValidateImage("Trout"));  // nothing stored yet
    r.SetRecipeImage("Trout", picture);
    EXPECT_EQ(r.GetRecipeImage("Trout"), picture);
    EXPECT_TRUE(r.ValidateImage("Trout"));
    QFile::remove(picture);
    EXPECT_FALSE(r.ValidateImage("Trout"));
    EXPECT_FALSE(r.ValidateImage("Nothing"));
    EXPECT_EQ(r.GetRecipeImage("Nothing"), "");

    ui.answer(Answer::OK);
    r.SetRecipeImage("Nothing", picture);
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Nothing is not in the Database!");
    EXPECT_EQ(ui.lastBox().title, "Notice");
}
