#include "recipes/RecipeCommands.h"

#include "core/ChangeNotices.h"
#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Clock.h"
#include "platform/Ui.h"
#include "recipes/RecipeComparisons.h"
#include "recipes/clsRecipies.h"
#include "recipes/frmAddRecipeCategory.h"
#include "recipes/frmAllCookBooks.h"
#include "recipes/frmChangeRecipeCookbook.h"
#include "recipes/frmRecCourses.h"
#include "recipes/frmNewCookbook.h"
#include "recipes/frmNewRecipies.h"
#include "recipes/frmRecStyles.h"
#include "recipes/frmRecipieQuickView.h"

#include <QStandardItem>
#include <memory>

namespace {

// The recipe node selected in the tree, nullptr when a category or nothing is.
QStandardItem* SelectedRecipe() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.recipes);
    return MainPanes::IsRecipeNode(node) ? node : nullptr;
}

}  // namespace

namespace RecipeCommands {

std::function<void(const QString& title)> SpecialListHook;

void mnuCloseCookbook_Click() {
    CurrentCookbook.clear();
    Q_EMIT Notices().LoadRecipies();
}

void mnuClearRecipeComparasions_Click() {
    RecipeComparisons::Instance().Clear();
    // The tree's compared recipes look like the others again.
    MainPanes& panes = MainPanes::Instance();
    for (QStandardItem* node : panes.AllNodes(panes.recipes)) {
        const QString key = node->data(MainPanes::ImageKeyRole).toString();
        if (key == QLatin1String("RecipeCompare"))
            panes.SetImageKey(node, QStringLiteral("Recipe"));
        else if (key == QLatin1String("RecipeCompareFavorite"))
            panes.SetImageKey(node, QStringLiteral("RecipeFavorite"));
    }
}

void mnuPOPToggleFavorite_Click() {
    QStandardItem* node = SelectedRecipe();
    if (!node) return;
    const QString title = node->text();
    clsRecipies recipes;
    recipes.MarkFavorite(title);
    // The tree follows the new mark on every node of the recipe.
    MainPanes& panes = MainPanes::Instance();
    const bool nowFavourite = node->data(MainPanes::TagRole).toString() != QLatin1String("RecipeFavorite");
    for (QStandardItem* n : panes.AllNodes(panes.recipes)) {
        if (!MainPanes::IsRecipeNode(n) || n->text() != title) continue;
        if (n->data(MainPanes::TagRole).toString() != QLatin1String("Recipe Title"))
            n->setData(nowFavourite ? QStringLiteral("RecipeFavorite") : QStringLiteral("Recipe"), MainPanes::TagRole);
        const QString key = n->data(MainPanes::ImageKeyRole).toString();
        const bool compared = key.startsWith(QLatin1String("RecipeCompare"));
        panes.SetImageKey(
            n, compared ? (nowFavourite ? QStringLiteral("RecipeCompareFavorite") : QStringLiteral("RecipeCompare"))
                        : (nowFavourite ? QStringLiteral("RecipeFavorite") : QStringLiteral("Recipe")));
        if (nowFavourite)
            n->setData(QVariant(), Qt::ForegroundRole);
        else
            panes.SetColour(n, QColor(100, 100, 100));
    }
    Q_EMIT Notices().ApplyRecipeFilter();
}

void mnuPOPPrintRecipie_Click() {
    if (QStandardItem* node = SelectedRecipe()) clsRecipies().PrintPreview(node->text(), 1, QString());
}

void mnuPOPPrintPreview_Click() {
    if (QStandardItem* node = SelectedRecipe()) clsRecipies().PrintPreview(node->text(), 2, QString());
}

void mnuPOPAddRecipeToComparison_Click() {
    QStandardItem* node = SelectedRecipe();
    if (!node) return;
    const QString title = node->text();
    RecipeComparisons::Instance().Add(title);
    MainPanes& panes = MainPanes::Instance();
    for (QStandardItem* n : panes.AllNodes(panes.recipes)) {
        if (!MainPanes::IsRecipeNode(n) || n->text() != title) continue;
        const bool favourite = n->data(MainPanes::ImageKeyRole).toString().contains(QLatin1String("Favorite")) ||
                               n->data(MainPanes::TagRole).toString() == QLatin1String("RecipeFavorite");
        panes.SetImageKey(n, favourite ? QStringLiteral("RecipeCompareFavorite") : QStringLiteral("RecipeCompare"));
    }
}

void mnuPOPDeleteRecipie_Click() {
    QStandardItem* node = SelectedRecipe();
    if (!node) return;
    const QString title = node->text();
    Response = MsgBox(QStringLiteral("Are you sure you want to delete ") + title +
                          QStringLiteral("? It is removed from every category, meal and comparison."),
                      Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Delete Recipe"));
    if (Response != Answer::Yes) return;
    clsRecipies recipes;
    const qint16 result = recipes.DeleteRecipie(title);
    if (result == 1)
        MsgBox(QStringLiteral("More than one recipe is titled ") + title + QStringLiteral(", so none was deleted."),
               Box::Exclamation, QStringLiteral("Delete Recipe"));
    else if (result == 2)
        MsgBox(title + QStringLiteral(" could not be found, so it was not deleted."), Box::Exclamation,
               QStringLiteral("Delete Recipe"));
    else
        RecipeComparisons::Instance().RemoveFirst(title);
    Q_EMIT Notices().SetCurrentRecipieCount();
}

bool AddRecipeToCurrentList(const QString& title) {
    QString recipe = title;
    QString list = Registry().CurrentShoppingList();
    // Nothing to ask here for a list: the recipe goes to today's list, named
    // as a dated list is.
    if (list.isEmpty()) list = Format(QVariant(Clock::Today()), QStringLiteral("dddd, mmm d yyyy"));
    // The generation, the count and the reload reach the list pane as one reload.
    NoticeBatch batch;
    if (!clsRecipies().GenerateList(recipe, list)) return false;
    clsRecipies().UpdateTimesUsed(title);
    Notices().ShoppingListChanged();
    return true;
}

void mnuPOPRecipieAddToShopList_Click() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.recipes);
    // Any recipe node: those loaded with the tree carry "Recipe" or
    // "RecipeFavorite", those added since "Recipe Title".
    if (!MainPanes::IsRecipeNode(node)) return;
    const QString title = node->text();
    Response = MsgBox(QStringLiteral("Would you like to create a list just for this item?"), Box::YesNo + Box::Question,
                      QStringLiteral("Special List"));
    if (Response == Answer::Yes) {
        if (SpecialListHook) SpecialListHook(title);
        return;
    }
    AddRecipeToCurrentList(title);
}

