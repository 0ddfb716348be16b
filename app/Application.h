#pragma once

#include <QApplication>
#include <optional>

// The program's application object. Every event, and so every click, key and
// drop that reaches a screen's control, is delivered inside the error trap: a
// failure nobody closer handled becomes the error box and the program goes on.
class Application : public QApplication {
    Q_OBJECT
public:
    // The name shared by the launcher, the software-centre record and the icon.
    static constexpr const char* AppId = "org.larderkeep.Larderkeep";

    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

    // --help and --version are answered before anything else exists, so they
    // work with no display and never touch the data folder. Gives the exit
    // status when the command line was such a question, nothing otherwise.
    static std::optional<int> AnswerQuestion(int argc, char** argv);

    // Once Qt has taken its own options (-platform, -style...), whatever still
    // starts with "-" is an option this program does not know: it is named on
    // stderr and the status is 2. The report switches /L, /C and /I pass.
    static std::optional<int> RefuseUnknownOption(const QStringList& arguments);

    static QString Usage();
    static QString Version();
};
