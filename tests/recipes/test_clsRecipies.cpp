#include "core/Globals.h"
#include "core/MainPanes.h"
#include "recipes/PackedIngredient.h"
#include "recipes/RecipeComparisons.h"
#include "recipes/clsRecipies.h"
#include "support/RecipeTree.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QFile>
#include <QImage>

class RecipiesTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        tree::Start({"Desserts", "Fish", "Quick", "Soups"});
        RecipeComparisons::Instance().Clear();
    }
    // An error box, whose description comes from the database engine when none is given.
    void ExpectError(const QString& label, const QString& description = QString()) {
        ASSERT_GE(ui.count(), 1);
        const QString prompt = ui.lastBox().prompt;
        if (!description.isEmpty()) {
            EXPECT_EQ(prompt, "Error: " + description + " (Occurred in " + label + ")");
        }
        EXPECT_TRUE(prompt.startsWith("Error: ") && prompt.endsWith(" (Occurred in " + label + ")"))
            << prompt.toStdString();
        EXPECT_EQ(ui.lastBox().title, "Error");
    }
    static QString Of(const QString& title, const QString& column) {
        return rows::Field("Recipie", "Title", title, column).toString();
    }
    static QString Meal(qint32 id, const QString& column) { return rows::Field("Meal", "ID", id, column).toString(); }
};

const QString kApostrophe = QStringLiteral("Mom's Apple Pie");

TEST_F(RecipiesTest, AnApostropheTitleIsFoundByTheSingleQuotingFamilyOnly) {
    rows::Recipe(kApostrophe, "Desserts", "Grandma's", {{"TimesUsed", 3}});
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
    title = kApostrophe;
    r.ClearUses(title);
    EXPECT_EQ(Of(kApostrophe, "TimesUsed"), "3");

    // Not found counts as a missing row, which GetUses reports.
    title = kApostrophe;
    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses(title), 0);
    ExpectError("Recipe.GetUses", Err::NoCurrentRecord);

    QString cookbook = "Grandma's";
    EXPECT_EQ(r.FavoriteCount(cookbook), 0);
    EXPECT_EQ(cookbook, "Grandma''s");
    cookbook = "Grandma's";
    r.ClearCookbookName(cookbook);
    EXPECT_EQ(Of(kApostrophe, "CookbookName"), "Grandma's");
    cookbook = "Grandma's";
    EXPECT_EQ(r.NewCookbookName(cookbook, "Family"), "Family");
    EXPECT_EQ(cookbook, "Grandma''s");
    EXPECT_EQ(Of(kApostrophe, "CookbookName"), "Grandma's");

    // The same calls on a plain title do their work.
    rows::Recipe("Plain Pie", "Desserts", "Family");
    EXPECT_TRUE(r.Exists(QStringLiteral("Plain Pie")));
    EXPECT_EQ(r.FavoriteCount(QStringLiteral("Family")), 1);
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(RecipiesTest, TitlesAndNamesWithQuotesNeverBreakTheProgram) {
    const QString quoted = "The \"Best\" Chili";
    rows::Recipe(quoted, "Soups");
    rows::Recipe("Joe's \"Famous\" Stew", "Soups", "Joe's \"Own\"");
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
    ExpectError("Recipe.SelectCount");
    ui.clear();

    EXPECT_EQ(r.DeleteRecipie(quoted), 0);
    EXPECT_FALSE(r.Exists(quoted));
    EXPECT_EQ(r.DeleteRecipie("Joe's \"Famous\" Stew"), 2);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, SlotNineteenIsInvisibleToTheCountAndTheTextViewAndLongFieldsShowCut) {
    // Slot 2 left empty: the gap counts.
    rows::Recipe("Bean Soup", "Soups", "General",
                 {{"Ingredient1", "      2%%cup%%beans%%soaked"},
                  {"Ingredient3", "      1%%%%onion"},
                  {"ingredient19", "      9%%tsp%%secret spice"}});
    rows::Recipe("Hidden Soup", "Soups", "General",
                 {{"ingredient19", "      1%%pinch%%salt"}, {"ingredient20", "      1%%dash%%pepper"}});
    const QString longOne = PackedIngredient::Pack("      1", "tablespoon", QString(200, 'x'), "minced");
    ASSERT_EQ(longOne.size(), 100);
    rows::Recipe("Long One", "General", "General", {{"Ingredient1", longOne}});

    clsRecipies r;
    const QString text = r.Display("Bean Soup");
    EXPECT_EQ(r.IngredientCount(), 3);
    EXPECT_FALSE(text.contains("secret spice"));
    EXPECT_EQ(r.Ingredients(19), "      9%%tsp%%secret spice");  // readable by index all the same
    EXPECT_EQ(QStringList({r.Ingredients(2), r.Ingredients(0), r.Ingredients(21)}), QStringList({"", "", ""}));

    EXPECT_FALSE(r.Display("Hidden Soup").contains("salt"));
    EXPECT_EQ(r.IngredientCount(), 0);
    EXPECT_EQ(r.Ingredients(20), "      1%%dash%%pepper");

    EXPECT_TRUE(r.Display("Long One").contains("      1 ta " + QString(100 - 7 - 10 - 4, 'x') + "\r\n"));
    EXPECT_EQ(r.IngredientCount(), 1);
    EXPECT_EQ(r.IngredientMeasure(1), "tablespoon");
}