void mnuEnterRecipies_Click() {
    frmNewRecipies form(MainWindow());
    TheUi().ShowModal(&form);
}

void EditRecipe(const QString& title) {
    frmNewRecipies form(MainWindow());
    form.SetRecipe(QStringLiteral("EDIT") + title);
    // A recipe that could not be found has closed the screen already.
    if (!form.RecipeFound()) return;
    TheUi().ShowModal(&form);
}

void DisplayRecipe(const QString& title) {
    auto* form = new frmRecipieQuickView(MainWindow());
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->ImagePath = clsRecipies().GetRecipeImage(title);
    form->Display(title);
    TheUi().ShowModeless(form, MainWindow());
}

void mnuPOPEditRecipie_Click() {
    if (QStandardItem* node = SelectedRecipe()) EditRecipe(node->text());
}

void mnuPOPDisplayRecipie_Click() {
    if (QStandardItem* node = SelectedRecipe()) DisplayRecipe(node->text());
}

void mnuPOPAddRecipeCategory_Click() {
    QStandardItem* node = SelectedRecipe();
    if (!node) return;
    frmAddRecipeCategory form(node->text(), MainWindow());
    TheUi().ShowModal(&form);
}

void mnuNewCookbook_Click() {
    frmNewCookbook form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuRecStyles_Click() {
    frmRecStyles form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuOpenCookbook_Click() {
    frmAllCookBooks form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuCourseMapping_Click() {
    frmRecCourses form(MainWindow());
    TheUi().ShowModal(&form);
}

void mnuEditRecipeCookbook_Click() {
    frmChangeRecipeCookbook form(MainWindow());
    TheUi().ShowModal(&form);
    // The tree shows the current cookbook, which may have gained or lost recipes.
    Q_EMIT Notices().LoadRecipies();
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuOpenCookbook"), mnuOpenCookbook_Click);
    commands.Add(QStringLiteral("mnuAllCookbooks"), mnuOpenCookbook_Click);
    commands.Add(QStringLiteral("mnuCourseMapping"), mnuCourseMapping_Click);
    commands.Add(QStringLiteral("mnuEditRecipeCookbook"), mnuEditRecipeCookbook_Click);
    commands.Add(QStringLiteral("mnuMoveRecipies"), mnuEditRecipeCookbook_Click);
    commands.Add(QStringLiteral("mnuPOPAddRecipeCategory"), mnuPOPAddRecipeCategory_Click);
    commands.Add(QStringLiteral("mnuNewItem"), mnuNewCookbook_Click);
    commands.Add(QStringLiteral("mnuNewCookbook"), mnuNewCookbook_Click);
    commands.Add(QStringLiteral("mnuRecStyles"), mnuRecStyles_Click);
    commands.Add(QStringLiteral("mnuEnterRecipies"), mnuEnterRecipies_Click);
    commands.Add(QStringLiteral("mnuPOPEditRecipie"), mnuPOPEditRecipie_Click);
    commands.Add(QStringLiteral("mnuPOPDisplayRecipie"), mnuPOPDisplayRecipie_Click);
    commands.Add(QStringLiteral("mnuCloseCookbook"), mnuCloseCookbook_Click);
    commands.Add(QStringLiteral("mnuClearRecipeComparasions"), mnuClearRecipeComparasions_Click);
    commands.Add(QStringLiteral("mnuPOPToggleFavorite"), mnuPOPToggleFavorite_Click);
    commands.Add(QStringLiteral("mnuPOPPrintRecipie"), mnuPOPPrintRecipie_Click);
    commands.Add(QStringLiteral("mnuPOPPrintPreview"), mnuPOPPrintPreview_Click);
    commands.Add(QStringLiteral("mnuPOPAddRecipeToComparison"), mnuPOPAddRecipeToComparison_Click);
    commands.Add(QStringLiteral("mnuPOPDeleteRecipie"), mnuPOPDeleteRecipie_Click);
    commands.Add(QStringLiteral("mnuPOPRecipieAddToShopList"), mnuPOPRecipieAddToShopList_Click);
}

}  // namespace RecipeCommands
