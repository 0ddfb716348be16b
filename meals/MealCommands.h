#pragma once

class CommandRegistry;

// The main window's meal commands.
namespace MealCommands {
void Register(CommandRegistry& commands);

void mnuPurgeExpiredMeals_Click();
}  // namespace MealCommands