TEST_F(RecipiesTest, IndexedReadersSplitTheRowDisplayPositioned) {
    // Three fields with an empty unit, then no separator at all.
    rows::Recipe("Bread", "Quick", "General",
                 {{"Ingredient1", "  1 1/2%%cup%%flour%%sifted"},
                  {"Ingredient2", "      2%%%%eggs"},
                  {"Ingredient3", "a pinch of salt"}});
    clsRecipies r;
    ASSERT_FALSE(r.Display("Bread").isEmpty());
    EXPECT_EQ(QStringList({r.IngredientQuantity(1), r.IngredientMeasure(1), r.IngredientName(1)}),
              QStringList({"1 1/2", "cup", "flour"}));
    EXPECT_EQ(r.IngredientMeasure(2), "ea");
    EXPECT_EQ(r.IngredientName(2), "eggs");
    // Without a separator there is no unit field: the out-of-range error goes
    // to the caller, as these readers have no handler of their own.
    EXPECT_EQ(ErrorOf([&] { r.IngredientMeasure(3); }), Err::SubscriptOutOfRange);
    EXPECT_EQ(r.IngredientQuantity(3), "a pinch of salt");
}

TEST_F(RecipiesTest, DisplayBuildsTheTextViewWithFixedFieldsAndLineBreaks) {
    rows::Recipe("Chili", "Soups,Quick", "General",
                 {{"Course", "Main Course"},
                  {"PrepTime", "1 hr. 30 mins."},
                  {"Servings", "6 Servings"},
                  {"Instructions", "Brown the meat.~Add the beans.~Simmer."},
                  {"Ingredient1", "      2%%cup%%kidney beans%%drained"},
                  {"Ingredient2", "      1%%lb%%ground beef"},
                  {"Ingredient4", "    1/2%%%%onion%%chopped"}});
    rows::Recipe("Aardvark Stew");
    rows::Recipe("Zucchini Bread");

    clsRecipies r;
    EXPECT_EQ(
        r.Display("  Chili "),
        "Categories: Soups,Quick\r\nCourse: Main Course\r\nPrep Time: 1 hr. 30 mins.\r\nServings: 6 Servings\r\n\r\n"
        "      2 cu kidney beans\r\n      1 lb ground beef\r\n    1/2 ea onion\r\n"
        "Brown the meat.\r\nAdd the beans.\r\nSimmer.");
    // The readers now stand on that row.
    EXPECT_EQ(QStringList({r.Name(), r.Style(), r.Course(), r.Instructions()}),
              QStringList({"Chili", "Soups,Quick", "Main Course", "Brown the meat.~Add the beans.~Simmer."}));
    EXPECT_EQ(r.Servings(), 6);
    EXPECT_EQ(r.Uses(), 0);

    // No instructions (Null) end the text after the ingredients.
    EXPECT_EQ(r.Display("Aardvark Stew"), "Categories: General\r\nCourse: \r\nPrep Time: \r\nServings: \r\n\r\n");
    EXPECT_EQ(r.Display("Not a recipe"), "");
    EXPECT_EQ(r.Name(), "");  // left at the end of the snapshot

    // The snapshot was taken when the object was made.
    rows::Recipe("Added Later");
    EXPECT_EQ(r.Display("Added Later"), "");
    EXPECT_NE(clsRecipies().Display("Added Later"), "");
}

