#include "meals/MealCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "platform/Ui.h"

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

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuPurgeExpiredMeals"), mnuPurgeExpiredMeals_Click);
}

}  // namespace MealCommands
