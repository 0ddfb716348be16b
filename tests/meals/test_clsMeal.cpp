#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "recipes/RecipeTestRows.h"
#include "support/TestEnv.h"

namespace {

// Today is pinned to Sunday 11/22/2026.
class MealTest : public LarderTest {
protected:
    qint32 Dated(const QString& name, const QString& date) {
        MealRow m;
        m.name = name;
        m.dates = date;
        m.mainCourse = "Chili";
        return AddMeal(m);
    }
};

}  // namespace

TEST_F(MealTest, RemoveRecipeClearsTheTitleInEveryCourseAndKeepsTheRows) {
    MealRow all;
    all.name = "Feast";
    all.appetizer = all.mainCourse = all.desert = "Chili";
    all.sideOne = all.sideTwo = all.sideThree = all.sideFour = "Chili";
    const qint32 a = AddMeal(all);
    MealRow other;
    other.name = "Supper";
    other.appetizer = "Chili Dog";
    other.sideFour = "Chili";
    const qint32 b = AddMeal(other);

    clsMeal meal;
    meal.RemoveRecipe("Feast", "Chili");
    for (const char* c : {"Appetizer", "MainCourse", "Desert", "SideDishOne", "SideDishTwo", "SideDishThree",
                          "SideDishfour"})
        EXPECT_EQ(MealValue(a, c).toString(), " ") << c;
    EXPECT_EQ(MealValue(b, "SideDishfour").toString(), "Chili");  // another meal: untouched

    meal.RemoveRecipe("", "Chili");
    EXPECT_EQ(MealValue(b, "SideDishfour").toString(), " ");
    EXPECT_EQ(MealValue(b, "Appetizer").toString(), "Chili Dog");
    EXPECT_EQ(CountRows("SELECT * FROM Meal"), 2);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, RemoveRecipeToleratesQuotesInNamesAndTitles) {
    MealRow m;
    m.name = "Mom's Day";
    m.desert = "Mom's \"Pie\"";
    const qint32 id = AddMeal(m);
    clsMeal meal;
    meal.RemoveRecipe("Mom's Day", "Mom's \"Pie\"");
    EXPECT_EQ(MealValue(id, "Desert").toString(), " ");
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, AuditWithPurgeDeletesPastMealsAndSaysHowMany) {
    Registry().MealAction(1);
    Dated("Monday, Nov 16 2026", "2026-11-16");
    Dated("Saturday, Nov 21 2026", "2026-11-21");
    const qint32 today = Dated("Sunday, Nov 22 2026", "2026-11-22");
    const qint32 later = Dated("Friday, Dec 25 2026", "2026-12-25");
    ui.answer(Answer::OK);
    clsMeal().AuditMeals();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "2 Meal(s) were deleted by the Auto-Purge process.");
    EXPECT_EQ(ui.lastBox().title, "Meal Auto-Purge");
    EXPECT_EQ(Column("SELECT [ID] FROM Meal ORDER BY [ID]", "ID"),
              QStringList({QString::number(today), QString::number(later)}));

    // Nothing past: no message.
    clsMeal().AuditMeals();
    EXPECT_EQ(ui.count(), 1);
}

TEST_F(MealTest, AuditOtherwiseMovesPastMealsOnOneWeekAndKeepsTheirNames) {
    Registry().MealAction(2);
    const qint32 weeks = Dated("Sunday, Nov 1 2026", "2026-11-01");
    const qint32 yesterday = Dated("Saturday, Nov 21 2026", "2026-11-21");
    const qint32 future = Dated("Friday, Dec 25 2026", "2026-12-25");
    ui.answer(Answer::OK);
    clsMeal().AuditMeals();
    ASSERT_EQ(ui.count(), 1);
    EXPECT_EQ(ui.lastBox().prompt, "2 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(MealValue(weeks, "Dates").toString(), "2026-11-08");
    EXPECT_EQ(MealValue(yesterday, "Dates").toString(), "2026-11-28");
    EXPECT_EQ(MealValue(future, "Dates").toString(), "2026-12-25");
    EXPECT_EQ(MealValue(weeks, "Name").toString(), "Sunday, Nov 1 2026");

    // Still past: it moves once more at the next audit, and only it is counted.
    ui.answer(Answer::OK);
    clsMeal().AuditMeals();
    EXPECT_EQ(ui.lastBox().prompt, "1 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(MealValue(weeks, "Dates").toString(), "2026-11-15");

    Registry().MealAction(3);  // any value but 1 advances
    ui.answer(Answer::OK);
    clsMeal().AuditMeals();
    EXPECT_EQ(MealValue(weeks, "Dates").toString(), "2026-11-22");
    EXPECT_EQ(ui.count(), 3);
    clsMeal().AuditMeals();
    EXPECT_EQ(ui.count(), 3);
}

TEST_F(MealTest, AuditLeavesUndatedMealsAloneWhenAdvancing) {
    Registry().MealAction(2);
    MealRow undated;
    undated.name = "Taco Night";
    const qint32 id = AddMeal(undated);
    clsMeal().AuditMeals();
    EXPECT_EQ(ui.count(), 0);
    EXPECT_EQ(MealValue(id, "Dates").toString(), "");
}

TEST_F(MealTest, AddNewAlwaysAddsARowEvenForAKnownName) {
    clsMeal meal;
    meal.Name("Mom's Birthday");
    meal.Meal("Dinner");
    meal.MainCourse("Chili");
    meal.Favorite(true);
    EXPECT_TRUE(meal.AddNew());
    EXPECT_TRUE(meal.AddNew());
    EXPECT_EQ(Column("SELECT [Name] FROM Meal", "Name"), QStringList({"Mom's Birthday", "Mom's Birthday"}));
    // Members are cut to their columns' lengths when set.
    meal.Name(QString(90, QLatin1Char('n')));
    EXPECT_EQ(meal.Name().size(), 80);
}