TEST_F(RecipiesTest, RenameCarriesTheTitleIntoMealsWithTheMainCourseSlip) {
    rows::Recipe("Chili", "Soups");
    const qint32 a = rows::Meal("Chili", {{"Appetizer", "Chili"}, {"Desert", "Chili"}, {"SideDishOne", "Chili"}});
    const qint32 b = rows::Meal("Sunday, Nov 29 2026", {{"Appetizer", "Salad"}, {"MainCourse", "Chili"}});
    const qint32 c = rows::Meal("Other", {{"MainCourse", "Chili Dog"}});
    tree::AddRecipe("Soups", "Chili");

    // A rename to nothing is refused with a notice.
    ui.answer(Answer::OK);
    clsRecipies().RenameRecipie("Chili", "");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Chili was not renamed!");
    EXPECT_EQ(ui.lastBox().buttons, Box::Exclamation);
    EXPECT_EQ(Meal(a, "Name"), "Chili");
    EXPECT_TRUE(tree::Lines().contains("Soups/Chili"));
    ui.clear();

    clsRecipies().RenameRecipie("Chili", "Texas Chili");
    // Sides are not followed.
    EXPECT_EQ(QStringList({Meal(a, "Name"), Meal(a, "Appetizer"), Meal(a, "Desert"), Meal(a, "SideDishOne")}),
              QStringList({"Texas Chili", "Texas Chili", "Texas Chili", "Chili"}));
    // The main course keeps the old title; the new one lands in Appetizer.
    EXPECT_EQ(QStringList({Meal(b, "MainCourse"), Meal(b, "Appetizer"), Meal(b, "Name"), Meal(c, "MainCourse")}),
              QStringList({"Chili", "Texas Chili", "Sunday, Nov 29 2026", "Chili Dog"}));
    // The row itself is the entry screen's to rewrite.
    EXPECT_EQ(Of("Chili", "Title"), "Chili");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, RenameReachesTreeListsGuestsAndTheComparisonList) {
    tree::AddRecipe("Soups", "Chili");            // as the entry screen adds it
    tree::AddRecipe("Quick", "Chili", "Recipe");  // as the tree loader adds it
    tree::AddRecipe("Quick", "Chili Dog");
    for (const auto& [style, source] : QList<QPair<QString, QString>>{
             {"Chili", "from chili and CHILI night"}, {"For Chili", ""}, {"Canned", "Chili"}})
        rows::Add("ShopList",
                  {{"Name", "Weekly"}, {"ItemName", "beans"}, {"ItemStyle", style}, {"ItemSource", source}});
    for (const auto& [guest, recipe] :
         QList<QPair<QString, QString>>{{"Ann", "Chili"}, {"Bob", "Chili"}, {"Cy", "Chili Dog"}})
        rows::Add("GuestServed", {{"GuestName", guest}, {"RecipeName", recipe}});
    for (const char* title : {"Stew", "Chili", "Chili"}) RecipeComparisons::Instance().Add(title);

    clsRecipies().RenameRecipie("Chili", "Texas Chili");
    // Only the nodes the entry screen tagged follow the rename.
    EXPECT_EQ(tree::Lines(), QStringList({"Desserts", "Fish", "Quick", "Soups", "Quick/Chili", "Quick/Chili Dog",
                                          "Soups/Texas Chili"}));
    EXPECT_EQ(rows::Column("SELECT [ItemStyle] FROM ShopList ORDER BY [ID]", "ItemStyle"),
              QStringList({"Texas Chili", "For Chili", "Canned"}));
    EXPECT_EQ(rows::Column("SELECT [ItemSource] FROM ShopList ORDER BY [ID]", "ItemSource"),
              QStringList({"from Texas Chili and Texas Chili night", "", "Texas Chili"}));
    EXPECT_EQ(rows::Column("SELECT [RecipeName] FROM GuestServed ORDER BY [GuestName]", "RecipeName"),
              QStringList({"Texas Chili", "Texas Chili", "Chili Dog"}));
    EXPECT_EQ(RecipeComparisons::Instance().Titles(), QStringList({"Stew", "Chili", "Texas Chili"}));
}

