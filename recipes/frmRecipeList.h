#pragma once

#include <QDialog>

class QTreeWidget;
class QTreeWidgetItem;

// The list of recipes that the searches share: any query of Recipie is shown
// as title, servings and cookbook, favourites marked. A double click shows the
// recipe.
class frmRecipeList : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipeList(QWidget* parent = nullptr);

    QTreeWidget* lvRecipes;

    // Lists the rows of `sql`; the count of rows listed, -1 when the query failed.
    int LoadRecipes(const QString& sql);
    int LoadByCookbook(const QString& cookbook);
    int LoadByCategory(const QString& category);

public Q_SLOTS:
    void lvRecipes_DblClick(QTreeWidgetItem* item);

private:
    void Fill(const QString& sql);
};
