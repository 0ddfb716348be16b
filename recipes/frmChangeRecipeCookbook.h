#pragma once

#include "core/GuardedDialog.h"

class QAction;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

// Every recipe with its cookbook, and the cookbooks as a tree: recipes dragged
// onto a cookbook move into it.
class frmChangeRecipeCookbook : public GuardedDialog {
    Q_OBJECT
public:
    explicit frmChangeRecipeCookbook(QWidget* parent = nullptr);

    QTreeWidget* lvRecipes;
    QTreeWidget* tvCookbooks;
    QMenu* mnuCookbooks;
    QAction* mnuAddNewCookbook;
    QAction* mnuDeleteCookbook;
    QAction* mnuFilter;
    QAction* mnuGroupBySpecialty;
    QAction* mnuGroupByCourse;
    QAction* mnuGroupByCategory;

    // The drop of the selected recipes on `node`; the number moved.
    int DropRecipes(QTreeWidgetItem* node, const QStringList& titles);

public Q_SLOTS:
    void LoadRecipes();
    void LoadCookbooks();
    void mnuAddNewCookbook_Click();

protected:
    bool MayClose() override { return true; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CookbookEdited(QTreeWidgetItem* node);
    QTreeWidgetItem* newNode_ = nullptr;
};
