#include "core/CommandRegistry.h"

#include "core/ErrorReport.h"

void CommandRegistry::Add(const QString& key, Handler handler) { handlers_.insert(key, std::move(handler)); }

bool CommandRegistry::Run(const QString& key) const {
    const auto it = handlers_.constFind(key);
    if (it == handlers_.constEnd()) return false;
    const Handler handler = *it;  // a handler may register others while it runs
    Trap(QStringLiteral("frmMain.") + key, [&] { handler(); });
    return true;
}
