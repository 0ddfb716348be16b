#pragma once

#include <QString>

class clsRegistry;
class Database;

// The program-wide objects, each made at first use and kept until the main
// window unloads.
clsRegistry& Registry();
Database& ConnectionMain();

extern QString CurrentCookbook;
extern int Response;
extern bool FormClosing;
extern QString LastReportFile;
extern qint32 FoundCouponID;

// Set by the meal planner while it holds a plan that is not saved yet; the
// commands that change meals behind its back refuse meanwhile.
bool MealBeingEdited();
void SetMealBeingEdited(bool editing);

class QWidget;
// The main window while it exists, as the owner of the screens and reports
// opened from it; nullptr otherwise (screens then stand on their own).
QWidget* MainWindow();
void SetMainWindow(QWidget* window);
