#include "products/Calculator.h"

#include <QProcess>
#include <QStandardPaths>

namespace Calculator {

QString Program() {
    for (const char* name : {"gnome-calculator", "kcalc", "galculator", "xcalc"}) {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!path.isEmpty()) return path;
    }
    return QString();
}

bool Start() {
    const QString program = Program();
    return !program.isEmpty() && QProcess::startDetached(program, {});
}

}  // namespace Calculator
