#include "app/Application.h"

#include "core/ErrorReport.h"

#include <QWidget>

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event) {
    // The box names the screen and control the failure came from.
    auto where = [receiver] {
        QString name = receiver ? receiver->objectName() : QString();
        if (auto* widget = qobject_cast<QWidget*>(receiver); widget && widget->window() != widget)
            name = widget->window()->objectName() + QLatin1Char('.') + name;
        return name.isEmpty() ? QStringLiteral("Larderkeep") : name;
    };
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        ReportError(e, where());
    } catch (...) {
        ReportErrorText(QStringLiteral("Error: an unexpected failure (Occurred in ") + where() + QLatin1Char(')'));
    }
    return false;
}
