#include "app/Application.h"

#include "core/ErrorReport.h"
#include "platform/ProgramFolder.h"
#include "platform/SettingsStore.h"

#include <QIcon>
#include <QWidget>
#include <cstdio>
#include <cstring>

// The icon is in the static library's resources, which the linker would drop
// unless something asks for them by name.
static void LoadIconResources() { Q_INIT_RESOURCE(resources); }

namespace {

void Print(std::FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // Desktops match the window to its launcher by this name (on Wayland only by it).
    setDesktopFileName(QString::fromLatin1(AppId));
    LoadIconResources();
    QIcon icon;
    for (int size : {48, 128, 256})
        icon.addFile(QStringLiteral(":/icons/larderkeep-%1.png").arg(size), QSize(size, size));
    setWindowIcon(icon);
}

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

QString Application::Version() {
    return QStringLiteral("Larderkeep %1.%2.%3\n").arg(LK_VERSION_MAJOR).arg(LK_VERSION_MINOR).arg(LK_VERSION_PATCH);
}

// The folders shown are the ones this start would use, environment included.
QString Application::Usage() {
    return QStringLiteral(
               "Usage: larderkeep [/L | /C | /I]\n"
               "       larderkeep --help | --version\n"
               "\n"
               "Larderkeep keeps a household's recipes, meals, shopping lists, coupons and pantry.\n"
               "Started without arguments it opens its main window.\n"
               "\n"
               "  /L          print the current shopping list at start\n"
               "  /C          print the coupon list at start\n"
               "  /I          print the inventory at start\n"
               "  -h, --help  show this help and end\n"
               "  --version   show the version and end\n"
               "\n"
               "Files:\n"
               "  data folder    %1\n"
               "                 (the database Larderkeep.mdb, dictionary, tips, exports)\n"
               "  settings file  %2\n"
               "\n"
               "Environment:\n"
               "  LARDERKEEP_HOME    the data folder (else ~/.local/share/Larderkeep)\n"
               "  LARDERKEEP_CONFIG  the settings file (else ~/.config/Larderkeep/Larderkeep.ini)\n"
               "  QT_QPA_PLATFORM    vnc: show the window to a VNC viewer on port 5900;\n"
               "                     offscreen: run with no display at all (with /L, /C, /I)\n")
        .arg(ProgramFolder::Path(), SettingsFilePath());
}

std::optional<int> Application::AnswerQuestion(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            Print(stdout, Usage());
            return 0;
        }
        if (std::strcmp(argv[i], "--version") == 0) {
            Print(stdout, Version());
            return 0;
        }
    }
    return std::nullopt;
}

std::optional<int> Application::RefuseUnknownOption(const QStringList& arguments) {
    for (const QString& argument : arguments.mid(1)) {
        if (argument.size() > 1 && argument.startsWith(QLatin1Char('-'))) {
            Print(stderr, QStringLiteral("larderkeep: unknown option '%1'\n"
                                         "Try 'larderkeep --help' for the options it knows.\n")
                              .arg(argument));
            return 2;
        }
    }
    return std::nullopt;
}
