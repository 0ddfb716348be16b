#pragma once

#include "core/GuardedDialog.h"

#include <QDateTime>

class QComboBox;
class QDateEdit;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// After the shopping: the purchases written from a printed list, checked
// against the receipt. A checked line was bought and becomes a final spending
// record at the price and store shown; an unchecked line was not bought and
// leaves both the spending records and the inventory.
class frmShoppingListUpdate : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmShoppingListUpdate(QWidget* parent = nullptr);

    enum Column { colItem, colManufacturer, colSize, colCost, colStore, colID };
    // The line's coupon ID ("" with none) and its picture's key ("HasCoupon", "Item").
    static constexpr int TagRole = Qt::UserRole + 1;
    static constexpr int ImageKeyRole = Qt::UserRole + 2;

    QComboBox* cboShopingList;
    QPushButton* cmdLoad;
    QLabel* lblHeader;
    QLabel* lblReceiptDate;
    QDateEdit* dtpReceiptDate;
    QComboBox* cboStore;
    QTreeWidget* lvListItems;
    QMenu* mnuPopup;
    QPushButton* cmdApply;
    QPushButton* cmdSave;
    QPushButton* cmdCancel;

    QString LoadedList() const { return listName_; }
    bool Changed() const { return changed_; }
    QAction* Command(const QString& name) const;

public Q_SLOTS:
    void LoadListNames();
    void LoadListItems(const QString& listName);
    // False when the choice is refused (an unknown name, or the person keeps
    // the unsaved list).
    bool cboShopingList_Validate();
    void cmdLoad_Click();
    // False when the person stopped it at the question.
    bool UpdateItemCosts();
    void cmdApply_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void mnuEditItemCost_Click();
    void mnuRemoveItem_Click();
    void mnuAddNewItem_Click();
    void mnuSetItemsStore_Click();
    void mnuMarkAllItemsForStore_Click();
    void mnuSetItemsIsle_Click();
    void mnuReleaseItemsCoupon_Click();
    void mnuCheckAllEntries_Click();
    void mnuItemPriceHistory_Click();
    void mnuProductCostHistory_Click();

protected:
    bool MayClose() override;

private:
    QTreeWidgetItem* AddLine(const QString& name, const QString& manufacturer, const QString& size,
                             const QVariant& cost, const QString& store, qint32 spendID, const QString& couponTag);
    // What an unchecked line gets: its spending record and its stock go.
    void NotBought(QTreeWidgetItem* line);
    void SetCoupon(QTreeWidgetItem* line, const QString& tag);
    void UpdateHeader();
    void ShowReceiptDate(bool on);
    QTreeWidgetItem* Selected() const;

    QString listName_;
    QDateTime listDate_;
    bool changed_ = false;
};
