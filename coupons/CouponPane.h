#pragma once

#include <QList>

class QStandardItem;

// Fills the coupon pane: manufacturers under the root, each with its coupons,
// expired ones marked.
namespace CouponPane {
struct Loaded {
    int coupons = 0;
    QList<QStandardItem*> withExpired;  // manufacturers holding an expired coupon
    bool purge = false;                 // the expiry setting asks for the purge screen
};
Loaded LoadCoupons();
}  // namespace CouponPane
