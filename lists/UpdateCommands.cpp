#include "lists/UpdateCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "lists/frmShoppingListUpdate.h"
#include "platform/Ui.h"

#include <memory>

namespace UpdateCommands {

void mnuEnterListData_Click() {
    auto screen = std::make_unique<frmShoppingListUpdate>(MainWindow());
    TheUi().ShowModal(screen.get());
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuEnterListData"), mnuEnterListData_Click);
}

}  // namespace UpdateCommands
