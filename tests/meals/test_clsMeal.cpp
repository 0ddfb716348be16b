#include "core/ChangeNotices.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "meals/MealCommands.h"
#include "meals/clsMeal.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

#include <QSignalSpy>
#include <QStandardItemModel>

// Today is pinned to Sunday 11/22/2026.
class MealTest : public LarderTest {
protected:
    void SetUp() override {
        LarderTest::SetUp();
        SetMealBeingEdited(false);
    }
    void TearDown() override {
        SetMealBeingEdited(false);
        LarderTest::TearDown();
    }

    static qint32 Dated(const QString& name, const QString& date, const QString& mealtime = "Dinner") {
        return rows::Meal(name, {{"Dates", date}, {"MainCourse", "Chili"}, {"Meal", mealtime}});
    }
    static QString Of(qint32 id, const QString& column) { return rows::Field("Meal", "ID", id, column).toString(); }
    static QStringList Ids(const QString& where = "") {
        return rows::Column("SELECT [ID] FROM Meal " + where + " ORDER BY [ID]", "ID");
    }
    static QStringList Ids(std::initializer_list<qint32> ids) {
        QStringList out;
        for (qint32 id : ids) out << QString::number(id);
        return out;
    }
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

    QSignalSpy reloads{&Notices(), &ChangeNotices::LoadMealList};
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
    EXPECT_EQ(reloads.count(), 1);

    meal.RemoveRecipe("", "Chili");
    EXPECT_EQ(Of(b, "SideDishfour"), " ");
    EXPECT_EQ(Of(b, "Appetizer"), "Chili Dog");
    meal.RemoveRecipe("Mom's Day", "Mom's \"Pie\"");
    EXPECT_EQ(Of(quoted, "Desert"), " ");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 3);
    EXPECT_EQ(reloads.count(), 3);
    meal.RemoveRecipe("", "Nothing on any meal");
    EXPECT_EQ(reloads.count(), 3);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, AuditWithPurgeDeletesPastMealsButNeverUndatedOnesAndSaysHowMany) {
    Registry().MealAction(1);
    Dated("Monday, Nov 16 2026", "2026-11-16");
    Dated("Saturday, Nov 21 2026", "2026-11-21");
    Dated("Garbled", "13/45/99");  // no date, yet before today as the database compares
    const qint32 undated = rows::Meal("Taco Night");
    const qint32 today = Dated("Sunday, Nov 22 2026", "2026-11-22");
    const qint32 later = Dated("Friday, Dec 25 2026", "2026-12-25");
    EXPECT_EQ(Audit(), "3 Meal(s) were deleted by the Auto-Purge process.");
    EXPECT_EQ(ui.lastBox().title, "Meal Auto-Purge");
    EXPECT_EQ(Ids(), Ids({undated, today, later}));
    EXPECT_EQ(Audit(), "");         // nothing past: no message
    EXPECT_EQ(reloads.count(), 0);  // the window is loading when it audits
}

TEST_F(MealTest, AuditOtherwiseMovesPastMealsOnOneWeekAndKeepsTheirNames) {
    Registry().MealAction(2);
    const qint32 weeks = Dated("Sunday, Nov 1 2026", "2026-11-01");
    const qint32 yesterday = Dated("Saturday, Nov 21 2026", "2026-11-21");
    const qint32 future = Dated("Friday, Dec 25 2026", "2026-12-25");
    const qint32 undated = rows::Meal("Taco Night");
    const qint32 garbled = Dated("Garbled", "13/45/99");
    EXPECT_EQ(Audit(), "2 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(QStringList({Of(weeks, "Dates"), Of(yesterday, "Dates"), Of(future, "Dates"), Of(undated, "Dates"),
                           Of(garbled, "Dates")}),
              QStringList({"2026-11-08", "2026-11-28", "2026-12-25", "", "13/45/99"}));
    EXPECT_EQ(Of(weeks, "Name"), "Sunday, Nov 1 2026");

    // Still past: it moves once more at the next audit, and only it is counted.
    EXPECT_EQ(Audit(), "1 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
    EXPECT_EQ(Of(weeks, "Dates"), "2026-11-15");
    Registry().MealAction(3);  // any value but 1 advances
    EXPECT_NE(Audit(), "");
    EXPECT_EQ(Of(weeks, "Dates"), "2026-11-22");
    EXPECT_EQ(Audit(), "");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 5);
    EXPECT_EQ(reloads.count(), 0);
}

