#pragma once

#include <QString>
#include <functional>

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
void mnuPOPRecipieAddToShopList_Click();
void mnuEnterRecipies_Click();
void mnuPOPEditRecipie_Click();
void mnuPOPDisplayRecipie_Click();
void mnuPOPAddRecipeCategory_Click();
void mnuNewCookbook_Click();
void mnuRecStyles_Click();
void mnuOpenCookbook_Click();
void mnuCourseMapping_Click();
void mnuEditRecipeCookbook_Click();

// The entry screen over the recipe titled `title`, for changing it.
void EditRecipe(const QString& title);
// The recipe as text beside the main window.
void DisplayRecipe(const QString& title);

// The recipe onto the default shopping list, its use counted and the list pane
// read again when that went through. With no default list the recipe goes to a
// list named with today's long date, the name a dated list has. False when the
// recipe could not be added (the error box has said why).
bool AddRecipeToCurrentList(const QString& title);

// The list editor's special list for one recipe; the popup's Yes does nothing
// while this is not set.
extern std::function<void(const QString& title)> SpecialListHook;
}  // namespace RecipeCommands
