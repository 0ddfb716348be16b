#include "core/ErrorReport.h"

#include "platform/RuntimeError.h"
#include "platform/Ui.h"

QString ErrorDescription(const std::exception& e) {
    if (const auto* r = dynamic_cast<const RuntimeError*>(&e)) return r->description();
    return QString::fromUtf8(e.what());
}

void ReportError(const std::exception& e, const QString& where) {
    ReportErrorText(QStringLiteral("Error: ") + ErrorDescription(e) + QStringLiteral(" (Occurred in ") + where +
                    QLatin1Char(')'));
}

void ReportErrorText(const QString& text, const QString& title) { MsgBox(text, Box::Critical, title); }
