#pragma once

#include "core/GuardedDialog.h"

#include <QHash>
#include <QSet>
#include <QString>

class QComboBox;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The map of one store: its aisles in walking order, the categories shelved
// in each, the products of each category, and the products this store keeps
// elsewhere. Categories come from the list of those not yet placed, by drag
// and drop or with a new aisle; nothing reaches the aisle map before Apply or
// Save.
class frmStoreIsleSetup : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmStoreIsleSetup(QWidget* parent = nullptr);

    // Node roles: the key ("Isle::3", "CAT_12", "PRO7ID", "ALT_4"), the tag
    // ("Isle", "Category", "Product::<name>::<manufacturer>"), an aisle's
    // walking order, and for a category the aisle it is saved under ("" when
    // the mapping is not saved yet).
    enum Role { KeyRole = 0x0100 + 1, TagRole, OrderRole, SavedIsleRole };

    QTreeWidget* tvIsleMap;
    QListWidget* lvCategories;
    QComboBox* cboIsle;
    QLineEdit* txtIsleOrder;
    QLineEdit* txtIsleCount;
    QComboBox* cboItemCategory;
    QPushButton* cmdAddIsle;
    QPushButton* cmdStandardIsles;
    QPushButton* cmdAddCategory;
    QPushButton* cmdApply;
    QPushButton* cmdSave;
    QPushButton* cmdCancel;

    void LoadStore(const QString& store);
    QString Store() const { return store_; }
    bool Changed() const { return changed_; }

    QTreeWidgetItem* Root() const;
    QTreeWidgetItem* FindIsle(const QString& isle) const;
    QTreeWidgetItem* FindCategory(const QString& category) const;

public Q_SLOTS:
    void LoadItemCategories();
    void LoadStoreIsles();
    void LoadNonMappedIsles();
    void LoadCategoryItems(QTreeWidgetItem* categoryNode);
    void cmdAddIsle_Click();
    void cmdStandardIsles_Click();
    void cmdAddCategory_Click();
    void mnuAddCategory_Click();
    // A node or a category from the list dropped on a node of the tree.
    // `source` is null when the category comes from the list.
    void tvIsleMap_DragDrop(QTreeWidgetItem* source, const QString& listCategory, QTreeWidgetItem* target);
    void mnuResetItemCategory_Click();
    void mnuCheckItemCoupons_Click();
    void mnuItemPriceHistory_Click();
    // True when every category under an aisle is on the map.
    bool SaveMapping();
    void cmdApply_Click();
    void cmdSave_Click();

protected:
    bool MayClose() override;

private:
    QTreeWidgetItem* AddIsleNode(const QString& isle, qint16 order);
    QTreeWidgetItem* AddCategoryNode(QTreeWidgetItem* isle, const QString& category, const QString& savedIsle);
    void TakeFromList(const QString& category);
    void ReturnToList(const QString& category);
    bool ReadOrder(qint16& order);
    void ShowPopup(const QPoint& at);
    void LoadAlternates();

    QString store_;
    bool changed_ = false;
    int isleKeys_ = 0;
    QHash<QString, qint32> categoryIDs_;           // by name, lowered
    QHash<QString, QList<QStringList>> products_;  // id, name, manufacturer by category, lowered
    QSet<QString> alternates_;                     // "name\x1fmanufacturer", lowered
    QMenu* popup_ = nullptr;
};
