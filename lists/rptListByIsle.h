#pragma once

#include "platform/Report.h"

#include <QString>

// The printed shopping lists: the Current list in one store's walking order
// (rptListByIsle) and the plain list by category (rptStandard). Both are shown
// as a preview or printed as the settings say, and when one has been produced
// the person may carry the list into the inventory, and its HTML copy is kept
// for "Reprint last Report".
class rptListByIsle {
public:
    explicit rptListByIsle(const QString& store);

    const Report& Layout() const { return report_; }
    // Preview or print; then the finishing step unless `finish` is false (a
    // run over several stores finishes once, after the last).
    void Show(bool finish = true);

    static QString CopyName() { return QStringLiteral("ShopListByIsle.htm"); }

private:
    Report report_;
};

class rptStandard {
public:
    // The Current list, or one saved list by name.
    explicit rptStandard(const QString& listName = QString());

    // Turns the inventory question off.
    bool NoInventory = false;

    const Report& Layout() const { return report_; }
    void Show();

    static QString CopyName() { return QStringLiteral("ShopListByCategory.htm"); }

private:
    Report report_;
};

namespace ListReports {
// Preview when lists are previewed, else straight to the printer.
void Produce(const Report& report);
// After a list report: with the inventory question on, "Add items from this
// Shopping List to Inventory?" and on Yes the inventory routine and the HTML
// copy; with it off only the copy. `ask` false leaves the question (and so
// the copy) to a later report.
void Finished(const Report& report, const QString& copyName, bool ask);
}  // namespace ListReports
