#include "products/clsProduct.h"

#include "core/ChangeNotices.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/TextFile.h"
#include "platform/Ui.h"
#include "products/ProductEvents.h"
#include "products/clsSpendHistory.h"

#include <QDir>
#include <QFile>

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString Occurring(const QString& operation, bool dotted = false) {
    return (dotted ? QStringLiteral(". ") : QStringLiteral(" ")) + QStringLiteral("(Occurring in Product.") +
           operation + QLatin1Char(')');
}

QDateTime TodayAtMidnight() { return QDateTime(Clock::Today(), QTime()); }

QString ExactQuery(const QString& name, const QString& manufacturer, const QString& size) {
    return QStringLiteral("SELECT * FROM Product WHERE ([Name] =") + SqlText(name) +
           QStringLiteral(") AND ([Manufacturer] = ") + SqlText(manufacturer) + QStringLiteral(") and ([Size] = ") +
           SqlText(size) + QLatin1Char(')');
}

// A field as the written-record form gives it: quoted, inner quotes doubled.
QString Written(const QString& text) {
    QString t = text;
    return QLatin1Char('"') + t.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

}  // namespace

qint32 clsProduct::RecordID() { return CLng(rs.Field(QStringLiteral("ID"))); }
QString clsProduct::Manufacturer() { return TextOf(rs.Field(QStringLiteral("Manufacturer"))); }
QString clsProduct::Name() { return TextOf(rs.Field(QStringLiteral("Name"))); }
QString clsProduct::Size() { return TextOf(rs.Field(QStringLiteral("Size"))); }
QString clsProduct::Category() { return TextOf(rs.Field(QStringLiteral("Category"))); }
Currency clsProduct::Cost() {
    const QVariant v = rs.Field(QStringLiteral("Cost"));
    return IsNull(v) ? Currency() : CCur(v);
}
bool clsProduct::IsLookout() {
    const QVariant v = rs.Field(QStringLiteral("lookout"));
    return !IsNull(v) && CBool(v);
}
qint16 clsProduct::LastPurchaseQty() {
    const QVariant v = rs.Field(QStringLiteral("lastpurchasedquantity"));
    return IsNull(v) ? 0 : CInt(v);
}
QDateTime clsProduct::LastPurchasedDate() {
    const QVariant v = rs.Field(QStringLiteral("LastPurchasedDate"));
    return IsNull(v) ? QDateTime(QDate(1899, 12, 30), QTime()) : CDate(v);
}
qint32 clsProduct::TimesPurchased() {
    const QVariant v = rs.Field(QStringLiteral("TimesPurchased"));
    return IsNull(v) ? 0 : CLng(v);
}
QString clsProduct::Barcode() { return TextOf(rs.Field(QStringLiteral("Barcode"))); }

qint32 clsProduct::WriteNew(const QString& manufacturer, const QString& name, const QString& category,
                            const QString& size, bool isLookout, bool createInventory, Currency cost,
                            const QString& barcode) {
    const qint32 id = Trap(QStringLiteral("Product.WriteNew"), qint32(-1), [&] {
        OpenForAdd(QStringLiteral("Product"));
        rs.setField(QStringLiteral("Manufacturer"), manufacturer);
        rs.setField(QStringLiteral("Name"), name);
        rs.setField(QStringLiteral("Size"), size);
        rs.setField(QStringLiteral("Category"), category);
        rs.setField(QStringLiteral("lookout"), isLookout);
        if (createInventory) {
            rs.setField(QStringLiteral("LastPurchasedDate"), TodayAtMidnight());
            rs.setField(QStringLiteral("lastpurchasedquantity"), 1);
        }
        rs.setField(QStringLiteral("Cost"), QVariant::fromValue(cost));
        rs.setField(QStringLiteral("Barcode"), barcode);
        rs.Update();
        const qint32 newID = CLng(rs.Field(QStringLiteral("ID")));
        CloseDB();
        return newID;
    });
    if (id >= 0) ProductEvents::Instance().Raise(1);
    return id;
}

bool clsProduct::Exists(const QString& name, const QString& manufacturer, const QString& size) {
    return Trap(QStringLiteral("Product.Exists"), false, [&] {
        QString sql = QStringLiteral("SELECT * FROM Product WHERE ([Name] = ") + SqlText(name) + QLatin1Char(')');
        if (!size.isEmpty())
            sql += QStringLiteral(" AND ([Size] = ") + SqlText(size) + QLatin1Char(')');
        else if (!manufacturer.isEmpty())
            sql += QStringLiteral(" AND ([Manufacturer] = ") + SqlText(manufacturer) + QLatin1Char(')');
        Recordset r;
        r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return r.RecordCount() > 0;
    });
}