TEST_F(RecipiesTest, DeleteAnswersZeroOneOrTwoAndCleansMealsEveryTime) {
    rows::Recipe("Chili", "Soups");
    rows::Recipe("Twice", "Soups");
    rows::Recipe("Twice", "Quick");
    const qint32 id = rows::Meal("Party", {{"Appetizer", "Chili"}, {"MainCourse", "Twice"}, {"SideDishfour", "Ghost"}});
    rows::Add("GuestServed", {{"GuestName", "Ann"}, {"RecipeName", "Chili"}});
    rows::Add("GuestServed", {{"GuestName", "Ann"}, {"RecipeName", "Twice"}});
    tree::AddRecipe("Soups", "Chili");
    tree::AddRecipe("Soups", "Twice");

    clsRecipies r;
    EXPECT_EQ(r.DeleteRecipie("Chili"), 0);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE [Title] = 'Chili'"), 0);
    EXPECT_EQ(Meal(id, "Appetizer"), " ");
    EXPECT_EQ(rows::Column("SELECT [RecipeName] FROM GuestServed", "RecipeName"), QStringList({"Twice"}));
    EXPECT_FALSE(tree::Lines().contains("Soups/Chili"));

    // Two rows of one title: nothing is deleted, but the rest of the clean-up runs.
    EXPECT_EQ(r.DeleteRecipie("Twice"), 1);
    EXPECT_EQ(rows::Count("SELECT * FROM Recipie WHERE [Title] = 'Twice'"), 2);
    EXPECT_EQ(Meal(id, "MainCourse"), " ");
    EXPECT_EQ(rows::Count("SELECT * FROM GuestServed"), 0);
    EXPECT_FALSE(tree::Lines().contains("Soups/Twice"));

    EXPECT_EQ(r.DeleteRecipie("Ghost"), 2);
    EXPECT_EQ(Meal(id, "SideDishfour"), " ");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 1);  // the meal row stays, empty or not
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, DeletingAnApostropheTitleFindsNoRowButStillCleansTheMeals) {
    rows::Recipe(kApostrophe, "Desserts");
    const qint32 id = rows::Meal("Tea", {{"Desert", kApostrophe}});
    tree::AddRecipe("Desserts", kApostrophe);
    QString title = kApostrophe;
    EXPECT_EQ(clsRecipies().DeleteRecipie(title), 2);
    EXPECT_EQ(title, "Mom''s Apple Pie");
    EXPECT_EQ(Meal(id, "Desert"), " ");
    EXPECT_EQ(Of(kApostrophe, "Title"), kApostrophe);
    // The tree is walked with the doubled title, so the node stays.
    EXPECT_TRUE(tree::Lines().contains("Desserts/" + kApostrophe));
}

TEST_F(RecipiesTest, DeleteWalksTheTreeByPositionAndPassesOverTheNodeThatMovesUp) {
    tree::AddRecipe("Soups", "Stew");
    tree::AddRecipe("Soups", " Stew ");  // moves into the freed place and is passed over
    tree::AddRecipe("Soups", "Broth");
    EXPECT_EQ(clsRecipies().DeleteRecipie("Stew"), 2);
    EXPECT_EQ(tree::Lines(), QStringList({"Desserts", "Fish", "Quick", "Soups", "Soups/ Stew ", "Soups/Broth"}));
}

