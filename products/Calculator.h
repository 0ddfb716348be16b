#pragma once

#include <QString>

// The desktop's own calculator, whichever of the usual ones is installed.
namespace Calculator {

// The program's path, or "" when none is on the PATH.
QString Program();
bool Start();

}  // namespace Calculator
