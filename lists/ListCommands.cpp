#include "lists/ListCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "lists/frmShoppingList.h"
#include "lists/frmShoppingListGenerate.h"
#include "platform/Ui.h"

namespace ListCommands {

void mnuGenerateList_Click() {
    frmShoppingListGenerate form(MainWindow());
    ExplodeForm(&form, Registry().ExplodeRate());
    TheUi().ShowModal(&form);
}

frmShoppingList* OpenSpecialList(const QString& recipeTitle) {
    auto* editor = new frmShoppingList(MainWindow());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    editor->AddRecipe(recipeTitle);
    TheUi().ShowModeless(editor, MainWindow());
    return editor;
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuGenerateList"), mnuGenerateList_Click);
}

}  // namespace ListCommands
