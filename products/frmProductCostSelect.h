#pragma once

#include <QDialog>
#include <QString>

class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;

// The prices an item has been bought at, store by store, offered while the
// item goes onto a list so that the person can take it where it was cheaper.
class frmProductCostSelect : public QDialog {
    Q_OBJECT
public:
    explicit frmProductCostSelect(QWidget* parent = nullptr);

    // Shows the alternatives for every product of that name and waits: "" when
    // cancelled or nothing was ticked, else "<store>::<product ID>::<cost>".
    QString GetLowCostStore(const QString& itemName);

    QLabel* lblHeader;
    QTreeWidget* lvItemList;
    QCheckBox* chkSupressCostSelection;
    QPushButton* cmdSelect;
    QPushButton* cmdCancel;

    // Where a line keeps its picture's key ("ItemCoupon" or "Item").
    static constexpr int ImageKeyRole = Qt::UserRole + 2;

public Q_SLOTS:
    void LoadItemCosts(const QString& itemName);
    void cmdSelect_Click();
    void cmdCancel_Click();

private:
    QString result_;
};
