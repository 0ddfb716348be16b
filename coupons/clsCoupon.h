#pragma once

#include <QStringList>

#include "core/RecordsetClass.h"

class QStandardItem;

// The household's paper coupons: matching an item against them, reserving one for
// a list, and purging the expired ones.
//
// The accessors are lopsided on purpose: CouponDBID, Quantity, Category and
// MarkForPurge read the open row, while the other fields only ever return what
// was last assigned to this object. Screens rely on both halves of that.
class clsCoupon : public RecordsetClass {
public:
    qint32 CouponDBID() const;
    QString Manufacturer() const { return manufacturer_; }
    void Manufacturer(const QString& v) { manufacturer_ = v; }
    QString product() const { return product_; }
    void product(const QString& v) { product_ = v; }
    QString Size() const { return size_; }
    void Size(const QString& v) { size_ = v; }
    QString Discount() const { return discount_; }
    void Discount(const QString& v) { discount_ = v; }
    QString DiscountDbl() const { return discountDbl_; }
    void DiscountDbl(const QString& v) { discountDbl_ = v; }
    QString Expiration() const { return expiration_; }
    void Expiration(const QString& v) { expiration_ = v; }
    QString Quantity() const;
    void Quantity(const QString& v) { quantity_ = v; }
    QString Category() const;
    void Category(const QString& v) { category_ = v; }
    QString Store() const { return store_; }
    void Store(const QString& v) { store_ = v; }
    QString OwnerList() const { return ownerList_; }
    void OwnerList(const QString& v) { ownerList_ = v; }
    bool MarkForPurge() const;
    void MarkForPurge(bool v) { markForPurge_ = v; }
    // BOF and EOF are dbBOF and dbEOF here: the C library owns the name EOF.

    // Match codes: 1 exact, 3 product and size, 4 manufacturer and product (or
    // product alone), 5 none. Leaves the coupon found in FoundCouponID. Has no
    // handler: a failure reaches the caller's.
    int Exists(const QString& manufacturer, const QString& product, const QString& size);
    void GetExistingCouponResponse();
    void CheckForExistingList(const QString& product);
    void MarkCouponList(qint32 id, const QString& listName);
    bool ReleaseCouponList(qint32 id, const QString& listName);
    bool AddNew();
    void DeleteCoupon(qint32 id, int mode);
    void AutoPurge(bool printReport, bool reserved);
    QString IngredientCheck(const QString& ingredient);
    void PossibleCoupon(const QString& item, qint32& foundID);
    void UpdateCoupons(const QString& manufacturer, const QString& product, const QString& size,
                       const QString& listName);
    qint32 GetPendingExpirations();

    // The values the coupon entry offers, in their order.
    static const QStringList& ValueList();

    // The expiry check the coupon pane runs for each coupon as it loads: the icon,
    // whether the coupon is past its date, and whether it is within the warning
    // days (which sets `pending`).
    struct Expiry {
        QString imageKey;
        bool expired = false;
    };
    static Expiry CheckExpiry(const QString& expiration, bool& pending);
    // The same with the two settings read once by a caller walking many coupons.
    static Expiry CheckExpiry(const QString& expiration, bool notify, qint16 days, bool& pending);
    // After the last coupon: what the settings say to do when one was pending.
    // Returns true when the purge dialog is to be offered at start.
    static bool ExpireAction(bool pending);

private:
    QString manufacturer_;
    QString product_;
    QString size_;
    QString discount_;
    QString discountDbl_;
    QString expiration_;
    QString quantity_;
    QString category_;
    QString store_;
    QString ownerList_;
    bool markForPurge_ = false;
};
