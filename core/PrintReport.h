#pragma once

#include <QString>

class Report;

// Shows or prints a report as the settings say, and keeps its HTML copy under
// `copyName` in the report folder when asked to, for "Reprint last Report".
void PrintReport(const Report& report, const QString& copyName, bool showPrintDialog);
