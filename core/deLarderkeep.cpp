#include "core/deLarderkeep.h"

#include <QHash>

#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

namespace deLarderkeep {
namespace {

struct ShapedRow {
    QStringList groups;
    QStringList cells;
};

QString Cell(const QVariant& value, const QString& pattern) {
    if (value.isNull() || !value.isValid()) return QString();
    if (pattern.isEmpty()) return CStr(value);
    try {
        return Format(value, pattern);
    } catch (const std::exception&) {
        // A word such as "Never" in a date column prints as it stands.
        return CStr(value);
    }
}

// Emits rows[indices] grouped at `level`, each group at the place of its first row.
void EmitGroups(Report& report, const QList<ShapedRow>& rows, const QList<int>& indices, int level, int depth) {
    if (level == depth) {
        for (int i : indices) report.AddRow(rows[i].cells);
        return;
    }
    QStringList order;
    QHash<QString, QList<int>> members;
    for (int i : indices) {
        const QString& key = rows[i].groups[level];
        auto it = members.find(key);
        if (it == members.end()) {
            order << key;
            it = members.insert(key, {});
        }
        it->append(i);
    }
    for (const QString& key : order) {
        report.AddGroup(key.isEmpty() ? QStringLiteral("(none)") : key, level);
        EmitGroups(report, rows, members.value(key), level + 1, depth);
    }
}

const QList<ReportField> kListFields = {
    {QStringLiteral("Item"), QStringLiteral("ItemName")},
    {QStringLiteral("Quantity"), QStringLiteral("ItemQuantity"), QString(), Qt::AlignRight},
    {QStringLiteral("Size"), QStringLiteral("ItemSize")},
    {QStringLiteral("Manufacturer"), QStringLiteral("ItemManufacturer")},
    {QStringLiteral("Coupon"), QStringLiteral("ItemCoupon")},
    {QStringLiteral("List"), QStringLiteral("Name")},
};

const QList<ReportField> kCouponFields = {
    {QStringLiteral("Product"), QStringLiteral("Product")},
    {QStringLiteral("Size"), QStringLiteral("Size")},
    {QStringLiteral("Value"), QStringLiteral("Value"), QString(), Qt::AlignRight},
    {QStringLiteral("Quantity"), QStringLiteral("Quantity"), QString(), Qt::AlignRight},
    {QStringLiteral("Expires"), QStringLiteral("Expiration"), QStringLiteral("mm/dd/yyyy")},
    {QStringLiteral("Store"), QStringLiteral("Store")},
    {QStringLiteral("List"), QStringLiteral("OwnerList")},
};

const QList<ReportField> kProductFields = {
    {QStringLiteral("Product"), QStringLiteral("Name")},
    {QStringLiteral("Size"), QStringLiteral("Size")},
    {QStringLiteral("Category"), QStringLiteral("Category")},
    {QStringLiteral("Cost"), QStringLiteral("Cost"), QStringLiteral("$#0.00"), Qt::AlignRight},
    {QStringLiteral("Last bought"), QStringLiteral("LastPurchasedDate"), QStringLiteral("mm/dd/yyyy")},
    {QStringLiteral("Times"), QStringLiteral("TimesPurchased"), QString(), Qt::AlignRight},
};

}  // namespace

Report Shaped(const QString& title, const QString& sql, const QStringList& groupBy, const QList<ReportField>& fields) {
    Database connection;
    connection.Open(Registry().DatabasePath());
    Recordset rs;
    rs.Open(sql, connection, adOpenForwardOnly, adLockReadOnly);
    QList<ShapedRow> rows;
    while (!rs.IsEOF()) {
        ShapedRow row;
        for (const QString& group : groupBy)
            row.groups << CStr(rs.Field(group).isNull() ? QVariant(QString()) : rs.Field(group));
        for (const ReportField& field : fields) row.cells << Cell(rs.Field(field.field), field.pattern);
        rows << row;
        rs.MoveNext();
    }
    rs.Close();
    connection.Close();

    Report report(title);
    QList<Report::Column> columns;
    for (const ReportField& field : fields) columns << Report::Column{field.caption, field.align};
    report.SetColumns(columns);
    QList<int> all;
    all.reserve(rows.size());
    for (int i = 0; i < rows.size(); ++i) all << i;
    EmitGroups(report, rows, all, 0, groupBy.size());
    return report;
}

Report cmShoppingList(const QString& listName) {
    const QString rows =
        listName.isEmpty() ? QStringLiteral("[IsCurrent] = True") : QStringLiteral("[Name] = ") + SqlText(listName);
    Report report = Shaped(
        QStringLiteral("Standard List"),
        QStringLiteral("SELECT * FROM ShopList WHERE ") + rows + QStringLiteral(" ORDER BY [ItemStyle], [ItemName]"),
        {QStringLiteral("ItemStyle")}, kListFields);
    report.SetTypeSize(11, 9);
    report.SetTickBoxes(true);
    if (!listName.isEmpty()) report.AddHeading(listName);
    return report;
}

Report cmShoplistGeneric(const QString& listName) {
    Report report = Shaped(listName,
                           QStringLiteral("SELECT * FROM Shoplist WHERE [Name] = %1 ORDER BY [ItemStyle], [ItemName]")
                               .arg(SqlText(listName)),
                           {QStringLiteral("ItemStyle")}, kListFields);
    return report;
}

Report cmShoplistByIsle(const QString& storeName) {
    Database connection;
    connection.Open(Registry().DatabasePath());
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM ShopList WHERE (IsCurrent = True) AND (Store = %1) ORDER BY ShopOrder")
                .arg(SqlText(storeName)),
            connection, adOpenForwardOnly, adLockReadOnly);
    struct Item {
        QString isle, category;
        QStringList cells;
        Currency cost;
    };
    QList<Item> items;
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const auto text = [&](const char* column) { return TextOf(rs.Field(QLatin1String(column))).trimmed(); };
        Item item;
        item.isle = text("ShopIsle");
        item.category = text("ItemStyle");
        const QString maker = text("ItemManufacturer");
        const QString name = maker.isEmpty() || maker.compare(QLatin1String("Any"), Qt::CaseInsensitive) == 0
                                 ? text("ItemName")
                                 : maker + QStringLiteral("'s ") + text("ItemName");
        const QVariant cost = rs.Field(QStringLiteral("ItemCost"));
        try {
            item.cost = cost.isNull() ? Currency() : CCur(cost);
        } catch (const std::exception&) {
            item.cost = Currency();  // a cost that is not a number counts as none
        }
        const bool coupon = rs.Field(QStringLiteral("Coupon")).toBool();
        // "16 oz" stays on one line.
        const QString size = text("ItemSize").replace(QLatin1Char(' '), QChar(0xA0));
        item.cells = {name + (size.isEmpty() ? QString() : QStringLiteral(", ") + size) +
                          (coupon ? QStringLiteral("  (coupon)") : QString()),
                      text("ItemQuantity")};
        items << item;
    }
    rs.Close();
    connection.Close();

    // What a person carries through the store: large type, a box to tick on
    // every line, the aisle as the heading and what the basket has cost so far.
    Report report(QStringLiteral("Shopping List by Isle"));
    report.SetTypeSize(13, 11);
    report.SetTickBoxes(true);
    report.SetFlowColumns(2);
    report.SetMayTurn(true);
    QStringList isles;
    for (const Item& item : items)
        if (!isles.contains(item.isle)) isles << item.isle;
    report.AddHeading(storeName +
                      QStringLiteral("  \u2022  %1 item(s) in %2 aisle(s)").arg(items.size()).arg(isles.size()));
    QList<Report::Column> columns{{QStringLiteral("Item")}, {QStringLiteral("Qty"), Qt::AlignRight}};
    columns << Report::Column{QStringLiteral("Cost"), Qt::AlignRight}
            << Report::Column{QStringLiteral("So far"), Qt::AlignRight};
    report.SetColumns(columns);

    // Groups stand where the walk first reaches them, so the walk order holds
    // even when one aisle's rows are not side by side.
    QStringList order;
    QHash<QString, QStringList> categories;
    QHash<QString, QList<int>> members;
    for (int i = 0; i < items.size(); ++i) {
        const Item& item = items[i];
        if (!categories.contains(item.isle)) order << item.isle;
        QStringList& seen = categories[item.isle];
        if (!seen.contains(item.category)) seen << item.category;
        members[item.isle + QChar(0x1F) + item.category] << i;
    }
    Currency running;
    for (const QString& isle : order) {
        report.AddGroup(isle.isEmpty() ? QStringLiteral("Not Given") : isle, 0);
        for (const QString& category : categories.value(isle)) {
            report.AddGroup(category.isEmpty() ? QStringLiteral("(no category)") : category, 1);
            for (int i : members.value(isle + QChar(0x1F) + category)) {
                const Item& item = items[i];
                running = running + item.cost;
                QStringList cells = item.cells;
                cells << Format(QVariant::fromValue(item.cost), QStringLiteral("$#0.00"))
                      << Format(QVariant::fromValue(running), QStringLiteral("$#0.00"));
                report.AddRow(cells);
            }
        }
    }
    if (!items.isEmpty()) {
        QStringList total(columns.size() - 1);
        total[0] = QStringLiteral("Total");
        total << Format(QVariant::fromValue(running), QStringLiteral("$#0.00"));
        report.AddTotal(total);
    }
    return report;
}

