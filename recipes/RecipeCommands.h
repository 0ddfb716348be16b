#pragma once

class CommandRegistry;

// The main window's cookbook and recipe commands, and the recipe tree's popup.
namespace RecipeCommands {
void Register(CommandRegistry& commands);

void mnuCloseCookbook_Click();
void mnuClearRecipeComparasions_Click();
void mnuPOPToggleFavorite_Click();
void mnuPOPPrintRecipie_Click();
void mnuPOPPrintPreview_Click();
void mnuPOPAddRecipeToComparison_Click();
void mnuPOPDeleteRecipie_Click();
}  // namespace RecipeCommands
