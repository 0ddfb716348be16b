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

class QWidget;
// The main window while it exists, as the owner of the screens and reports
// opened from it; nullptr otherwise (screens then stand on their own).
QWidget* MainWindow();
void SetMainWindow(QWidget* window);
