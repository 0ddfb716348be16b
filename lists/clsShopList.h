#pragma once

#include "core/RecordsetClass.h"
#include "platform/Currency.h"

#include <QString>

// The one gateway to ShopList. A list has no header row: it is the set of rows
// sharing one Name, and the Current list is every row marked IsCurrent. The
// write side of each property fills the item under construction; the read
// side reads the open recordset's current row, so after OpenDB a read always
// gives the database's value, never what was last written to the object.
class clsShopList : public RecordsetClass {
public:
    QString Name() const;
    void Name(const QString& value) { name_ = value; }
    QString Store() const;
    void Store(const QString& value) { store_ = value; }
    QString Dates() const;
    void Dates(const QString& value) { dates_ = value; }
    QString ItemName() const;
    void ItemName(const QString& value) { itemName_ = value.left(50); }
    QString ItemQuantity() const;
    void ItemQuantity(const QString& value) { itemQuantity_ = value; }
    QString ItemManufacturer() const;
    void ItemManufacturer(const QString& value) { itemManufacturer_ = value.left(50); }
    QString ItemSize() const;
    void ItemSize(const QString& value) { itemSize_ = value; }
    // The one read that gives "" for a Null column.
    QString ItemStyle() const;
    void ItemStyle(const QString& value) { itemStyle_ = value; }
    Currency ItemCost() const;
    void ItemCost(const Currency& value) { itemCost_ = value; }
    bool ItemCoupon() const;  // column Coupon
    void ItemCoupon(bool value) { itemCoupon_ = value; }
    QString Recurring() const;
    void Recurring(const QString& value) { recurring_ = value; }
    bool IsCurrent() const;
    void IsCurrent(bool value) { isCurrent_ = value; }
    QString ItemSource() const;
    void ItemSource(const QString& value) { itemSource_ = value; }
    qint16 CouponID() const;
    void CouponID(qint16 value) { couponID_ = value; }
    qint32 ItemID() const;

    // A recipe's new title reaches the items generated from it: ItemStyle where
    // it is exactly the old title, and every occurrence inside ItemSource.
    void AdjustRecipeName(const QString& oldTitle, const QString& newTitle);

private:
    QString name_, store_, dates_, itemName_, itemQuantity_, itemManufacturer_, itemSize_, itemStyle_;
    Currency itemCost_;
    bool itemCoupon_ = false;
    QString recurring_;
    bool isCurrent_ = false;
    QString itemSource_;
    qint16 couponID_ = 0;
};
