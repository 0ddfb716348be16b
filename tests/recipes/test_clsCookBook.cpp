#include "core/Globals.h"
#include "recipes/clsCookBook.h"
#include "recipes/clsRecipies.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QFile>

using CookBookTest = LarderTest;

TEST_F(CookBookTest, NewCookbooksAreFoundByQueryAndByTheRowsHeldSinceCreation) {
    clsCookBook before;
    clsCookBook writer;
    EXPECT_TRUE(writer.WriteNew("Lake", "Fish"));
    EXPECT_TRUE(writer.WriteNew("Baking", "None"));
    EXPECT_TRUE(writer.Exists("Lake"));
    EXPECT_FALSE(writer.Exists("River"));
    EXPECT_EQ(QList<bool>({writer.IsSpecialty("Lake"), writer.IsSpecialty("Baking"), writer.IsSpecialty("River"),
                           writer.IsSpecialty("General")}),
              QList<bool>({true, false, false, false}));
    // IsCookBook looks at the rows the object took when it was made.
    EXPECT_TRUE(before.IsCookBook("General"));
    EXPECT_FALSE(before.IsCookBook("Lake"));
    EXPECT_TRUE(clsCookBook().IsCookBook("Lake"));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CookBookTest, RemovingACookbookMovesItsRecipesToGeneral) {
    clsCookBook writer;
    writer.WriteNew("Lake", "Fish");
    writer.WriteNew("Grandma's", "None");
    rows::Recipe("Trout", "Fish", "Lake");
    rows::Recipe("Perch", "Fish", "Lake");
    rows::Recipe("Pie", "Desserts", "Grandma's");
    rows::Recipe("Cake", "Desserts", "Baking");
    clsCookBook books;  // made after the writes, as the screens make theirs
    books.RemoveCookbook("Lake");
    EXPECT_FALSE(books.Exists("Lake"));
    EXPECT_EQ(rows::Column("SELECT [CookbookName] FROM Recipie ORDER BY [Title]", "CookbookName"),
              QStringList({"Baking", "General", "Grandma's", "General"}));

    // The apostrophes are doubled once, in the caller's own text: the recipes are still found.
    QString name = "Grandma's";
    books.RemoveCookbook(name);
    EXPECT_EQ(name, "Grandma''s");
    EXPECT_FALSE(books.Exists("Grandma's"));
    EXPECT_EQ(rows::Field("Recipie", "Title", "Pie", "CookbookName").toString(), "General");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CookBookTest, RenameMovesTheRowAndCurrentCookbookButNeverGeneralNorTheRecipes) {
    clsCookBook books;
    ui.answer(Answer::OK);
    books.Rename("General", "Everyday");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(), "Can't Rename: The 'General' cookbook cannot be renamed.");
    EXPECT_TRUE(books.Exists("General"));
    ui.clear();

    books.WriteNew("Lake", "Fish");
    rows::Recipe("Trout", "Fish", "Lake");
    CurrentCookbook = "Lake";
    ui.answer(Answer::OK);
    books.Rename("Lake", "River");
    EXPECT_TRUE(books.Exists("River"));
    EXPECT_FALSE(books.Exists("Lake"));
    EXPECT_EQ(CurrentCookbook, "River");
    // The recipe step reports and does nothing; the recipes have their own call.
    ASSERT_EQ(ui.count(), 1);
    EXPECT_TRUE(ui.lastBox().prompt.endsWith("(Occurred in Cookbook.Rename)")) << ui.lastBox().prompt.toStdString();
    EXPECT_EQ(rows::Field("Recipie", "Title", "Trout", "CookbookName").toString(), "Lake");
    clsRecipies().NewCookbookName("Lake", "River");
    EXPECT_EQ(rows::Field("Recipie", "Title", "Trout", "CookbookName").toString(), "River");
}

TEST_F(CookBookTest, ExportAsksItsQuestionForHtmlOnly) {
    clsCookBook books;
    for (int format : {1, 2, 3}) books.ExportCookBook("General", format, true, HomeFile("out"));
    EXPECT_EQ(ui.count(), 0);
    ui.answer(Answer::No);
    books.ExportCookBook("General", 4, false, HomeFile("out.htm"));
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(LastBox(),
              "Select Format: Would you like to use the Report format or the Website format?\r\n"
              "  Click 'Yes' for the Report Format, and 'No' for the Website format.");
    EXPECT_EQ(ui.lastBox().buttons, Box::YesNo);
    EXPECT_EQ(Response, Answer::No);
    EXPECT_FALSE(QFile::exists(HomeFile("out.htm")));
}
