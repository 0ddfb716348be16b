#include "recipes/frmRecipePreferences.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Counts sort as numbers.
class CountRow : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (column == 1) return Val(text(1)) < Val(other.text(1));
        return QTreeWidgetItem::operator<(other);
    }
};

QTreeWidget* CountList(const QString& name, const QString& first, QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setObjectName(name);
    list->setHeaderLabels({first, QStringLiteral("Used")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    list->header()->setSectionsClickable(true);
    // A header click sorts by that column, the first click from the top count down.
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list, [list](int column) {
        const bool same = list->property("sorted").toBool() && list->sortColumn() == column;
        const Qt::SortOrder order = same && list->header()->sortIndicatorOrder() == Qt::DescendingOrder
                                        ? Qt::AscendingOrder
                                        : Qt::DescendingOrder;
        list->setProperty("sorted", true);
        list->sortItems(column, order);
        list->header()->setSortIndicator(column, order);
        list->header()->setSortIndicatorShown(true);
    });
    return list;
}

void Fill(QTreeWidget* list, const QString& sql, const QString& nameColumn, const QString& countColumn) {
    list->clear();
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    QList<QTreeWidgetItem*> rows;
    for (; !rs.IsEOF(); rs.MoveNext())
        rows << new CountRow(QStringList{TextOf(rs.Field(nameColumn)), TextOf(rs.Field(countColumn))});
    list->addTopLevelItems(rows);
    list->resizeColumnToContents(0);
}

}  // namespace

frmRecipePreferences::frmRecipePreferences(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipePreferences"));
    setWindowTitle(QStringLiteral("Recipe Preferences"));
    lvFrequentCategories = CountList(QStringLiteral("lvFrequentCategories"), QStringLiteral("Category"), this);
    lvFrequentRecipes = CountList(QStringLiteral("lvFrequentRecipes"), QStringLiteral("Recipe Name"), this);
    lvFrequentCategories->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* favourites = new QAction(QStringLiteral("View &Favorites in this Category"), lvFrequentCategories);
    favourites->setObjectName(QStringLiteral("mnuViewFavsInThisCategory"));
    lvFrequentCategories->addAction(favourites);
    lvFrequentRecipes->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* clear = new QAction(QStringLiteral("&Clear Use Count"), lvFrequentRecipes);
    clear->setObjectName(QStringLiteral("mnuClearUseCount"));
    lvFrequentRecipes->addAction(clear);
    auto* similar = new QAction(QStringLiteral("Find &Similar Recipes"), lvFrequentRecipes);
    similar->setObjectName(QStringLiteral("mnuFindSimilar"));
    lvFrequentRecipes->addAction(similar);

    cmdSuggest = new QPushButton(QStringLiteral("&Suggest"), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setDefault(true);
    auto* lists = new QHBoxLayout;
    lists->addWidget(lvFrequentCategories);
    lists->addWidget(lvFrequentRecipes);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSuggest);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);
    resize(640, 420);

    connect(clear, &QAction::triggered, this, &frmRecipePreferences::mnuClearUseCount_Click);
    connect(favourites, &QAction::triggered, this, &frmRecipePreferences::ComingSoon);
    connect(similar, &QAction::triggered, this, &frmRecipePreferences::ComingSoon);
    connect(cmdSuggest, &QPushButton::clicked, this, &frmRecipePreferences::ComingSoon);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    LoadPreferences();
}

void frmRecipePreferences::LoadPreferences() {
    Trap(QStringLiteral("frmRecipePreferences.LoadPreferences"), [&] {
        Fill(lvFrequentCategories, QStringLiteral("SELECT * FROM History ORDER BY Category"),
             QStringLiteral("Category"), QStringLiteral("TimesUsed"));
        Fill(lvFrequentRecipes,
             QStringLiteral("SELECT [Title],[TimesUsed] from Recipie WHERE [TimesUsed] > 0  ORDER BY [TimesUsed]"),
             QStringLiteral("Title"), QStringLiteral("TimesUsed"));
    });
}

void frmRecipePreferences::mnuClearUseCount_Click() {
    QTreeWidgetItem* row = lvFrequentRecipes->currentItem();
    if (!row) return;
    clsRecipies().ClearUses(row->text(0));
    LoadPreferences();
}

void frmRecipePreferences::ComingSoon() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}
