#include "stores/rptStoreLayout.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"

#include <QHash>

namespace rptStoreLayout {

Report Build(const QString& store) {
    QHash<QString, int> counts;
    Recordset products;
    products.Open(QStringLiteral("SELECT [Category] FROM Product"), ConnectionMain(), adOpenForwardOnly,
                  adLockReadOnly);
    for (; !products.IsEOF(); products.MoveNext())
        ++counts[TextOf(products.Field(QStringLiteral("Category"))).toLower()];

    Report report(QStringLiteral("Store Layout"));
    report.AddHeading(store);
    report.SetTypeSize(11, 9);
    report.SetFlowColumns(2);
    report.SetColumns(
        QList<Report::Column>{{QStringLiteral("Category")}, {QStringLiteral("Products"), Qt::AlignRight}});
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + SqlText(store) +
               QStringLiteral(" ORDER BY [IsleOrder], [Isle], [ItemCategory]"),
           ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    QString isle;
    bool first = true;
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString next = TextOf(r.Field(QStringLiteral("Isle")));
        if (first || next != isle) {
            report.AddGroup(QStringLiteral("%1  (order %2)").arg(next, TextOf(r.Field(QStringLiteral("IsleOrder")))));
            isle = next;
            first = false;
        }
        const QString category = TextOf(r.Field(QStringLiteral("ItemCategory")));
        report.AddRow({category, QString::number(counts.value(category.toLower()))});
    }
    Recordset alt;
    alt.Open(QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] = ") + SqlText(store) +
                 QStringLiteral(" ORDER BY [StoreIsleOrder], [StoreIsle], [ItemName]"),
             ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    if (!alt.IsEOF()) report.AddGroup(QStringLiteral("Products shelved apart from their category"));
    for (; !alt.IsEOF(); alt.MoveNext())
        report.AddRow({TextOf(alt.Field(QStringLiteral("ItemManufacturer"))) + QStringLiteral("'s ") +
                           TextOf(alt.Field(QStringLiteral("ItemName"))) + QStringLiteral(" \u2192 ") +
                           TextOf(alt.Field(QStringLiteral("StoreIsle"))),
                       QString()});
    return report;
}

}  // namespace rptStoreLayout
