#pragma once

#include <QString>

class CommandRegistry;
class frmShoppingList;

// The main window's shopping list commands.
namespace ListCommands {
void Register(CommandRegistry& commands);

void mnuGenerateList_Click();
// A list just for one recipe: a fresh editor holding that recipe's lines,
// standing beside the main window until it is closed. Gives the editor.
frmShoppingList* OpenSpecialList(const QString& recipeTitle);
}  // namespace ListCommands
