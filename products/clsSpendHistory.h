#pragma once

#include "core/RecordsetClass.h"

#include <QDateTime>
#include <QString>

#include "platform/Currency.h"

// What was paid for a product, where and on which list: one row a purchase.
class clsSpendHistory : public RecordsetClass {
public:
    qint32 SpendID();
    void SpendID(qint32 value) { spendID_ = value; }
    qint16 ItemID();
    void ItemID(qint16 value) { itemID_ = value; }
    QDateTime ItemListDate();
    void ItemListDate(const QDateTime& value) { itemListDate_ = value; }
    QString ItemListName();
    void ItemListName(const QString& value) { itemListName_ = value; }
    Currency ItemListCost();
    void ItemListCost(Currency value) { itemListCost_ = value; }
    QString ItemStore();
    void ItemStore(const QString& value) { itemStore_ = value; }
    // Read from ItemCouponID; the member is never written to the table.
    qint16 CouponID();
    void CouponID(qint16 value) { couponID_ = value; }
    bool BOF() const { return dbBOF(); }

    // Deletes history older than the kept months, for one product when the ID
    // is above 0. Mode 1 asks first when there is such history; `result` is
    // false when the person says no.
    void PurgeExpired(int mode, qint32 itemID, bool& result);
    void AddRecord();
    bool ListExists(const QString& listName);
    void DeleteID(qint32 spendID);
    void UpdateItemCost(qint32 spendID, Currency cost);
    void UpdateItemStore(qint32 spendID, const QString& store);
    void FinalizeUpdate(qint32 spendID, const QString& listName);

private:
    qint32 spendID_ = 0;
    qint16 itemID_ = 0;
    QDateTime itemListDate_;
    QString itemListName_;
    Currency itemListCost_;
    QString itemStore_;
    qint16 couponID_ = 0;
};
