#pragma once

#include <QString>

class CommandRegistry;

// The main window's store and item category commands.
namespace StoreCommands {
void Register(CommandRegistry& commands);

void mnuAddNewStore_Click();
void mnuEnterItemCategories_Click();
void mnuImportStoreMap_Click();
void mnuExportStoreMap_Click();
void mnuSetupStoreIsles_Click();
void mnuDisplayAllStores_Click();
void mnuPrintStoreLayout_Click();
// The aisle setup of one store, opened from anywhere that names a store.
void OpenIsleSetup(const QString& store);
// The full screens for adding a store and for the item categories.
void ShowNewStore();
void ShowItemCategories();
}  // namespace StoreCommands
