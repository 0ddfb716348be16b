#pragma once

#include <QString>

class CommandRegistry;
class frmShoppingList;

// The main window's shopping list commands.
namespace ListCommands {
void Register(CommandRegistry& commands);

void mnuGenerateList_Click();
// The list editor, empty, with the item box ready for typing.
void mnuEnterListItem_Click();
// A saved list picked from all of them, in the editor.
void mnuEditList_Click();
// The default list, or the one list the Current rows belong to, in the editor.
void mnuEditCurrentList_Click();
// An item searched for on the saved lists; its list opens in the editor.
void mnuSearchShoppingList_Click();
// The list of the line selected in the main window's Current list.
void mnuSAMEditShopList_Click();

// The editor standing beside the main window, made when there is none, with
// the list `listName` loaded ("" loads nothing) and the line of `itemName`
// selected. One editor serves every command, so a list is never open twice.
frmShoppingList* OpenEditor(const QString& listName = QString(), const QString& itemName = QString());
// A list just for one recipe: a fresh editor holding that recipe's lines,
// standing beside the main window until it is closed. Gives the editor.
frmShoppingList* OpenSpecialList(const QString& recipeTitle);
}  // namespace ListCommands
