#pragma once

class CommandRegistry;

// The main window's product and manufacturer commands.
namespace ProductCommands {
void Register(CommandRegistry& commands);

void mnuEnterProduct_Click();
// Editing starts from the listing, where the product is picked.
void mnuViewAllProducts_Click();
void mnuExportProduct_Click();
void mnuPrintProductList_Click();
void mnuRenameManufacturer_Click();
void mnuDeleteManufacturer_Click();
void mnuPOPShowProducts_Click();
// The person picks the product on the history screen itself.
void mnuProductSpendingHistory_Click();
void mnuProductCostHistory_Click();
void mnuProductSpendingReport_Click();
void mnuProductInventory_Click();
void mnuPrintInventoryReport_Click();
void mnuPrintInventoryWorkSheet_Click();
void mnuSuggestUsingInventory_Click();
}  // namespace ProductCommands
