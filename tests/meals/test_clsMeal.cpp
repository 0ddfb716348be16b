#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

// Today is pinned to Sunday 11/22/2026.
class MealTest : public LarderTest {
protected:
    static qint32 Dated(const QString& name, const QString& date) {
        return rows::Meal(name, {{"Dates", date}, {"MainCourse", "Chili"}});
    }
    static QString Of(qint32 id, const QString& column) { return rows::Field("Meal", "ID", id, column).toString(); }
    // Runs the audit, answering its notice if one comes.
    QString Audit() {
        ui.answer(Answer::OK);
        const int before = ui.count();
        clsMeal().AuditMeals();
        if (ui.count() == before) {
            ui.clear();  // drops the unused answer
            return QString();
        }
        return ui.lastBox().prompt;
    }
};

TEST_F(MealTest, RemoveRecipeClearsTheTitleInEveryCourseAndKeepsTheRows) {
    const QStringList courses = {"Appetizer",   "MainCourse",    "Desert",      "SideDishOne",
                                 "SideDishTwo", "SideDishThree", "SideDishfour"};
    QVariantMap all;
    for (const QString& c : courses) all.insert(c, "Chili");
    const qint32 a = rows::Meal("Feast", all);
    const qint32 b = rows::Meal("Supper", {{"Appetizer", "Chili Dog"}, {"SideDishfour", "Chili"}});
    const qint32 quoted = rows::Meal("Mom's Day", {{"Desert", "Mom's \"Pie\""}});

    clsMeal meal;
    meal.RemoveRecipe("Feast", "Chili");
    for (const QString& c : courses) EXPECT_EQ(Of(a, c), " ") << c.toStdString();
    EXPECT_EQ(Of(b, "SideDishfour"), "Chili");  // another meal: untouched

    meal.RemoveRecipe("", "Chili");
    EXPECT_EQ(Of(b, "SideDishfour"), " ");
    EXPECT_EQ(Of(b, "Appetizer"), "Chili Dog");
    meal.RemoveRecipe("Mom's Day", "Mom's \"Pie\"");
    EXPECT_EQ(Of(quoted, "Desert"), " ");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 3);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, AuditWithPurgeDeletesPastMealsAndSaysHowMany) {
    Registry().MealAction(1);
    Dated("Monday, Nov 16 2026", "2026-11-16");
    Dated("Saturday, Nov 21 2026", "2026-11-21");
    const qint32 today = Dated("Sunday, Nov 22 2026", "2026-11-22");
    const qint32 later = Dated("Friday, Dec 25 2026", "2026-12-25");
    EXPECT_EQ(Audit(), "2 Meal(s) were deleted by the Auto-Purge process.");
    EXPECT_EQ(ui.lastBox().title, "Meal Auto-Purge");
    EXPECT_EQ(rows::Column("SELECT [ID] FROM Meal ORDER BY [ID]", "ID"),
              QStringList({QString::number(today), QString::number(later)}));
    EXPECT_EQ(Audit(), "");  // nothing past: no message
}

TEST_F(MealTest, AuditOtherwiseMovesPastMealsOnOneWeekAndKeepsTheirNames) {
    Registry().MealAction(2);
    const qint32 weeks = Dated("Sunday, Nov 1 2026", "2026-11-01");
    const qint32 yesterday = Dated("Saturday, Nov 21 2026", "2026-11-21");
    const qint32 future = Dated("Friday, Dec 25 2026", "2026-12-25");
    const qint32 undated = rows::Meal("Taco Night");
    EXPECT_EQ(Audit(), "2 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(QStringList({Of(weeks, "Dates"), Of(yesterday, "Dates"), Of(future, "Dates"), Of(undated, "Dates")}),
              QStringList({"2026-11-08", "2026-11-28", "2026-12-25", ""}));
    EXPECT_EQ(Of(weeks, "Name"), "Sunday, Nov 1 2026");

    // Still past: it moves once more at the next audit, and only it is counted.
    EXPECT_EQ(Audit(), "1 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(Of(weeks, "Dates"), "2026-11-15");
    Registry().MealAction(3);  // any value but 1 advances
    EXPECT_NE(Audit(), "");
    EXPECT_EQ(Of(weeks, "Dates"), "2026-11-22");
    EXPECT_EQ(Audit(), "");
}

TEST_F(MealTest, AddNewAlwaysAddsARowEvenForAKnownName) {
    clsMeal meal;
    meal.Name("Mom's Birthday");
    meal.Meal("Dinner");
    meal.MainCourse("Chili");
    meal.Favorite(true);
    EXPECT_TRUE(meal.AddNew());
    EXPECT_TRUE(meal.AddNew());
    EXPECT_EQ(rows::Column("SELECT [Name] FROM Meal", "Name"), QStringList({"Mom's Birthday", "Mom's Birthday"}));
    // Members are cut to their columns' lengths when set.
    meal.Name(QString(90, 'n'));
    EXPECT_EQ(meal.Name().size(), 80);
}
