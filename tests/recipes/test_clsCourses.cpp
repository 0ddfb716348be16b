#include "recipes/clsCourses.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

using CoursesTest = LarderTest;

TEST_F(CoursesTest, WriteNewReachesEveryStyleThatMentionsTheCategoryAndClearAllLeavesTheRecipes) {
    for (const auto& [title, style] : QList<QPair<QString, QString>>{{"Trout", "Fish"},
                                                                     {"Shrimp", "Shellfish"},
                                                                     {"Tacos", "Quick,Fish"},
                                                                     {"Steak", "Meat"},
                                                                     {"Pie", "Mom's Best"}})
        rows::Recipe(title, style);
    clsCourses courses;
    EXPECT_FALSE(courses.IsMapped("Fish"));
    courses.WriteNew("Fish", "Main Course");
    courses.WriteNew("Mom's Best", "Desert");  // quotes are safe
    EXPECT_TRUE(courses.IsMapped("Fish"));
    EXPECT_TRUE(courses.IsMapped("Mom's Best"));
    EXPECT_EQ(rows::Column("SELECT [Course] FROM Recipie ORDER BY [Title]", "Course"),
              QStringList({"Desert", "Main Course", "", "Main Course", "Main Course"}));
    EXPECT_EQ(rows::Column("SELECT * FROM Course", "Category"), QStringList({"Fish", "Mom's Best"}));

    courses.ClearAll();
    EXPECT_EQ(rows::Count("SELECT * FROM Course"), 0);
    EXPECT_FALSE(courses.IsMapped("Fish"));
    EXPECT_EQ(rows::Field("Recipie", "Title", "Pie", "Course").toString(), "Desert");
    courses.ClearAll();  // nothing left: still fine
    EXPECT_EQ(ui.count(), 0);
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
