#include "core/CommandRegistry.h"

#include "core/ErrorReport.h"

void CommandRegistry::Add(const QString& key, Handler handler) { handlers_.insert(key, std::move(handler)); }

bool CommandRegistry::Run(const QString& key) const {
    const auto it = handlers_.constFind(key);
    if (it == handlers_.constEnd()) return false;
    const Handler handler = *it;  // a handler may register others while it runs
    const QString where = QStringLiteral("frmMain.") + key;
    try {
        Trap(where, [&] { handler(); });
    } catch (...) {
        ReportErrorText(QStringLiteral("Error: an unexpected failure (Occurred in ") + where + QLatin1Char(')'));
    }
    return true;
}
