#pragma once

#include <QApplication>

// The program's application object. Every event, and so every click, key and
// drop that reaches a screen's control, is delivered inside the error trap: a
// failure nobody closer handled becomes the error box and the program goes on.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};
