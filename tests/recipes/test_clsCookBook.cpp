#include "core/Globals.h"
#include "recipes/RecipeTestRows.h"
#include "recipes/clsCookBook.h"
#include "recipes/clsRecipies.h"
#include "support/TestEnv.h"

#include <QFile>

namespace {

class CookBookTest : public LarderTest {};

}  // namespace

TEST_F(CookBookTest, NewCookbooksAreFoundByQueryAndByTheRowsHeldSinceCreation) {
    clsCookBook before;
    clsCookBook writer;
    EXPECT_TRUE(writer.WriteNew("Lake", "Fish"));
    EXPECT_TRUE(writer.WriteNew("Baking", "None"));
    EXPECT_TRUE(writer.Exists("Lake"));
    EXPECT_FALSE(writer.Exists("River"));
    EXPECT_TRUE(writer.IsSpecialty("Lake"));
    EXPECT_FALSE(writer.IsSpecialty("Baking"));
    EXPECT_FALSE(writer.IsSpecialty("River"));
    EXPECT_FALSE(writer.IsSpecialty("General"));

    // IsCookBook looks at the rows the object took when it was made.
    EXPECT_TRUE(before.IsCookBook("General"));
    EXPECT_FALSE(before.IsCookBook("Lake"));
    clsCookBook after;
    EXPECT_TRUE(after.IsCookBook("Lake"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CookBookTest, RemovingACookbookMovesItsRecipesToGeneral) {
    clsCookBook writer;
    writer.WriteNew("Lake", "Fish");
    writer.WriteNew("Grandma's", "None");
    AddRecipe(Recipe("Trout", "Fish", "Lake"));
    AddRecipe(Recipe("Perch", "Fish", "Lake"));
    AddRecipe(Recipe("Pie", "Desserts", "Grandma's"));
    AddRecipe(Recipe("Cake", "Desserts", "Baking"));

    clsCookBook books;
    books.RemoveCookbook("Lake");
    EXPECT_FALSE(books.Exists("Lake"));
    EXPECT_EQ(Column("SELECT [CookbookName] FROM Recipie ORDER BY [Title]", "CookbookName"),
              QStringList({"Baking", "General", "Grandma's", "General"}));

    // The apostrophes are doubled once, in the caller's own text: the recipes
    // are still found.
    QString name = "Grandma's";
    books.RemoveCookbook(name);
    EXPECT_EQ(name, "Grandma''s");
    EXPECT_FALSE(books.Exists("Grandma's"));
    EXPECT_EQ(RecipeValue("Pie", "CookbookName").toString(), "General");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CookBookTest, GeneralCannotBeRenamed) {
    ui.answer(Answer::OK);
    clsCookBook books;
    books.Rename("General", "Everyday");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "The 'General' cookbook cannot be renamed.");
    EXPECT_EQ(ui.lastBox().title, "Can't Rename");
    EXPECT_TRUE(books.Exists("General"));
}

TEST_F(CookBookTest, RenameMovesTheRowAndCurrentCookbookButLeavesTheRecipesToTheirOwnCall) {
    clsCookBook books;
    books.WriteNew("Lake", "Fish");
    AddRecipe(Recipe("Trout", "Fish", "Lake"));
    CurrentCookbook = "Lake";
    ui.answer(Answer::OK);
    books.Rename("Lake", "River");
    EXPECT_TRUE(books.Exists("River"));
    EXPECT_FALSE(books.Exists("Lake"));
    EXPECT_EQ(CurrentCookbook, "River");
    // The recipe step reports and does nothing.
    ASSERT_EQ(ui.count(), 1);
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Cookbook.Rename)")) << ui.lastBox().prompt.toStdString();
    EXPECT_EQ(RecipeValue("Trout", "CookbookName").toString(), "Lake");

    clsRecipies recipes;
    recipes.NewCookbookName("Lake", "River");
    EXPECT_EQ(RecipeValue("Trout", "CookbookName").toString(), "River");
}

TEST_F(CookBookTest, ExportAsksItsQuestionForHtmlOnly) {
    clsCookBook books;
    for (int format : {1, 2, 3}) books.ExportCookBook("General", format, true, HomeFile("out"));
    EXPECT_EQ(ui.count(), 0);
    ui.answer(Answer::No);
    books.ExportCookBook("General", 4, false, HomeFile("out.htm"));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt,
              "Would you like to use the Report format or the Website format?\r\n"
              "  Click 'Yes' for the Report Format, and 'No' for the Website format.");
    EXPECT_EQ(ui.lastBox().title, "Select Format");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo);
    EXPECT_EQ(Response, Answer::No);
    EXPECT_FALSE(QFile::exists(HomeFile("out.htm")));
}
