#pragma once

#include "platform/Currency.h"

#include <QDialog>
#include <QString>

class ListView;
class QAction;
class QLabel;
class QAbstractItemModel;
class CouponLines;
class QStatusBar;
class QToolBar;

// Every coupon on file as one list, or those of one manufacturer, product,
// store or expiry, with their count and total value.
class frmAllCoupons : public QDialog {
    Q_OBJECT
public:
    // The columns of a line; the ID rides on the first.
    enum Column {
        colManufacturer,
        colProduct,
        colSize,
        colQuantity,
        colValue,
        colDouble,
        colExpiration,
        colCategory,
        colStore,
        ColumnCount
    };
    // Data roles of a line's cells: the coupon's ID and its value as stored.
    enum Role { IDRole = Qt::UserRole + 1, RawValueRole };

    explicit frmAllCoupons(QWidget* parent = nullptr);

    // Kind 0 lists every coupon; 1 to 4 as the filter screen gives them.
    void LoadCoupons(int filterKind = 0, const QString& value = QString());
    // The entry screen over this one; the list is read again when coupons were added.
    void AddNewCoupon();

    int CouponCount() const;
    // DiscountDouble read as a truth value: a number other than 0, or "True".
    static bool Doubled(const QString& discountDouble);
    Currency TotalValue() const { return total_; }
    // The lines as the list shows them.
    QAbstractItemModel* Model() const;

    QToolBar* tbMain;
    ListView* lvCoupons;
    QStatusBar* sbStatus;
    QLabel* pnlCount;
    QLabel* pnlTotal;

public Q_SLOTS:
    // The toolbar's keys: "Close", "NewCoupon", "Refresh", "Filter", "Delete",
    // "LgIcon", "SmIcon", "Report", "Print", "Help".
    void tbMain_ButtonClick(const QString& key);
    void DeleteCoupon();
    void EditCoupon();
    void Filter();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QAction* AddButton(const QString& key, const QString& caption, const QString& tip, int icon);
    void ShowStatus();
    void SizeColumns(const QStringList& widest);

    CouponLines* lines_ = nullptr;
    Currency total_;
    int filterKind_ = 0;
    QString filterValue_;
    bool loaded_ = false;
};
