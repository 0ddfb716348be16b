#pragma once
#include <QList>
#include <QString>
#include <QStringList>

#include "platform/Report.h"

// The grouped commands behind the printed reports. Each reads the database file
// named by the settings on a connection of its own, so a report can print before
// the main connection is open (the command-line reports do).
namespace deLarderkeep {

struct ReportField {
    QString caption;
    QString field;
    // "" prints the value as text; otherwise a Format pattern ("$#0.00", "mm/dd/yyyy").
    QString pattern;
    Qt::Alignment align = Qt::AlignLeft;
};

// Rows of `sql`, grouped by the columns of `groupBy` (outermost first). Groups keep
// the order in which the query first yields them, so a walk order survives.
Report Shaped(const QString& title, const QString& sql, const QStringList& groupBy, const QList<ReportField>& fields);

// rptStandard: the Current rows, or the rows of one list when a name is given.
Report cmShoppingList(const QString& listName = QString());
Report cmShoplistGeneric(const QString& listName);  // one saved list
Report cmShoplistByIsle(const QString& storeName);  // rptListByIsle
Report cmCoupons();                                 // rptCoupons
Report cmExpiredCoupons();                          // rptExpiredCoupons
Report cmProducts();                                // rptProducts
Report cmInventory();                               // rptInventory
Report cmMessages(const QString& messageTitle);     // rptMessage

// A report by its program name ("rptStandard", "rptCoupons", "rptInventory", ...);
// an empty report titled with the name when it is not one of the above.
Report ByName(const QString& reportName);

}  // namespace deLarderkeep