void clsProduct::AddToInventory(const QString& name) {
    Trap(QStringLiteral("Product.AddToInventory"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name],[LastPurchasedDate] FROM Product WHERE [Name] = ") + SqlText(name),
               ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (r.RecordCount() != 1) return;
        const QVariant last = r.Field(QStringLiteral("LastPurchasedDate"));
        const QDateTime never = CDate(QStringLiteral("1/1/50"));
        if (!IsNull(last) && CDate(last) > never) {
            // Counted from the purchase to the end of the period after today:
            // the figure grows with the item's age.
            const qint64 days = DateDiff(QStringLiteral("d"), CDate(last),
                                         DateAdd(QStringLiteral("d"), Registry().InventoryDays(), TodayAtMidnight()));
            if (MsgBox(QStringLiteral("That Item is already in Inventory but will be marked as empty in") +
                           QString::number(days) + QStringLiteral(" days.") + kCrLf +
                           QStringLiteral("Would you still like to add this Item to Inventory?"),
                       Box::YesNo + Box::Question, QStringLiteral("Add Item")) != Answer::Yes)
                return;
        }
        r.setField(QStringLiteral("LastPurchasedDate"), TodayAtMidnight());
        r.Update();
    });
}

void clsProduct::Delete(const QString& name) {
    bool deleted = false;
    TrapTail(Occurring(QStringLiteral("Delete")), true, [&] {
        Recordset product;
        product.Open(QStringLiteral("SELECT * FROM Product Where [Name] = ") + SqlText(name), ConnectionMain(),
                     adOpenKeyset, adLockOptimistic);
        if (product.IsEOF()) return true;
        bool ok = false;
        clsSpendHistory().PurgeExpired(1, CLng(product.Field(QStringLiteral("ID"))), ok);
        if (!ok) return true;

        Recordset list;
        list.Open(QStringLiteral("SELECT * FROM Shoplist WHERE [ItemName] = ") + SqlText(name), ConnectionMain(),
                  adOpenKeyset, adLockOptimistic);
        if (list.IsEOF()) {
            product.Delete();
            deleted = true;
            return true;
        }
        if (MsgBox(name + QStringLiteral(" is on the ") + TextOf(list.Field(QStringLiteral("Name"))) +
                       QStringLiteral(" Shopping List. Do you still wish to delete it?"),
                   Box::YesNo + Box::Question, QStringLiteral("Confirm Delete")) == Answer::Yes) {
            product.Delete();
            list.Delete();
            deleted = true;
        }
        return true;
    });
    if (deleted) ProductEvents::Instance().Raise(2);
}

