#include "stores/clsIsleMap.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Ui.h"

namespace {

QString PairQuery(const QString& store, const QString& category) {
    return QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + SqlText(store) +
           QStringLiteral(" AND [ItemCategory] = ") + SqlText(category);
}

QString MappingQuery(const QString& store, const QString& category, const QString& isle) {
    return PairQuery(store, category) + QStringLiteral(" AND [Isle] = ") + SqlText(isle);
}

}  // namespace

QString clsIsleMap::Isle() { return TextOf(rs.Field(QStringLiteral("Isle"))); }

qint16 clsIsleMap::IsleOrder() { return CInt(rs.Field(QStringLiteral("IsleOrder"))); }

bool clsIsleMap::WriteNew() {
    return Trap(QStringLiteral("IsleMap.WriteNew"), false, [&] {
        if (!IsleOrderCorrect(category_, isle_, order_)) {
            MsgBox(QStringLiteral("The Isle ") + isle_ + QStringLiteral(" already exists with the Isle Order of ") +
                       QString::number(foundOrder_) + QStringLiteral(" so, this Isle will not be saved."),
                   Box::OKOnly, QStringLiteral("Notice"));
            return false;
        }
        OpenForAdd(QStringLiteral("IsleMap"));
        rs.setField(QStringLiteral("Store"), store_);
        rs.setField(QStringLiteral("ItemCategory"), category_);
        rs.setField(QStringLiteral("Isle"), isle_);
        rs.setField(QStringLiteral("IsleOrder"), order_);
        rs.Update();
        return true;
    });
}

bool clsIsleMap::IsMapped(const QString& store, const QString& category, const QString& isle) {
    return Trap(QStringLiteral("IsleMap.IsMapped"), false, [&] {
        Recordset r;
        r.Open(MappingQuery(store, category, isle), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return !r.IsEOF();
    });
}

QString clsIsleMap::GetIsle(const QString& store, const QString& category) {
    return Trap(QStringLiteral("IsleMap.GetIsle"), QString(), [&] {
        Recordset r;
        r.Open(PairQuery(store, category), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return r.IsEOF() ? QString() : TextOf(r.Field(QStringLiteral("Isle")));
    });
}

qint16 clsIsleMap::GetIsleOrder(const QString& store, const QString& category) {
    return Trap(QStringLiteral("IsleMap.GetIsleOrder"), qint16(0), [&] {
        Recordset r;
        r.Open(PairQuery(store, category), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return r.IsEOF() ? qint16(0) : CInt(r.Field(QStringLiteral("IsleOrder")));
    });
}

bool clsIsleMap::RemoveMapping(const QString& store, const QString& category, const QString& isle) {
    return Trap(QStringLiteral("IsleMap.RemoveMapping"), false, [&] {
        Recordset r;
        r.Open(MappingQuery(store, category, isle), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (!r.IsEOF()) r.Delete();
        return true;
    });
}

bool clsIsleMap::IsleOrderCorrect(const QString& category, const QString& isle, qint16 order) {
    return Trap(QStringLiteral("IsleMap.IsleOrderCorrect"), false, [&] {
        // No store in the query: a pair walks in one place for every store.
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [ItemCategory] = ") + SqlText(category) +
                   QStringLiteral(" AND [Isle] = ") + SqlText(isle),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (r.IsEOF()) return true;
        const qint16 found = CInt(r.Field(QStringLiteral("IsleOrder")));
        if (found == order) return true;
        foundOrder_ = found;
        return false;
    });
}
