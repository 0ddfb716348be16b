#pragma once

#include "platform/Report.h"

// The printed inventory and the stock-taking worksheet: what is on hand,
// grouped by category, the worksheet with empty columns to count into.
namespace rptInventory {
Report Inventory();
Report Worksheet();
// Prints, or previews, one of the two from a screen or a command.
void Print(const Report& report, bool preview);
}  // namespace rptInventory
