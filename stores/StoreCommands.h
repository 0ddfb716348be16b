#pragma once

class CommandRegistry;

// The main window's store and item category commands.
namespace StoreCommands {
void Register(CommandRegistry& commands);

void mnuAddNewStore_Click();
void mnuEnterItemCategories_Click();
void mnuImportStoreMap_Click();
void mnuExportStoreMap_Click();
}  // namespace StoreCommands
