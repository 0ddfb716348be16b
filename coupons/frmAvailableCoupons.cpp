#include "coupons/frmAvailableCoupons.h"

frmAvailableCoupons::frmAvailableCoupons(QWidget* parent) : QDialog(parent) {}
bool frmAvailableCoupons::GetProductCoupons(const QString&, const QString&) { return false; }
bool frmAvailableCoupons::GetRecipeCoupons(const QString&) { return false; }
QList<qint32> frmAvailableCoupons::PickedCouponIDs() const { return {}; }
