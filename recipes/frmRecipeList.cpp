#include "recipes/frmRecipeList.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "recipes/clsRecipies.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

frmRecipeList::frmRecipeList(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipeList"));
    setWindowTitle(QStringLiteral("Recipe List"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    lvRecipes = new QTreeWidget(this);
    lvRecipes->setObjectName(QStringLiteral("lvRecipes"));
    lvRecipes->setHeaderLabels({QStringLiteral("Title"), QStringLiteral("Servings"), QStringLiteral("Cookbook")});
    lvRecipes->setRootIsDecorated(false);
    lvRecipes->setUniformRowHeights(true);
    lvRecipes->setAlternatingRowColors(true);
    lvRecipes->setSortingEnabled(true);
    lvRecipes->sortByColumn(0, Qt::AscendingOrder);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvRecipes);
    resize(560, 420);
    connect(lvRecipes, &QTreeWidget::itemDoubleClicked, this, &frmRecipeList::lvRecipes_DblClick);
}

void frmRecipeList::Fill(const QString& sql) {
    // Sorting waits until every row is in, rather than placing each one.
    lvRecipes->setSortingEnabled(false);
    lvRecipes->clear();
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    const QIcon favourite = PaneIcon(QStringLiteral("RecipeFavorite"));
    const QIcon plain = PaneIcon(QStringLiteral("Recipe"));
    QList<QTreeWidgetItem*> rows;
    for (; !rs.IsEOF(); rs.MoveNext()) {
        auto* row = new QTreeWidgetItem;
        row->setText(0, TextOf(rs.Field(QStringLiteral("Title"))));
        row->setText(1, TextOf(rs.Field(QStringLiteral("Servings"))));
        row->setText(2, TextOf(rs.Field(QStringLiteral("CookbookName"))));
        const QVariant mark = rs.Field(QStringLiteral("Favorite"));
        const bool isFavourite = !IsNull(mark) && !IsEmpty(mark) && CBool(mark);
        row->setIcon(0, isFavourite ? favourite : plain);
        row->setData(0, Qt::UserRole, isFavourite ? QStringLiteral("Favorite") : QStringLiteral("NonFavorite"));
        rows << row;
    }
    lvRecipes->addTopLevelItems(rows);
    lvRecipes->setSortingEnabled(true);
    for (int c = 0; c < 3; ++c) lvRecipes->resizeColumnToContents(c);
    setWindowTitle(QStringLiteral("Recipe List (%1)").arg(rows.size()));
}

int frmRecipeList::LoadRecipes(const QString& sql) {
    return Trap(QStringLiteral("frmRecipeList.LoadRecipes"), -1, [&] {
        Fill(sql);
        return lvRecipes->topLevelItemCount();
    });
}

int frmRecipeList::LoadByCookbook(const QString& cookbook) {
    return Trap(QStringLiteral("frmRecipeList.LoadByCookbook"), -1, [&] {
        Fill(QStringLiteral("SELECT * FROM Recipie WHERE [CookbookName] = '") + cookbook + QStringLiteral("'"));
        return lvRecipes->topLevelItemCount();
    });
}

int frmRecipeList::LoadByCategory(const QString& category) {
    return Trap(QStringLiteral("frmRecipeList.LoadRecipes"), -1, [&] {
        Fill(QStringLiteral("SELECT Title,Servings,Favorite,CookbookName FROM Recipie WHERE [Style] LIKE '%") +
             category + QStringLiteral("%'"));
        return lvRecipes->topLevelItemCount();
    });
}

void frmRecipeList::lvRecipes_DblClick(QTreeWidgetItem* item) {
    if (!item) return;
    clsRecipies().PrintPreview(item->text(0), 2, QString());
}
