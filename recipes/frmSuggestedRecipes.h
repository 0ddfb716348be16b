#pragma once

#include <QDialog>

class QTreeWidget;
class QTreeWidgetItem;

// The recipes a suggestion run scored high enough, with their score and why.
class frmSuggestedRecipes : public QDialog {
    Q_OBJECT
public:
    explicit frmSuggestedRecipes(QWidget* parent = nullptr);

    QTreeWidget* lvSuggestions;

    // Sizes the columns to what the run put in and orders by score.
    void Loaded();

public Q_SLOTS:
    void mnuDisplayRecipe_Click();
    void lvSuggestions_DblClick(QTreeWidgetItem* item);
};
