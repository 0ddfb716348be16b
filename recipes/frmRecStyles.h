#pragma once

#include "core/GuardedDialog.h"

class QAction;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

// The recipe categories ("styles"): added, removed, and the recipes of one shown.
class frmRecStyles : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmRecStyles(QWidget* parent = nullptr);

    QTreeWidget* lvStyles;
    QLineEdit* txtNewCategory;
    QPushButton* cmdAddCat;
    QPushButton* cmdClose;
    QMenu* mnuStyle;
    QAction* mnuShowRecipes;
    QAction* mnuDeleteStyle;
    // The recipes of the style last shown, "title|style" in title order.
    QTreeWidget* lvRecipes;

public Q_SLOTS:
    void LoadStyles();
    void cmdAddCat_Click();
    void mnuDeleteStyle_Click();
    void mnuShowRecipes_Click();

protected:
    bool MayClose() override { return true; }
};
