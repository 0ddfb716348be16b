#include "recipes/RecipeTestRows.h"
#include "recipes/clsCourses.h"
#include "platform/RuntimeError.h"
#include "support/TestEnv.h"

namespace {

class CoursesTest : public LarderTest {};

}  // namespace

TEST_F(CoursesTest, WriteNewReachesEveryStyleThatMentionsTheCategory) {
    AddRecipe(Recipe("Trout", "Fish"));
    AddRecipe(Recipe("Shrimp", "Shellfish"));
    AddRecipe(Recipe("Tacos", "Quick,Fish"));
    AddRecipe(Recipe("Steak", "Meat"));
    clsCourses courses;
    EXPECT_FALSE(courses.IsMapped("Fish"));
    courses.WriteNew("Fish", "Main Course");
    EXPECT_TRUE(courses.IsMapped("Fish"));
    EXPECT_EQ(Column("SELECT [Course] FROM Recipie ORDER BY [Title]", "Course"),
              QStringList({"Main Course", "", "Main Course", "Main Course"}));
    EXPECT_EQ(Column("SELECT * FROM Course", "Category"), QStringList({"Fish"}));
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(CoursesTest, ClearAllEmptiesTheMapAndLeavesTheRecipes) {
    AddRecipe(Recipe("Cake", "Desserts"));
    clsCourses courses;
    courses.WriteNew("Desserts", "Desert");
    courses.WriteNew("Soups", "Appetizer");
    courses.ClearAll();
    EXPECT_EQ(CountRows("SELECT * FROM Course"), 0);
    EXPECT_FALSE(courses.IsMapped("Desserts"));
    EXPECT_EQ(RecipeValue("Cake", "Course").toString(), "Desert");
    courses.ClearAll();  // nothing left: still fine
}

TEST_F(CoursesTest, GetCourseLooksInTheCategoryTableWhichHasNoCourse) {
    clsCourses courses;
    courses.WriteNew("Fish", "Main Course");
    // A known category reaches the missing column and reports.
    ui.answer(Answer::OK);
    EXPECT_EQ(courses.GetCourse("Fish"), "");
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "Error: " + Err::ItemNotFound + " (Occurred in Course.GetCourse)");
    EXPECT_EQ(courses.GetCourse("Not a category"), "");
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(CoursesTest, QuotesInCategoriesAreSafe) {
    AddRecipe(Recipe("Pie", "Mom's Best"));
    clsCourses courses;
    courses.WriteNew("Mom's Best", "Desert");
    EXPECT_TRUE(courses.IsMapped("Mom's Best"));
    EXPECT_EQ(RecipeValue("Pie", "Course").toString(), "Desert");
}
