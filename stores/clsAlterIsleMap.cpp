#include "stores/clsAlterIsleMap.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/TableRows.h"
#include "core/Values.h"
#include "core/modVerify.h"

qint32 clsAlterIsleMap::AltMapID() { return CLng(rs.Field(QStringLiteral("AltMapID"))); }

QString clsAlterIsleMap::MembersQuery() const {
    return QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] = ") + SqlText(storeName_) +
           QStringLiteral(" AND [ItemName] = ") + SqlText(itemName_) + QStringLiteral(" AND [ItemManufacturer] = ") +
           SqlText(itemManufacturer_);
}

bool clsAlterIsleMap::WriteNew() {
    return Trap(QStringLiteral("AlterIsleMap.WriteNew"), false, [&] {
        OpenForAdd(QStringLiteral("AlternateIsleMap"));
        rs.setField(QStringLiteral("StoreName"), storeName_);
        rs.setField(QStringLiteral("ItemName"), itemName_);
        rs.setField(QStringLiteral("ItemManufacturer"), itemManufacturer_);
        rs.setField(QStringLiteral("StoreIsle"), storeIsle_);
        rs.setField(QStringLiteral("StoreIsleOrder"), storeIsleOrder_);
        rs.Update();
        return true;
    });
}

bool clsAlterIsleMap::AlternateMapExists() {
    Recordset r;
    r.Open(MembersQuery(), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return !r.IsEOF();
}

bool clsAlterIsleMap::DeleteAlterMap() {
    return Trap(QStringLiteral("AlterIsleMap.DeleteAlterMap"), false,
                [&] { return DeleteEveryRow(MembersQuery()) > 0; });
}
