#include "app/Application.h"
#include "app/frmMain.h"
#include "platform/Clock.h"
#include "platform/FirstStart.h"
#include "platform/Ui.h"

#include <QApplication>

int main(int argc, char** argv) {
    if (const auto status = Application::AnswerQuestion(argc, argv)) return *status;
    Clock::SettleTimeZone();
    Application app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Larderkeep"));
    if (const auto status = Application::RefuseUnknownOption(QApplication::arguments())) return *status;
    QString error;
    if (!FirstStart::Run(&error)) {
        MsgBox(error, Box::Critical, QStringLiteral("Larderkeep"));
        return 1;
    }
    QStringList args = QApplication::arguments();
    args.removeFirst();
    frmMain window;
    window.SetCommandLine(args.join(QLatin1Char(' ')));
    window.show();
    window.Form_Load();
    if (window.Ended()) return window.ExitStatus();
    const int status = app.exec();
    return status != 0 ? status : window.ExitStatus();
}