Currency clsProduct::CostInfo(const QString& name, const QString& manufacturer, const QString& size) {
    return TrapTail(Occurring(QStringLiteral("Cost")), Currency(), [&] {
        Recordset r;
        r.Open(ExactQuery(name, manufacturer, size), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (r.IsEOF()) return Currency();
        const QVariant cost = r.Field(QStringLiteral("Cost"));
        return IsNull(cost) ? Currency() : CCur(cost);
    });
}

void clsProduct::ChangeCost(const QString& name, const QString& manufacturer, const QString& size, Currency newCost) {
    TrapTail(Occurring(QStringLiteral("ChangeCost")), true, [&] {
        Recordset r;
        r.Open(ExactQuery(name, manufacturer, size), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (r.IsEOF()) return true;
        r.setField(QStringLiteral("Cost"), QVariant::fromValue(newCost));
        r.Update();
        return true;
    });
}

qint16 clsProduct::GetItemID(const QString& name, const QString& manufacturer, const QString& size) {
    return TrapTail(Occurring(QStringLiteral("GetItemID")), qint16(-1), [&] {
        QString sql = QStringLiteral("SELECT * FROM Product WHERE ([Name] =") + SqlText(name) +
                      QStringLiteral(") AND ([Manufacturer] = ") + SqlText(manufacturer) + QLatin1Char(')');
        if (!size.isEmpty()) sql += QStringLiteral(" and ([Size] = ") + SqlText(size) + QLatin1Char(')');
        Recordset r;
        r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return r.IsEOF() ? qint16(-1) : CInt(r.Field(QStringLiteral("ID")));
    });
}

QString clsProduct::ExportFile() { return QDir(Registry().ExportFilePath()).filePath(QStringLiteral("Product.prd")); }

void clsProduct::ExportList() {
    TrapTail(Occurring(QStringLiteral("ExportList")), true, [&] {
        QDir().mkpath(Registry().ExportFilePath());
        const QString path = ExportFile();
        if (QFile::exists(path)) {
            if (MsgBox(QStringLiteral("There is a previous Product List file, Overwrite it?"),
                       Box::YesNo + Box::Question, QStringLiteral("Over-Write")) != Answer::Yes)
                return true;
            QFile::remove(path);
        }
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Product"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (r.IsEOF()) {
            MsgBox(QStringLiteral("There are not Products to export."), Box::OKOnly, QStringLiteral("Notice"));
            return true;
        }
        QString text;
        for (; !r.IsEOF(); r.MoveNext()) {
            QStringList fields;
            for (const char* column : {"Manufacturer", "Name", "Size", "Category"})
                fields << Written(TextOf(r.Field(QString::fromLatin1(column))));
            text += fields.join(QLatin1Char(',')) + kCrLf;
        }
        TextFile::Write(path, text);
        Q_EMIT Notices().SetMessage(QStringLiteral("Exported the product list to ") + QDir::toNativeSeparators(path));
        return true;
    });
}

bool clsProduct::HasPossibleInventory() {
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] = ") + SqlText(name_) +
               QStringLiteral(" AND [Manufacturer] = ") + SqlText(manufacturer_) + QStringLiteral(" AND [Size] = ") +
               SqlText(size_),
           ConnectionMain(), adOpenKeyset, adLockReadOnly);
    if (r.IsEOF()) return false;
    // An empty date is day zero, long past.
    const QVariant last = r.Field(QStringLiteral("LastPurchasedDate"));
    const QDateTime bought = IsNull(last) ? QDateTime(QDate(1899, 12, 30), QTime()) : CDate(last);
    const qint64 d = DateDiff(QStringLiteral("d"), TodayAtMidnight(),
                              DateAdd(QStringLiteral("d"), Registry().InventoryDays(), bought));
    return d > 0;
}

void clsProduct::RemoveFromRecordset() {
    rs.Delete();
    rs.Update();
}

bool clsProduct::MultiplePricePoints(const QString& name) {
    return TrapTail(Occurring(QStringLiteral("MultiplePricePoints"), true), false, [&] {
        Recordset products;
        products.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] LIKE ") + SqlText(name), ConnectionMain(),
                      adOpenKeyset, adLockReadOnly);
        qint32 points = 0;
        for (; !products.IsEOF(); products.MoveNext()) {
            Recordset history;
            history.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] = ") +
                             QString::number(CLng(products.Field(QStringLiteral("ID")))) +
                             QStringLiteral(" AND [ItemStore] <> '' AND [ItemListCost] <> 0"),
                         ConnectionMain(), adOpenKeyset, adLockReadOnly);
            points += history.RecordCount();
        }
        return points >= 2;
    });
}

bool clsProduct::UpdatePalmCost(qint32 id, Currency newCost) {
    return TrapTail(Occurring(QStringLiteral("UpdatePalmCost"), true), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [ID],[Cost] FROM Product WHERE [ID] = ") + QString::number(id), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        bool seen = false;
        for (; !r.IsEOF(); r.MoveNext()) {
            r.setField(QStringLiteral("Cost"), QVariant::fromValue(newCost));
            r.Update();
            seen = true;
        }
        return seen;
    });
}

std::optional<Currency> clsProduct::CostFromText(const QString& text) {
    QString t = text.trimmed();
    if (t.startsWith(QLatin1Char('$'))) t = t.mid(1).trimmed();
    if (t.isEmpty()) return Currency();
    if (!IsNumeric(t)) return std::nullopt;
    return CCur(t);
}

std::optional<Currency> clsProduct::TypedCost(const QString& text) {
    const std::optional<Currency> cost = CostFromText(text);
    if (!cost)
        MsgBox(QStringLiteral("The Cost value must be a numeric value, but the '$' sign is allowed."), Box::Exclamation,
               QStringLiteral("Cost Error"));
    return cost;
}
