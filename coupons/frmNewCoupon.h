#pragma once

#include <QDialog>
#include <QString>

// Entry and editing of one paper coupon. The screen stays open after OK for
// the next coupon; the caller shows it.
class frmNewCoupon : public QDialog {
    Q_OBJECT
public:
    explicit frmNewCoupon(QWidget* parent = nullptr);

    // Puts the screen in edit mode for the coupon with this ID and fills the boxes.
    void EditCoupon(qint32 id);
    // Fills the boxes from a product, for a coupon entered from the product listing.
    void Prefill(const QString& manufacturer, const QString& product, const QString& size,
                 const QString& category);
    // Coupons written since the screen opened.
    int SavedCount() const { return savedCount_; }

protected:
    int savedCount_ = 0;
};
