#pragma once

#include "core/GuardedDialog.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

// The one screen on which a recipe is written or changed: three steps (general,
// ingredients, directions) walked with Previous and Next, saved by Add. Every
// step keeps what was typed while another is shown; only Clear (or a saved new
// recipe) empties them. After a new recipe is saved the screen is ready for the
// next one; after an edit it closes.
class frmNewRecipies : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmNewRecipies(QWidget* parent = nullptr);
    ~frmNewRecipies() override;

    // "EDIT" followed by a title edits that recipe; empty enters a new one.
    // Set before the screen is shown: it loads the recipe at once.
    void SetRecipe(const QString& tag);
    bool ItemAdded(const QString& name) const;
    bool UnitAdded(const QString& unit) const;
    bool EditMode() const;
    // False after an edit asked for a title that is not on file.
    bool RecipeFound() const { return found_; }

    QStackedWidget* frRecipeStep;
    QLabel* lblStep;
    // General
    QLineEdit* txtName;
    QRadioButton* optAppetizer;
    QRadioButton* optMainCourse;
    QRadioButton* optDesert;
    QComboBox* cboStyle;
    QPushButton* cmdAddStyle;
    QPushButton* cmdAppendStyle;
    QLineEdit* txtStyles;
    QComboBox* cboServes;
    QComboBox* cboPrepTime;
    QPushButton* cmdAddPhoto;
    // Ingredient
    QComboBox* cboQuantity;
    QComboBox* cboUnit;
    QComboBox* cboItem;
    QLineEdit* txtPrepInstructions;
    QPushButton* cmdAddIngred;
    QPushButton* cmdConvert;
    QTreeWidget* lvIngredients;
    QMenu* mnuPopupMenu;
    QAction* mnuEditIngredient;
    QAction* mnuDeleteIngredient;
    // Instructions
    QToolBar* tbDirections;
    QPlainTextEdit* txtDirections;
    // Walking and saving
    QPushButton* cmdPrevious;
    QPushButton* cmdNext;
    QPushButton* cmdAdd;
    QPushButton* cmdClear;
    QPushButton* cmdClose;

    enum IngredientColumn { colItem, colUnit, colQty, colPrep };

public Q_SLOTS:
    void LoadRecipe(const QString& title);
    void ShowStep(int step);
    void cmdNext_Click();
    void cmdPrevious_Click();
    void cmdAddIngred_Click();
    void mnuEditIngredient_Click();
    void mnuDeleteIngredient_Click();
    void cmdAddStyle_Click();
    void cmdAppendStyle_Click();
    void txtStyles_LostFocus();
    void cmdConvert_Click();
    void cmdAddPhoto_Click();
    void cmdAdd_Click();
    void cmdClear_Click();
    void tbDirections_ButtonClick(const QString& key);

protected:
    bool MayClose() override { return true; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillLists();
    void EnableStyleButtons();
    void SetRow(QTreeWidgetItem* row);
    // Writes the recipe; false when the person stopped it or it failed.
    bool Save();

    QString recipeTag_;
    QString imageFile_;
    QTreeWidgetItem* editedItem_ = nullptr;
    bool editing_ = false;
    int listCounter_ = 0;
    bool found_ = true;
    QString accepted_;  // "Accept" once a new recipe's name was confirmed
};
