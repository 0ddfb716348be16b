#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QMenu;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;

// Recipes that use what is in the cupboard: the ingredients typed in, or
// everything on hand, matched against every recipe's ingredient lines and
// ranked by how much the household likes the recipe.
class frmInventorySuggestions : public QDialog {
    Q_OBJECT
public:
    explicit frmInventorySuggestions(QWidget* parent = nullptr);

    enum Column { colPoints, colRecipe, colCookbook, colCategory, colMatched };

    QRadioButton* optSuggestFromIngredients;
    QRadioButton* optSuggestFromInventory;
    QComboBox* cboSingleItem;
    QPushButton* cmdAddItem;
    QPushButton* cmdClear;
    QListWidget* lstIngredients;
    QCheckBox* chkMatchAllIngredients;
    QPushButton* cmdSuggest;
    QTreeWidget* lvRecipeList;
    QProgressBar* prgProgress;
    QLabel* lblStatus;
    QMenu* mnuPopup;
    QPushButton* cmdClose;

    QAction* Command(const QString& name) const;

public Q_SLOTS:
    void optSuggestFromIngredients_Click();
    void optSuggestFromInventory_Click();
    void cmdAddItem_Click();
    void cmdClear_Click();
    void GetIngredientSuggestions();
    void mnuAddToShoppingList_Click();
    void mnuPrintRecipe_Click();
    void mnuPrintPreview_Click();

private:
    QString SelectedTitle() const;
};
