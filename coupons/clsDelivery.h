#pragma once

#include "core/RecordsetClass.h"

// Restaurant and take-away coupons, kept apart from the store coupons. A thin
// store: the getters read the open row, the setters fill the row AddNew writes.
class clsDelivery : public RecordsetClass {
public:
    QString FoodType() const;
    void FoodType(const QString& v) { foodType_ = v; }
    QString Restaurant() const;
    void Restaurant(const QString& v) { restaurant_ = v; }
    bool CarryOutOnly() const;
    void CarryOutOnly(bool v) { carryOutOnly_ = v; }
    QString Item() const;
    void Item(const QString& v) { item_ = v; }
    QVariant Value() const;
    void Value(const QVariant& v) { value_ = v; }
    QVariant ActualValue() const;
    void ActualValue(const QVariant& v) { actualValue_ = v; }
    // A date text or "Never".
    QString ItemExpiration() const;
    void ItemExpiration(const QString& v) { expiration_ = v; }

    bool AddNew();
    // A delivery coupon is never looked up or deleted one by one: both answer yes
    // and leave the table alone.
    bool Exists();
    bool DeleteCoupon();

private:
    QString foodType_;
    QString restaurant_;
    bool carryOutOnly_ = false;
    QString item_;
    QVariant value_;
    QVariant actualValue_;
    QString expiration_ = QStringLiteral("Never");
};