TEST_F(RecipiesTest, MarkFavoriteFlipsTheRowAndTheTitledNodesImages) {
    rows::Recipe("Chili", "Soups");
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* titled = tree::AddRecipe("Soups", "Chili");
    panes.SetImageKey(titled, "Recipe");
    QStandardItem* compared = tree::AddRecipe("Quick", "Chili");
    panes.SetImageKey(compared, "RecipeCompare");
    QStandardItem* loaded = tree::AddRecipe("Fish", "Chili", "Recipe");
    panes.SetImageKey(loaded, "Recipe");
    auto images = [&] {
        return QStringList({titled->data(MainPanes::ImageKeyRole).toString(),
                            compared->data(MainPanes::ImageKeyRole).toString(),
                            loaded->data(MainPanes::ImageKeyRole).toString()});
    };

    clsRecipies r;
    r.MarkFavorite("Chili");
    EXPECT_TRUE(rows::Field("Recipie", "Title", "Chili", "Favorite").toBool());
    // Only "Recipe Title" nodes change.
    EXPECT_EQ(images(), QStringList({"RecipeFavorite", "RecipeCompareFavorite", "Recipe"}));
    r.MarkFavorite("Chili");
    EXPECT_FALSE(rows::Field("Recipie", "Title", "Chili", "Favorite").toBool());
    EXPECT_EQ(images(), QStringList({"Recipe", "RecipeCompare", "Recipe"}));
    r.MarkFavorite("No such recipe");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, IsFavoriteAndOnMealAlwaysEndInTheErrorReport) {
    rows::Recipe("Chili", "Soups", "General", {{"Favorite", true}});
    rows::Meal("Supper", {{"MainCourse", "Chili"}});
    clsRecipies r;
    QString title = "Chili";
    ui.answer(Answer::OK);
    EXPECT_FALSE(r.IsFavorite(title));
    ExpectError("Recipe.IsFavorite");

    ui.answer(Answer::OK);
    EXPECT_FALSE(r.OnMeal(QStringLiteral("Chili")));
    ExpectError("Recipe.OnMeal");
    EXPECT_TRUE(ui.lastBox().prompt.contains("Meals")) << ui.lastBox().prompt.toStdString();
    // The caller's text is doubled all the same.
    QString apostrophe = "Bob's Chili";
    ui.answer(Answer::OK);
    r.OnMeal(apostrophe);
    EXPECT_EQ(apostrophe, "Bob''s Chili");
    EXPECT_EQ(ui.count(), 3);
}

TEST_F(RecipiesTest, UsesCountFromNullClearAndReportWhenMissing) {
    rows::Recipe("Chili", "Soups");
    clsRecipies r;
    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses("Chili"), 0);
    ExpectError("Recipe.GetUses", Err::InvalidUseOfNull);
    ui.clear();

    r.UpdateTimesUsed("Chili");
    EXPECT_EQ(Of("Chili", "TimesUsed"), "1");
    r.UpdateTimesUsed("Chili");
    EXPECT_EQ(r.GetUses("Chili"), 2);
    r.ClearUses("Chili");
    EXPECT_EQ(r.GetUses("Chili"), 0);
    r.UpdateTimesUsed("Nothing");  // a missing title is simply not counted
    EXPECT_EQ(ui.count(), 0);
    ui.answer(Answer::OK);
    EXPECT_EQ(r.GetUses("Nothing"), 0);
    ExpectError("Recipe.GetUses", Err::NoCurrentRecord);
}

TEST_F(RecipiesTest, CountsByCookbookAndByCategory) {
    rows::Recipe("Trout", "Fish", "Lake");
    rows::Recipe("Shrimp", "Shellfish,Quick", "Lake");
    rows::Recipe("Toast", "Quick", "Lake", {{"Favorite", true}});
    rows::Recipe("Cake", "Desserts");
    clsRecipies r;
    EXPECT_EQ(r.SelectCount("Lake"), 3);
    EXPECT_EQ(r.FavoriteCount("Lake"), 3);  // every recipe of the cookbook, by design
    // Shellfish counts as Fish too.
    EXPECT_EQ(QList<int>({r.CategoryCount("Fish"), r.CategoryCount("Quick"), r.CategoryCount("Soups")}),
              QList<int>({2, 2, 0}));
}