Report cmCoupons() {
    return Shaped(QStringLiteral("Coupons"), QStringLiteral("SELECT * FROM Coupons ORDER BY [Manufacturer], [Product]"),
                  {QStringLiteral("Manufacturer")}, kCouponFields);
}

Report cmExpiredCoupons() {
    return Shaped(QStringLiteral("Expired Coupons"),
                  QStringLiteral("SELECT * FROM Coupons WHERE MarkForPurge = True ORDER BY [Manufacturer], [Product]"),
                  {QStringLiteral("Manufacturer")}, kCouponFields);
}

Report cmProducts() {
    QList<ReportField> fields = kProductFields;
    return Shaped(QStringLiteral("Products"), QStringLiteral("SELECT * FROM Product ORDER BY [Manufacturer], [Name]"),
                  {QStringLiteral("Manufacturer")}, fields);
}

Report cmInventory() {
    // The columns of the inventory screen, by category.
    const QList<ReportField> fields = {
        {QStringLiteral("Item Name"), QStringLiteral("Name")},
        {QStringLiteral("Manufacturer"), QStringLiteral("Manufacturer")},
        {QStringLiteral("Last Qty."), QStringLiteral("lastpurchasedquantity"), QString(), Qt::AlignRight},
        {QStringLiteral("Size"), QStringLiteral("Size")},
        {QStringLiteral("Cost"), QStringLiteral("Cost"), QStringLiteral("$#0.00"), Qt::AlignRight},
        {QStringLiteral("Purchased"), QStringLiteral("LastPurchasedDate"), QStringLiteral("mm/dd/yyyy")},
        {QStringLiteral("Used"), QStringLiteral("TimesPurchased"), QString(), Qt::AlignRight},
    };
    return Shaped(
        QStringLiteral("Inventory"),
        QStringLiteral("SELECT * FROM Product WHERE [LastPurchasedDate] > #01/01/50# ORDER BY [Category], [Name]"),
        {QStringLiteral("Category")}, fields);
}

Report cmMessages(const QString& messageTitle) {
    Database connection;
    connection.Open(Registry().DatabasePath());
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Messages WHERE [Title] = %1").arg(SqlText(messageTitle)), connection,
            adOpenForwardOnly, adLockReadOnly);
    Report report(messageTitle);
    while (!rs.IsEOF()) {
        report.AddHeading(
            CStr(rs.Field(QStringLiteral("Date")).isNull() ? QVariant(QString()) : rs.Field(QStringLiteral("Date"))));
        report.AddParagraph(rs.Field(QStringLiteral("Body")).toString());
        rs.MoveNext();
    }
    return report;
}

Report ByName(const QString& reportName) {
    if (reportName == QLatin1String("rptStandard")) return cmShoppingList();
    if (reportName == QLatin1String("rptCoupons")) return cmCoupons();
    if (reportName == QLatin1String("rptInventory")) return cmInventory();
    if (reportName == QLatin1String("rptProducts")) return cmProducts();
    if (reportName == QLatin1String("rptExpiredCoupons")) return cmExpiredCoupons();
    return Report(reportName);
}

}  // namespace deLarderkeep
