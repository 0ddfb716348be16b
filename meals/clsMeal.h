#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The gateway to the Meal table. A meal has no header row: it is the set of rows
// sharing one Name, one row per mealtime. Both sides of every property work on
// the object's members only; a member reaches a row only when the caller copies it.
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
    // Run while the main window loads its meal list: past meals are deleted or
    // moved on a week, as EXPIRED_MEAL_ACTION says. No handler of its own: a
    // failure goes to the caller's.
    void AuditMeals();
    // Clears `title` from every course of the meal `name` (of every meal when
    // `name` is empty), writing " " into the course. The rows stay.
    void RemoveRecipe(const QString& name, const QString& title);

private:
    QString name_, meal_, category_, dates_;
    QString appetizer_, mainCourse_, sideDishOne_, sideDishTwo_, sideDishThree_, desert_;
    bool favorite_ = false;
    bool cheap_ = false;
};
