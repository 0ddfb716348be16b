#include "meals/MealPane.h"

#include "core/Dates.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "meals/clsMeal.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

#include <QStandardItem>

namespace MealPane {

void AddMealRow(const QString& name, bool favorite, const QString& id, const QStringList& courses) {
    static const char* const kCourseKeys[] = {"App", "Main", "SideOne", "SideTwo", "SideThree", "Desert"};
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* meal = panes.FindByKey(panes.meals, QStringLiteral("Meal::") + name);
    if (!meal) {
        meal = MainPanes::MealNode(name);
        panes.meals.appendRow(meal);
    }
    if (favorite) {
        panes.SetBold(meal);
        panes.SetImageKey(meal, QStringLiteral("MealFavorite"));
    }
    QList<QStandardItem*> dishes;
    for (int i = 0; i < 6 && i < courses.size(); ++i) {
        // A cleared course holds one blank.
        if (courses[i].trimmed().isEmpty()) continue;
        dishes << MainPanes::DishNode(id + QString::fromLatin1(kCourseKeys[i]), courses[i]);
    }
    if (!dishes.isEmpty()) meal->appendRows(dishes);
}

void MarkMealDay(const QDate& day) {
    if (!day.isValid()) return;
    MainPanes& panes = MainPanes::Instance();
    panes.boldMealDates.insert(day);
    Q_EMIT panes.mealDatesChanged();
}

void LoadMealList() {
    // A failure of the audit goes to our caller.
    clsMeal audit;
    audit.AuditMeals();

    MainPanes& panes = MainPanes::Instance();
    panes.Clear(panes.meals);
    panes.boldMealDates.clear();
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    static const char* const kCourses[] = {"Appetizer",   "MainCourse",    "SideDishOne",
                                           "SideDishTwo", "SideDishThree", "Desert"};
    while (!rs.IsEOF()) {
        QStringList courses;
        for (const char* course : kCourses) courses << TextOf(rs.Field(QString::fromLatin1(course)));
        const QVariant mark = rs.Field(QStringLiteral("Favorite"));
        AddMealRow(TextOf(rs.Field(QStringLiteral("Name"))), !IsNull(mark) && !IsEmpty(mark) && CBool(mark),
                   TextOf(rs.Field(QStringLiteral("ID"))), courses);
        const QVariant when = rs.Field(QStringLiteral("Dates"));
        if (IsDate(when)) panes.boldMealDates.insert(CDate(when).date());
        rs.MoveNext();
    }
    rs.Close();
    Q_EMIT panes.mealDatesChanged();
}

}  // namespace MealPane
