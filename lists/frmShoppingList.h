#pragma once

#include "core/GuardedDialog.h"

#include <QString>

class QCloseEvent;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QStatusBar;
class QTreeWidget;

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
    // Lines added or removed since the list was last saved.
    bool Changed() const { return changed_; }

    // Adds the ingredients of one recipe as lines, the way a meal's courses are
    // imported: a list made just for that recipe starts here.
    void AddRecipe(const QString& title);

    // Writes the lines as the list, asking a name first when it has none.
    // False when nothing was saved.
    bool SaveList();

    QGroupBox* fraImportMeal;
    QComboBox* cboMeal;
    QPushButton* cmdImport;
    QTreeWidget* lvShoppingList;
    QPushButton* cmdRemove;
    QPushButton* cmdSaveList;
    QPushButton* cmdClose;
    QStatusBar* sbStatus;

    // Which meals the meal box offers.
    enum MealKind { AllMeals, CheapMeals, FavoriteMeals };

public Q_SLOTS:
    void LoadMeals(int kind = AllMeals);
    void cmdImport_Click();
    void cmdRemove_Click();
    void cmdSaveList_Click();
    void cmdClose_Click();

protected:
    bool MayClose() override;
    void Closing() override;

private:
    void LoadRecipe(const QString& title);
    // Reserves the coupons that fit a saved line for `owner`; "" frees them.
    void UpdateCoupons(const QString& manufacturer, const QString& item, const QString& size, const QString& owner);
    void SetChanged(bool changed);
    void RefreshStatus();

    QString currentListName_;
    QString currentListDate_;
    bool changed_ = false;
    bool saved_ = false;
    // The meal whose courses are being imported; a recipe it names that is
    // gone may be taken off it.
    QString importingMeal_;
    QLabel* lblName;
    QLabel* lblDate;
    QLabel* lblItems;
    QLabel* lblStatus;
};
