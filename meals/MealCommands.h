#pragma once

class CommandRegistry;

// The main window's meal commands.
namespace MealCommands {
void Register(CommandRegistry& commands);

void mnuPurgeExpiredMeals_Click();
void mnuNewMeal_Click();
// The meal selected in the meal pane, opened in the planner with its courses.
void mnuSAMEditMealList_Click();
}  // namespace MealCommands
