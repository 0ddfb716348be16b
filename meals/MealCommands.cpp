#include "meals/MealCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "meals/frmNewMeal.h"
#include "platform/Ui.h"

#include <QStandardItem>

namespace MealCommands {

void mnuPurgeExpiredMeals_Click() {
    // The planner's unsaved plan may hold the very meals the purge would take.
    if (MealBeingEdited()) {
        MsgBox(QStringLiteral("You must first save any Meals that you are working on."), Box::Exclamation,
               QStringLiteral("Save Meals"));
        return;
    }
    if (Registry().MealAction() == 2) {
        Response = MsgBox(QStringLiteral("You have setup Larderkeep to automatically advance expired Meals dates by 7 "
                                         "days. Do you still wish to purge expired Meals?"),
                          Box::YesNo + Box::Question, QStringLiteral("Purge"));
        if (Response == Answer::No) return;
    }
    // The purge has the window read the meals again when it removed any.
    qint32 count = 0;
    clsMeal().Purge(1, count);
    MsgBox(QString::number(count) + QStringLiteral(" Meals were removed from the database."), Box::Information,
           QStringLiteral("Purge Complete"));
}

void mnuNewMeal_Click() { frmNewMeal::Open(); }

void mnuSAMEditMealList_Click() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.meals);
    while (node && node->parent()) node = node->parent();
    if (!node) {
        frmNewMeal::Open();
        return;
    }
    frmNewMeal::OpenForMeal(node->text());
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuPurgeExpiredMeals"), mnuPurgeExpiredMeals_Click);
    commands.Add(QStringLiteral("mnuNewMeal"), mnuNewMeal_Click);
    commands.Add(QStringLiteral("mnuSAMEditMealList"), mnuSAMEditMealList_Click);
}

}  // namespace MealCommands
