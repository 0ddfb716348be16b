#pragma once

#include <QDialog>

class QPushButton;
class QTreeWidget;

// What the household's history holds: how often each category and each
// recipe was used. A recipe's count can be cleared.
class frmRecipePreferences : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipePreferences(QWidget* parent = nullptr);

    QTreeWidget* lvFrequentCategories;
    QTreeWidget* lvFrequentRecipes;
    QPushButton* cmdSuggest;
    QPushButton* cmdClose;

    void LoadPreferences();

public Q_SLOTS:
    void mnuClearUseCount_Click();
    void ComingSoon();
};
