#pragma once

#include <QDialog>

class QTreeWidget;

// The recipes of one cookbook with their categories, by title.
class frmCookbookRecipies : public QDialog {
    Q_OBJECT
public:
    explicit frmCookbookRecipies(QWidget* parent = nullptr);

    QTreeWidget* lvRecipies;
    // Fills the list; the number of recipes listed.
    int LoadRecipes(const QString& cookbook);
};