TEST_F(MealTest, PurgeCountsOrDeletesDatedPastMealsOnly) {
    const qint32 past = Dated("Monday, Nov 16 2026", "2026-11-16");
    Dated("Tuesday, Nov 17 2026", "2026-11-17", "Lunch");
    const qint32 undated = rows::Meal("Taco Night");
    const qint32 today = Dated("Sunday, Nov 22 2026", "2026-11-22");
    clsMeal meal;
    qint32 count = -1;
    EXPECT_EQ(meal.Purge(2, count), 2);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 4);
    EXPECT_EQ(reloads.count(), 0);

    EXPECT_EQ(meal.Purge(1, count), 2);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(Ids(), Ids({undated, today}));
    EXPECT_EQ(Of(past, "Name"), "");
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_EQ(meal.Purge(1, count), 0);
    EXPECT_EQ(reloads.count(), 1);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, PurgeCommandRefusesWhileAMealIsEditedAndAsksWhenMealsAdvance) {
    Dated("Monday, Nov 16 2026", "2026-11-16");
    Dated("Tuesday, Nov 17 2026", "2026-11-17");
    const qint32 undated = rows::Meal("Taco Night");

    SetMealBeingEdited(true);
    ui.answer(Answer::OK);
    MealCommands::mnuPurgeExpiredMeals_Click();
    EXPECT_EQ(LastBox(), "Save Meals: You must first save any Meals that you are working on.");
    SetMealBeingEdited(false);

    Registry().MealAction(2);
    ui.answer(Answer::No);
    MealCommands::mnuPurgeExpiredMeals_Click();
    EXPECT_EQ(LastBox(),
              "Purge: You have setup Larderkeep to automatically advance expired Meals dates by 7 days. Do "
              "you still wish to purge expired Meals?");
    EXPECT_EQ(rows::Count("SELECT * FROM Meal"), 3);
    EXPECT_EQ(reloads.count(), 0);

    ui.answer(Answer::Yes);
    ui.answer(Answer::OK);
    MealCommands::mnuPurgeExpiredMeals_Click();
    EXPECT_EQ(LastBox(), "Purge Complete: 2 Meals were removed from the database.");
    EXPECT_EQ(Ids(), Ids({undated}));
    EXPECT_EQ(reloads.count(), 1);

    Registry().MealAction(1);  // removing is the setting: no question
    ui.answer(Answer::OK);
    MealCommands::mnuPurgeExpiredMeals_Click();
    EXPECT_EQ(ui.prompts().last(), "0 Meals were removed from the database.");
    EXPECT_EQ(ui.count(), 5);
}

TEST_F(MealTest, AddNewAlwaysAddsARowAndLookupsFindMealsByNameAndDate) {
    clsMeal meal;
    meal.Name("Mom's Birthday");
    meal.Meal("Dinner");
    meal.Dates("11/29/26");
    meal.MainCourse("Chili");
    meal.Favorite(true);
    EXPECT_TRUE(meal.AddNew());
    EXPECT_TRUE(meal.AddNew());
    EXPECT_EQ(rows::Column("SELECT [Name] FROM Meal", "Name"), QStringList({"Mom's Birthday", "Mom's Birthday"}));
    // Members are cut to their columns' lengths when set.
    meal.Name(QString(90, 'n'));
    EXPECT_EQ(meal.Name().size(), 80);

    EXPECT_TRUE(meal.Exists("Mom's Birthday"));
    EXPECT_FALSE(meal.Exists("Mom's"));
    EXPECT_TRUE(meal.IsFavorite("Mom's Birthday"));
    EXPECT_FALSE(meal.IsFavorite("Nobody's"));
    // A date is found in whatever hand it is written.
    EXPECT_TRUE(meal.DateTaken("11/29/26"));
    EXPECT_TRUE(meal.DateTaken("Sunday, Nov 29 2026"));
    EXPECT_FALSE(meal.DateTaken("11/30/26"));
    EXPECT_EQ(ui.count(), 0);

    // The date goes in unquoted: an apostrophe breaks the query, which is reported.
    ui.answer(Answer::OK);
    EXPECT_FALSE(meal.DateTaken("Mom's"));
    EXPECT_EQ(ui.lastBox().title, "Error");
    EXPECT_TRUE(ui.lastBox().prompt.startsWith("Error: "));
    EXPECT_TRUE(ui.lastBox().prompt.endsWith(" (Occurred in Meal.DateTaken)"));
}

