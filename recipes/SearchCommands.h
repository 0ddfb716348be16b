#pragma once

class CommandRegistry;

// The main window's ways to find recipes: the quick find over the recipe
// tree, the search by conditions and the suggestions.
namespace SearchCommands {
void Register(CommandRegistry& commands);

void mnuPOPFindRecipie_Click();
void mnuPOPRecipeAdvancedSearch_Click();
void mnuSuggetARecipe_Click();
void mnuViewRecipePrefs_Click();
}  // namespace SearchCommands
