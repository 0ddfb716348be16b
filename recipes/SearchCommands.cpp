#include "recipes/SearchCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "platform/Ui.h"
#include "recipes/frmRecipePreferences.h"
#include "recipes/frmRecipeSearch.h"
#include "recipes/frmRecipeSearchQuick.h"
#include "recipes/frmSuggestedRecipeSetup.h"

#include <memory>

namespace SearchCommands {

void mnuPOPFindRecipie_Click() { frmRecipeSearchQuick::Launch(); }

// The search stands beside the main window, so its results can be opened
// while it stays up for the next search.
void mnuPOPRecipeAdvancedSearch_Click() {
    auto* form = new frmRecipeSearch(MainWindow());
    form->setAttribute(Qt::WA_DeleteOnClose);
    TheUi().ShowModeless(form, MainWindow());
}

void mnuSuggetARecipe_Click() {
    std::unique_ptr<frmSuggestedRecipeSetup> setup(new frmSuggestedRecipeSetup(MainWindow()));
    TheUi().ShowModal(setup.get());
}

void mnuViewRecipePrefs_Click() {
    std::unique_ptr<frmRecipePreferences> screen(new frmRecipePreferences(MainWindow()));
    TheUi().ShowModal(screen.get());
}

void Register(CommandRegistry& commands) {
    // Searching the cookbook on show is a walk of the tree that shows it.
    commands.Add(QStringLiteral("mnuPOPSearchCurrentCookbook"), mnuPOPFindRecipie_Click);
    commands.Add(QStringLiteral("mnuPOPFindRecipie"), mnuPOPFindRecipie_Click);
    commands.Add(QStringLiteral("mnuPOPRecipeAdvancedSearch"), mnuPOPRecipeAdvancedSearch_Click);
    commands.Add(QStringLiteral("mnuSuggetARecipe"), mnuSuggetARecipe_Click);
    commands.Add(QStringLiteral("mnuViewRecipePrefs"), mnuViewRecipePrefs_Click);
}

}  // namespace SearchCommands
