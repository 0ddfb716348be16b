#pragma once

class CommandRegistry;

// The main window's commands that print the shopping list: in a store's
// walking order, for every store, by category, and the choice of which lists
// make up the Current list.
namespace PrintCommands {
void Register(CommandRegistry& commands);

void mnuListByStore_Click();
void mnuPrintListForAllStores_Click();
void mnuPrintCurrentList_Click();
void mnuListByCategory_Click();
void mnuViewCurrent_Click();
}  // namespace PrintCommands