TEST_F(MealTest, RemoveRenameAndFavoriteTouchTheFirstRowOfAMealOnly) {
    const qint32 breakfast = Dated("Mom's Day", "2026-11-29", "Breakfast");
    const qint32 lunch = Dated("Mom's Day", "2026-11-29", "Lunch");
    const qint32 dinner = Dated("Mom's Day", "2026-11-29", "Dinner");
    clsMeal meal;
    meal.ToggleFavorite("Mom's Day");
    EXPECT_EQ(rows::Column("SELECT * FROM Meal ORDER BY [ID]", "Favorite"), QStringList({"True", "False", "False"}));
    EXPECT_TRUE(meal.IsFavorite("Mom's Day"));
    meal.ToggleFavorite("Mom's Day");
    EXPECT_FALSE(meal.IsFavorite("Mom's Day"));

    EXPECT_TRUE(meal.ChangeName("Mom's Day", "Dad's Day"));
    EXPECT_EQ(rows::Column("SELECT * FROM Meal ORDER BY [ID]", "Name"),
              QStringList({"Dad's Day", "Mom's Day", "Mom's Day"}));
    EXPECT_TRUE(meal.Remove("Mom's Day"));
    EXPECT_EQ(Ids(), Ids({breakfast, dinner}));
    EXPECT_EQ(Of(lunch, "Name"), "");

    meal.ChangeDate("Mom's Day", "Dinner", QDate(2026, 12, 6));
    meal.ChangeDate("Mom's Day", "Breakfast", QDate(2026, 12, 7));  // no such row: nothing changes
    EXPECT_EQ(QStringList({Of(breakfast, "Dates"), Of(dinner, "Dates")}), QStringList({"2026-11-29", "2026-12-06"}));
    meal.RemoveCourse("Mom's Day", "Lunch");
    meal.RemoveCourse("Dad's Day", "Breakfast");
    EXPECT_EQ(Ids(), Ids({dinner}));
    EXPECT_EQ(reloads.count(), 6);
    EXPECT_EQ(ui.count(), 0);
}

TEST_F(MealTest, TheWeekCalendarTellsOfAnEmptyWeekOnly) {
    Dated("Tuesday, Dec 1 2026", "2026-12-01");
    clsMeal meal;
    meal.PrintMealCalendar("202649");  // Nov 29 to Dec 6: the meal is there
    EXPECT_EQ(ui.count(), 0);
    for (const char* week : {"202648", "202650", "202601"}) {  // the last one is past
        ui.answer(Answer::OK);
        meal.PrintMealCalendar(week);
    }
    EXPECT_EQ(ui.prompts(), QStringList({"There are no Meals entered during week 48 of 2026.",
                                         "There are no Meals entered during week 50 of 2026.",
                                         "There are no Meals entered during week 1 of 2026."}));
    EXPECT_EQ(ui.lastBox().title, "Notice");
}

TEST_F(MealTest, TheCheckedGuestsAreServedTheRecipe) {
    QStandardItemModel guests;
    for (const auto& [name, checked] : QList<QPair<QString, bool>>{{"Ann", true}, {"Bob", false}, {"O'Neil", true}}) {
        auto* guest = new QStandardItem(name);
        guest->setCheckable(true);
        guest->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
        guests.appendRow(guest);
    }
    clsMeal().SaveRecipeGuests("Mom's Pie", &guests);
    EXPECT_EQ(rows::Joined("SELECT * FROM GuestServed ORDER BY [GuestName]", {"GuestName", "RecipeName"}),
              QStringList({"Ann|Mom's Pie", "O'Neil|Mom's Pie"}));
}
