#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

// "Cross Recipes and Coupons": which recipes to look through (favourites or
// all, optionally only those used more than a number of times) and which
// coupons, before the results screen does the looking.
class frmRecipeCouponSearch : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipeCouponSearch(QWidget* parent = nullptr);

    // The recipe query the options make.
    QString SearchSql() const;

    QRadioButton* optSearchFavoriteRecipes;
    QRadioButton* optSearchAllRecipes;
    QCheckBox* chkLimitUseCount;
    QLineEdit* txtMinUseCount;
    QRadioButton* optSearchAllCoupons;
    QCheckBox* chkLimitCouponSearch;
    QLineEdit* txtCouponExpireDays;
    QPushButton* cmdSearch;
    QPushButton* cmdCancel;

public Q_SLOTS:
    void cmdSearch_Click();
    void chkLimitUseCount_Click();
    void chkLimitCouponSearch_Click();
    void optSearchAllCoupons_Click();

private:
    // False, with the notice shown and the box focused, when a number in use
    // is not a number.
    bool NumbersValid();
};
