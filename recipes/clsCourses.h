#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// The map from a recipe category to a course ("Appetizer", "Main Course",
// "Desert"), from which a recipe's course is worked out.
class clsCourses : public RecordsetClass {
public:
    QString Category() const;
    void Category(const QString& value) { category_ = value; }
    QString Course() const;
    void Course(const QString& value) { course_ = value; }

    bool IsMapped(const QString& category);
    QString GetCourse(const QString& category);
    // Adds the mapping and sets the course of every recipe whose Style mentions
    // the category anywhere: Fish reaches Shellfish too. No handler of its own.
    void WriteNew(const QString& category, const QString& course);
    // Empties the map. No handler of its own.
    void ClearAll();

private:
    QString category_;
    QString course_;
};
