#pragma once

#include <QDialog>
#include <functional>

class Recordset;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QMenu;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

// What is on hand: every product bought and not yet used up, with a filter by
// purchase date, look-out and coupons, a search, and the commands that put an
// item back on the list or take it out of the inventory.
class frmProductInventory : public QDialog {
    Q_OBJECT
public:
    explicit frmProductInventory(QWidget* parent = nullptr);

    enum Column { colName, colManufacturer, colQuantity, colSize, colPurchased, colUsed, colCategory };
    // The line's product ID and its picture's key ("InventoryOK", "InventoryWarning").
    static constexpr int IdRole = Qt::UserRole + 1;
    static constexpr int ImageKeyRole = Qt::UserRole + 2;

    QTreeWidget* lvInventory;
    QDateEdit* dtpMinDate;
    QDateEdit* dtpMaxDate;
    QCheckBox* chkLookoutOnly;
    QCheckBox* chkCouponItemsOnly;
    QCheckBox* chkNotOnShopList;
    QPushButton* cmdApplyFilter;
    QPushButton* cmdShowAll;
    QComboBox* cboSearch;
    QRadioButton* optManufacturers;
    QRadioButton* optProductName;
    QRadioButton* optOther;
    QCheckBox* chkRemoveWhenListed;
    QLabel* lblCount;
    QMenu* mnuPopup;
    QPushButton* cmdClose;

    QAction* Command(const QString& name) const;
    // The lines the search leaves visible.
    int VisibleCount() const;

public Q_SLOTS:
    void LoadInventory();
    void cmdApplyFilter_Click();
    void cboSearch_Change();
    void mnuAddToShoppingList_Click();
    void mnuRemoveItem_Click();
    void mnuAddNewItem_Click();
    void mnuItemPriceHistory_Click();
    void mnuInventoryOptions_Click();
    void mnuPrintList_Click();
    void mnuPrintPreview_Click();
    void mnuPrintWorksheet_Click();

private:
    // Fills the list from `sql`; `keep` decides per product row. The rows kept.
    int Fill(const QString& sql, const std::function<bool(const Recordset&)>& keep);
    void FillSearchChoices();
    void FitColumns();
    void UpdateCount();
    QTreeWidgetItem* Selected() const;
};
