#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

// Every product, or one manufacturer's, with a search by name and the
// commands of the pop-up menu.
class frmProductListing : public QDialog {
    Q_OBJECT
public:
    explicit frmProductListing(const QString& manufacturer = QString(), QWidget* parent = nullptr);

    QLabel* lblIntro;
    QLineEdit* txtSearch;
    QCheckBox* chkWatchOnly;
    QPushButton* cmdSearch;
    QTreeWidget* lvProducts;
    QMenu* mnuPopup;
    QPushButton* cmdClose;

    // The statement the listing was last filled from.
    QString Query() const { return query_; }
    // The product name of the selected line, "" with none.
    QString SelectedName() const;
    QAction* Command(const QString& name) const;

public Q_SLOTS:
    void LoadProducts();
    void cmdSearch_Click();
    void lvProducts_ColumnClick(int column);
    void mnuAddCoupon_Click();
    void mnuAddItemToInventory_Click();
    void mnuAddItemToShopList_Click();
    void mnuDeleteItem_Click();
    void mnuEditItem_Click();
    void mnuItemPriceHistory_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill(const QString& sql);
    // Gives each column its share of the list's width, whatever the names.
    void FitColumns();

    QString manufacturer_;
    QString query_;
    int sortColumn_ = 0;
    bool ascending_ = true;
};
