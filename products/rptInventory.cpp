#include "products/rptInventory.h"

#include "core/Globals.h"
#include "core/PrintReport.h"
#include "core/Values.h"
#include "core/deLarderkeep.h"
#include "core/Dates.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"

namespace rptInventory {

Report Inventory() { return deLarderkeep::cmInventory(); }

Report Worksheet() {
    Report report(QStringLiteral("Inventory Worksheet"));
    report.AddHeading(Format(QVariant(Clock::Today()), QStringLiteral("dddd, mmm d yyyy")));
    // The two empty columns are filled in by hand while going through the cupboards.
    report.SetColumns(QList<Report::Column>{{QStringLiteral("Item Name")},
                                            {QStringLiteral("Manufacturer")},
                                            {QStringLiteral("Size")},
                                            {QStringLiteral("Last Qty."), Qt::AlignRight},
                                            {QStringLiteral("Purchased")},
                                            {QStringLiteral("On Hand")},
                                            {QStringLiteral("Needed")}});
    const QString blank = QStringLiteral("__________");
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50# ORDER BY [Category], [Name]"),
           ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    QString group;
    bool first = true;
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString category = TextOf(r.Field(QStringLiteral("Category")));
        if (first || category.compare(group, Qt::CaseInsensitive) != 0) {
            report.AddGroup(category.isEmpty() ? QStringLiteral("(none)") : category);
            group = category;
            first = false;
        }
        const QVariant bought = r.Field(QStringLiteral("LastPurchasedDate"));
        report.AddRow({TextOf(r.Field(QStringLiteral("Name"))), TextOf(r.Field(QStringLiteral("Manufacturer"))),
                       TextOf(r.Field(QStringLiteral("Size"))),
                       TextOf(r.Field(QStringLiteral("lastpurchasedquantity"))),
                       IsDate(bought) ? Format(bought, QStringLiteral("mm/dd/yy")) : QStringLiteral("Unknown"), blank,
                       blank});
    }
    return report;
}

void Print(const Report& report, bool preview) {
    if (preview)
        report.Preview(MainWindow());
    else
        PrintReport(report, QStringLiteral("Inventory.htm"), true);
}

}  // namespace rptInventory
