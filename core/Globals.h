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

class frmMain;
// The main window while it exists, so that classes can refresh its panes and
// message centre the way the rest of the program expects; nullptr otherwise.
frmMain* MainForm();
void SetMainForm(frmMain* form);
