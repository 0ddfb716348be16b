#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

// Fills the meal pane and the calendar's bold days from the Meal table.
namespace MealPane {
// Past meals are purged or moved on first.
void LoadMealList();
// One Meal row into the meal tree: the meal's node (made once per name) and a
// node per course that holds a recipe, in the order App, Main, SideOne,
// SideTwo, SideThree, Desert.
void AddMealRow(const QString& name, bool favorite, const QString& id, const QStringList& courses);
// The day shows bold on the calendar.
void MarkMealDay(const QDate& day);
}  // namespace MealPane
