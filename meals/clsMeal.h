#pragma once

#include "core/RecordsetClass.h"

#include <QString>
#include <QVariant>

class QAbstractItemModel;
class QStandardItem;

// The gateway to the Meal table. A meal has no header row: it is the set of rows
// sharing one Name, one row per mealtime. Both sides of every property work on
// the object's members only; a member reaches a row only when the caller copies it.
// An operation that changed rows asks the main window once to read the meals
// again; AddNew does not, as its callers add rows one by one and show them
// themselves.
class clsMeal : public RecordsetClass {
public:
    clsMeal() = default;

    QString Name() const { return name_; }
    void Name(const QString& value) { name_ = value.left(80); }
    QString Meal() const { return meal_; }
    void Meal(const QString& value) { meal_ = value.left(50); }
    QString Category() const { return category_; }
    void Category(const QString& value) { category_ = value.left(50); }
    QString Dates() const { return dates_; }
    void Dates(const QString& value) { dates_ = value; }
    QString Appetizer() const { return appetizer_; }
    void Appetizer(const QString& value) { appetizer_ = value.left(50); }
    QString MainCourse() const { return mainCourse_; }
    void MainCourse(const QString& value) { mainCourse_ = value.left(50); }
    QString SideDishOne() const { return sideDishOne_; }
    void SideDishOne(const QString& value) { sideDishOne_ = value; }
    QString SideDishTwo() const { return sideDishTwo_; }
    void SideDishTwo(const QString& value) { sideDishTwo_ = value; }
    QString SideDishThree() const { return sideDishThree_; }
    void SideDishThree(const QString& value) { sideDishThree_ = value; }
    QString Desert() const { return desert_; }
    void Desert(const QString& value) { desert_ = value; }
    bool Favorite() const { return favorite_; }
    void Favorite(bool value) { favorite_ = value; }
    bool Cheap() const { return cheap_; }
    void Cheap(bool value) { cheap_ = value; }

    // Adds one row from the members; an existing meal of that name is not looked at.
    bool AddNew();

    // Whether a meal of that name has a row.
    bool Exists(const QString& name);
    // Whether a meal is set on that date. The value goes into the query
    // unquoted, as it comes: text that breaks the query ends in the error box.
    bool DateTaken(const QString& date);
    bool IsFavorite(const QString& name);

    // These three act on the meal's first row only; its other rows keep what
    // they hold.
    void ToggleFavorite(const QString& name);
    bool Remove(const QString& name);
    bool ChangeName(const QString& oldName, const QString& newName);

    // Deletes the row of one mealtime of a meal, when there is one.
    void RemoveCourse(const QString& name, const QString& mealtime);
    void ChangeDate(const QString& name, const QString& mealtime, const QVariant& date);
    // Planned, not there yet: they do nothing.
    void ChangeCourse(const QString& name, const QString& course, const QString& title);
    void CreateVCalItem(const QString& name, const QString& date);

    // Meals dated before today, undated ones never: mode 1 deletes them, mode 2
    // only counts them. Gives the count, also in `count`.
    qint32 Purge(int mode, qint32& count);

    // Run while the main window loads its meal list: past meals are deleted or
    // moved on a week, as EXPIRED_MEAL_ACTION says; undated meals are never
    // touched. No handler of its own: a failure goes to the caller's. It does
    // not ask the window to reload, as the window is loading.
    void AuditMeals();
    // Clears `title` from every course of the meal `name` (of every meal when
    // `name` is empty), writing " " into the course. The rows stay.
    void RemoveRecipe(const QString& name, const QString& title);

    // `week` is a week key as YearWeek gives it, in text. With meals that week
    // there is nothing more to do; without, the person is told so.
    void PrintMealCalendar(const QString& week);

    // The planner's save hooks: they write nothing and answer True.
    bool SaveDailyMeals(QStandardItem* meal, int options);
    bool SaveSingleMeal(QStandardItem* meal, int options);
    bool SaveSingleMealCourse(QStandardItem* course, int options);

    // Notes each checked guest as served `title`. The guests are the top-level
    // rows of a checkable list (a guest list's model): the name in column 0 as
    // shown, the check in its check state.
    void SaveRecipeGuests(const QString& title, const QAbstractItemModel* guests);

private:
    // Deletes every row of the open recordset in one batch, showing how far it got.
    void DeleteEveryRow(const QString& label);

    QString name_, meal_, category_, dates_;
    QString appetizer_, mainCourse_, sideDishOne_, sideDishTwo_, sideDishThree_, desert_;
    bool favorite_ = false;
    bool cheap_ = false;
};
