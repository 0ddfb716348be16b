#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// A product that one store shelves away from its category's aisle. Only the
// aisle setup screen looks at these; lists are walked by category alone.
class clsAlterIsleMap : public RecordsetClass {
public:
    // Read from the open row's AltMapID column.
    qint32 AltMapID();
    QString StoreName() const { return storeName_; }
    void StoreName(const QString& value) { storeName_ = value; }
    QString ItemName() const { return itemName_; }
    void ItemName(const QString& value) { itemName_ = value; }
    QString ItemManufacturer() const { return itemManufacturer_; }
    void ItemManufacturer(const QString& value) { itemManufacturer_ = value; }
    QString StoreIsle() const { return storeIsle_; }
    void StoreIsle(const QString& value) { storeIsle_ = value; }
    qint16 StoreIsleOrder() const { return storeIsleOrder_; }
    void StoreIsleOrder(qint16 value) { storeIsleOrder_ = value; }

    bool WriteNew();
    // For the members' store, product and manufacturer.
    bool AlternateMapExists();
    bool DeleteAlterMap();

private:
    QString MembersQuery() const;

    QString storeName_;
    QString itemName_;
    QString itemManufacturer_;
    QString storeIsle_;
    qint16 storeIsleOrder_ = 0;
};
