#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// One coupon as a read-only card: what it is for, what it is worth, where
// and until when it can be used.
class frmCouponQuickView : public QDialog {
    Q_OBJECT
public:
    explicit frmCouponQuickView(QWidget* parent = nullptr);

    // Fills the card from the coupon's row; the caller shows it. A coupon no
    // longer on file leaves the card empty.
    void ShowCoupon(qint32 id);

    QLabel* lblProduct;
    QLabel* lblManufacturer;
    QLabel* lblValue;
    QLabel* lblQuantity;
    QLabel* lblSize;
    QLabel* lblCategory;
    QLabel* lblStore;
    QLabel* lblExpiration;
    QLabel* lblDiscountDouble;
    QLabel* lblComments;
    QPushButton* cmdClose;
};
