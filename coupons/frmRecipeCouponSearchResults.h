#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QModelIndex;
class QProgressBar;
class QStatusBar;
class QToolBar;
class QTreeView;

// The recipes that have a coupon for one of their ingredients: a line for
// every coupon of every ingredient of every recipe the query finds. A big
// household makes millions of lines, so the lines are kept as runs (a recipe's
// ingredient and the coupons its name matches) and the view reads them as it
// scrolls.
class frmRecipeCouponSearchResults : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipeCouponSearchResults(QWidget* parent = nullptr);
    ~frmRecipeCouponSearchResults() override;

    // Looks through the recipes `recipeSql` finds, showing how far it has
    // got. `expireDays` is the search form's days limit, kept with the results.
    void GetSearchResults(const QString& recipeSql, qint32 expireDays);
    qint32 ExpireDays() const { return expireDays_; }

    enum Column { colRecipe, colIngredient, colCoupon, colValue, colExpires };

    // Every line found, also those the view has not reached yet.
    qint64 LineCount() const;
    QStringList Line(qint64 row) const;
    qint32 LineCouponID(qint64 row) const;
    // The recipe of the current line, "" without one.
    QString SelectedRecipe() const;

    QToolBar* tbrMain;
    QTreeView* lvSearchResults;
    QStatusBar* sbStatus;
    QLabel* lblStatus;
    QProgressBar* pbProgress;

public Q_SLOTS:
    // "Close", "Compare", "Meal" or "Shoplist".
    void tbrMain_ButtonClick(const QString& key);
    void lvSearchResults_ItemClick(const QModelIndex& index);
    void AddRecipeToShoppingList();

protected:
    void closeEvent(QCloseEvent* event) override;
    void done(int result) override;

private:
    void FitColumns();

    class Lines;
    Lines* lines_;
    qint32 expireDays_ = 0;
    bool searching_ = false;
    bool stopped_ = false;
    QString recipe_;
};