TEST_F(RecipiesTest, ClearingACookbookMovesItsRecipesAndFollowsTheCurrentCookbook) {
    rows::Recipe("Trout", "Fish", "Lake");
    rows::Recipe("Perch", "Fish", "Lake");
    rows::Recipe("Cake", "Desserts", "Baking");
    CurrentCookbook = "Lake";
    clsRecipies r;
    r.ClearCookbookName("Lake");
    EXPECT_EQ(rows::Column("SELECT [CookbookName] FROM Recipie ORDER BY [Title]", "CookbookName"),
              QStringList({"Baking", "General", "General"}));
    EXPECT_EQ(CurrentCookbook, "");

    CurrentCookbook = "Baking";
    EXPECT_EQ(r.NewCookbookName("Baking", "Sweets"), "Sweets");
    EXPECT_EQ(Of("Cake", "CookbookName"), "Sweets");
    EXPECT_EQ(CurrentCookbook, "Baking");  // following the current cookbook is the caller's part
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, CategoriesAreRemovedByRebuildingTheListAndAddedWithABareComma) {
    rows::Recipe("Trout", "Fish, Quick ,Soups");
    rows::Recipe("Chowder", "Soups");
    tree::AddRecipe("Quick", "Trout");
    clsRecipies r;
    r.RemoveFromCategory("Trout", "Quick ");
    EXPECT_EQ(Of("Trout", "Style"), "Fish ,Soups");
    r.RemoveFromCategory("Chowder", "Soups");
    EXPECT_EQ(Of("Chowder", "Style"), "");
    // The node named like the category goes (with what hangs under it) when the
    // argument matches its text exactly; "Quick " did not.
    EXPECT_EQ(tree::Lines(), QStringList({"Desserts", "Fish", "Quick", "Quick/Trout"}));
    r.RemoveFromCategory("Nothing", "Fish");
    EXPECT_TRUE(tree::Lines().contains("Fish"));

    rows::Recipe("Perch", "Fish,");
    r.AddRecipeCategory("Quick", "Trout");
    r.AddRecipeCategory("Quick", "Perch");
    r.AddRecipeCategory("Grilling", "Perch");
    EXPECT_EQ(Of("Trout", "Style"), "Fish ,Soups,Quick");
    EXPECT_EQ(Of("Perch", "Style"), "Fish,Quick,Grilling");
    EXPECT_TRUE(tree::Lines().contains("Quick/Perch"));
    EXPECT_TRUE(tree::Lines().contains("Grilling/Perch"));
    EXPECT_EQ(MainPanes::Instance().FindByKey(MainPanes::Instance().recipes, "Grilling")->data(MainPanes::TagRole),
              "RecipeCategory");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, ChangeCookbookAddsNodesForTheShownCookbookAndRemovesOtherwise) {
    rows::Recipe("Trout", "Fish, Quick", "Lake", {{"Favorite", true}});
    rows::Recipe("Perch", "Fish", "Lake");
    tree::AddRecipe("Fish", "Perch");
    CurrentCookbook = "River";
    clsRecipies r;
    EXPECT_TRUE(r.ChangeCookbook("Trout", "River"));
    EXPECT_EQ(Of("Trout", "CookbookName"), "River");
    MainPanes& panes = MainPanes::Instance();
    QStringList added;
    for (QStandardItem* node : panes.AllNodes(panes.recipes))
        if (node->text() == "Trout") {
            added << node->parent()->text();
            EXPECT_EQ(node->data(MainPanes::TagRole).toString(), "Recipe Title");
            EXPECT_EQ(node->foreground().color(), QColor(100, 100, 100));
            EXPECT_EQ(node->data(MainPanes::ImageKeyRole).toString(), "RecipeFavorite");
        }
    EXPECT_EQ(added, QStringList({"Fish", "Quick"}));

    EXPECT_TRUE(r.ChangeCookbook("Perch", "Sea"));
    EXPECT_FALSE(tree::Lines().contains("Fish/Perch"));
    EXPECT_FALSE(r.ChangeCookbook("Nothing", "Sea"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(RecipiesTest, SetCourseWritesTheMemberCourseOnTheMemberTitle) {
    rows::Recipe("Trout", "Fish");
    rows::Recipe(kApostrophe, "Desserts");
    clsRecipies r;
    r.Name("Trout");
    r.Course("Main Course");
    r.SetCourse();
    EXPECT_EQ(Of("Trout", "Course"), "Main Course");
    r.Name(kApostrophe);
    r.Course("Desert");
    r.SetCourse();
    EXPECT_EQ(Of(kApostrophe, "Course"), "");
}

TEST_F(RecipiesTest, PicturesAreStoredCheckedAndRefusedForUnknownTitles) {
    rows::Recipe("Trout", "Fish");
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
    EXPECT_EQ(LastBox(), "Notice: Nothing is not in the Database!");
}
