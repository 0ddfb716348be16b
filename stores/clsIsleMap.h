#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// Which category lies in which aisle of a store, and where in the walk. The
// order of a category-and-aisle pair is one for all stores.
class clsIsleMap : public RecordsetClass {
public:
    // Store and category give back what was written; aisle and order read the
    // open rows.
    QString Store() const { return store_; }
    void Store(const QString& value) { store_ = value; }
    QString ItemCategory() const { return category_; }
    void ItemCategory(const QString& value) { category_ = value; }
    QString Isle();
    void Isle(const QString& value) { isle_ = value; }
    qint16 IsleOrder();
    void IsleOrder(qint16 value) { order_ = value; }

    // Refused with a notice when another store has the pair at another order.
    bool WriteNew();
    bool IsMapped(const QString& store, const QString& category, const QString& isle);
    // "" and 0 when the category is not mapped for the store.
    QString GetIsle(const QString& store, const QString& category);
    qint16 GetIsleOrder(const QString& store, const QString& category);
    bool RemoveMapping(const QString& store, const QString& category, const QString& isle);
    bool IsleOrderCorrect(const QString& category, const QString& isle, qint16 order);
    // The order IsleOrderCorrect found when it said no.
    qint16 FoundOrder() const { return foundOrder_; }

private:
    QString store_;
    QString category_;
    QString isle_;
    qint16 order_ = 0;
    qint16 foundOrder_ = 0;
};
