#include "coupons/frmNewCoupon.h"

frmNewCoupon::frmNewCoupon(QWidget* parent) : QDialog(parent) {}
void frmNewCoupon::EditCoupon(qint32) {}
void frmNewCoupon::Prefill(const QString&, const QString&, const QString&, const QString&) {}
