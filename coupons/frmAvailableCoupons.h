#pragma once

#include <QDialog>
#include <QList>
#include <QString>

class QAction;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

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

    enum Column { colItem, colCoupon, colManufacturer, colSize, colValue, colExpiration, colStore };
    // The coupon a line stands for.
    static qint32 CouponID(const QTreeWidgetItem* line);

    QTreeWidget* lvCoupons;
    QPushButton* cmdAddToList;
    QPushButton* cmdClose;
    QMenu* mnuPopup;
    QAction* mnuDisplayCoupon;
    QAction* mnuAddRecipeToList;
    QAction* mnuCreateMeal;

public Q_SLOTS:
    void mnuDisplayCoupon_Click();
    void mnuAddRecipeToList_Click();
    void mnuCreateMeal_Click();

private:
    void Clear();
    QTreeWidgetItem* AddLine(qint32 id, const QStringList& cells);
    void FitColumns();

    // The recipe whose coupons are listed; empty for a product.
    QString recipe_;
};
