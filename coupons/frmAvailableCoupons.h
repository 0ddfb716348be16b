#pragma once

#include <QDialog>
#include <QList>
#include <QString>

// The coupons that may fit a product or a recipe ("Possible Coupons"). The
// Get functions fill the lines and answer whether any coupon is listed; the
// caller shows the screen.
class frmAvailableCoupons : public QDialog {
    Q_OBJECT
public:
    explicit frmAvailableCoupons(QWidget* parent = nullptr);

    bool GetProductCoupons(const QString& manufacturer, const QString& product);
    bool GetRecipeCoupons(const QString& title);
    // The coupons the person took for a list, in line order; empty when none
    // was taken or the screen was closed.
    QList<qint32> PickedCouponIDs() const;
};
