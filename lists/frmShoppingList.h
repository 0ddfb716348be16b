#pragma once

#include "core/GuardedDialog.h"

#include <QList>
#include <QString>

class ComboCompleter;
class frmProductCostSelect;
class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStatusBar;
class QToolBar;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

// The screen on which one list is built and changed. Its lines are a scratch
// copy: nothing reaches ShopList until SaveList, which throws the list's old
// rows away and writes the lines anew.
class frmShoppingList : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmShoppingList(QWidget* parent = nullptr);

    // The columns of a line. The cost and the line's own store ride along
    // unseen; the coupon's ID is the line's tag.
    enum Column { colItem, colQuantity, colManufacturer, colSize, colCategory, colCoupon, colSpare, colCost, colStore };
    static constexpr int TagRole = Qt::UserRole + 1;

    QString CurrentListName() const { return currentListName_; }
    void CurrentListName(const QString& name);
    QString CurrentListDate() const { return currentListDate_; }
    void CurrentListDate(const QString& date);
    // Loading another list adds its lines to those already here.
    bool AppendExistingList() const { return appendExistingList_; }
    void AppendExistingList(bool append) { appendExistingList_ = append; }
    // Lines added or removed since the list was last saved.
    bool Changed() const { return changed_; }
    // The store every line goes to unless it has its own; "" for none.
    QString ListStore() const { return listStore_; }
    // "Yes" when the next line added takes a coupon.
    QString PendingCoupon() const { return pendingCoupon_; }
    // The name the list is kept under as a recurring list; "" when it is not one.
    QString RecurringName() const { return recurringName_; }

    // Adds the ingredients of one recipe as lines, the way a meal's courses are
    // imported: a list made just for that recipe starts here.
    void AddRecipe(const QString& title);

    // Asks before replacing the lines here, then fills them from the saved list
    // `name`, or from what has run out of the pantry for "Expired".
    void LoadShopList(const QString& name);
    // Writes the lines as the list, replacing its saved rows. A list without a
    // name is named first. False when nothing was saved.
    bool SaveList(bool asRecurring = false);
    // Reserves for `owner` the coupons that fit an item; "" frees them.
    void UpdateCoupons(const QString& manufacturer, const QString& item, const QString& size, const QString& owner);
    // Lines for the coupons taken on the possible-coupons screen.
    void AddSelectCoupons(const QList<qint32>& couponIDs);
    // Prints the saved list.
    void TempListPrint();
    // Empties the list, and deletes its saved rows when the person agrees.
    void ClearList();

    // The toolbar's button of that key (nullptr for an unknown key).
    QAction* Button(const QString& key) const;
    // The pop-up menu's command of that name.
    QAction* Command(const QString& name) const;

    QToolBar* tbMain;
    QGroupBox* fraItem;
    QComboBox* cboItem;
    QLineEdit* txtQuantity;
    QToolButton* cmdQuantityUp;
    QToolButton* cmdQuantityDown;
    QComboBox* cboManufacturer;
    QComboBox* cboSize;
    QComboBox* cboItemCategory;
    QLineEdit* txtCost;
    QPushButton* cmdAddItem;
    QPushButton* cmdAddCoupon;
    QGroupBox* fraStore;
    QComboBox* cboStore;
    QPushButton* cmdStoreAction;
    QPushButton* cmdClearStore;
    QGroupBox* fraImportMeal;
    QComboBox* cboMeal;
    QPushButton* cmdImport;
    QTreeWidget* lvShoppingList;
    QMenu* mnuPopup;
    QStatusBar* sbStatus;

    // Which meals the meal box offers.
    enum MealKind { AllMeals, CheapMeals, FavoriteMeals };

public Q_SLOTS:
    void tbMain_ButtonClick(const QString& key);
    void LoadMeals(int kind = AllMeals);
    void LoadSizes();
    void LoadCategories();
    void LoadManufacturers();
    void LoadItems();
    void LoadStores();
    void cmdImport_Click();
    void cmdAddItem_Click();
    void cmdAddCoupon_Click();
    // A change to the item box's text typed with `key`.
    void cboItem_Change(int key);
    // Leaving the item box: a known product fills the other boxes.
    void cboItem_Validate();
    // False (and the box keeps the focus) when the quantity is refused.
    bool txtQuantity_Validate();
    bool txtCost_Validate();
    // Up and Down step the quantity by one.
    void StepQuantity(int step);
    void cmdStoreAction_Click();
    void cmdClearStore_Click();
    void mnuRemoveItem_Click();
    void mnuFindCoupon_Click();
    void mnuReleaseCoupon_Click();
    void mnuEditItem_Click();
    void mnuEditItemCost_Click();
    void mnuViewPriceHistory_Click();

protected:
    bool MayClose() override;
    void Closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildToolbar();
    void BuildInputs();
    void BuildPopup();
    void LoadRecipe(const QString& title);
    void PickAndLoadRecipe();
    // Joins the new quantity to a line of the same item, manufacturer and size;
    // false when there is none.
    bool LineMerge(const QString& item, const QString& manufacturer, const QString& size, const QString& quantity,
                   const QString& cost);
    QTreeWidgetItem* AddLine(const QStringList& cells, const QString& tag);
    void SetListCurrentCoupon(qint32 couponID);
    // The chosen list's name, then LoadShopList; recurring lists only when asked.
    void OpenList(bool recurringOnly);
    bool AskName();
    void RemoveLines(const QList<QTreeWidgetItem*>& lines, bool releaseCoupons);
    void ClearInputs();
    // Whether `manufacturer` is some store's own brand other than `store`'s.
    static bool IsOtherStoreBrand(const QString& manufacturer, const QString& store);
    void SetChanged(bool changed);
    void RefreshStatus();
    void ShowStyle(const QString& key);

    QString currentListName_;
    QString currentListDate_;
    bool appendExistingList_ = false;
    bool changed_ = false;
    bool saved_ = false;
    QString pendingCoupon_ = QStringLiteral("No");
    QString pendingTag_;
    QString listStore_;
    QString recurringName_;
    // The quantity last let through, so that leaving the box and then adding
    // asks about a large quantity once.
    QString checkedQuantity_;
    bool adding_ = false;
    // The meal whose courses are being imported; a recipe it names that is
    // gone may be taken off it.
    QString importingMeal_;
    ComboCompleter* itemCompleter_;
    frmProductCostSelect* costSelect_ = nullptr;
    QLabel* lblName;
    QLabel* lblDate;
    QLabel* lblItems;
    QLabel* lblStatus;
    QLabel* lblCost;
};
