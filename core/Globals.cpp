#include "core/Globals.h"

#include "core/clsRegistry.h"
#include "platform/Database.h"

QString CurrentCookbook;
int Response = 0;
bool FormClosing = false;
QString LastReportFile;
qint32 FoundCouponID = 0;

namespace {
bool mealBeingEdited = false;
}

bool MealBeingEdited() { return mealBeingEdited; }
void SetMealBeingEdited(bool editing) { mealBeingEdited = editing; }

clsRegistry& Registry() {
    static clsRegistry registry;
    return registry;
}

Database& ConnectionMain() {
    static Database connection;
    return connection;
}

namespace {
QWidget* mainWindow = nullptr;
}

QWidget* MainWindow() { return mainWindow; }
void SetMainWindow(QWidget* window) { mainWindow = window; }
