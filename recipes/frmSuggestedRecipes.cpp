#include "recipes/frmSuggestedRecipes.h"

#include "recipes/clsRecipies.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Scores sort as numbers, not as text: "100" above "95".
class ScoreRow : public QTreeWidgetItem {
public:
    bool operator<(const QTreeWidgetItem& other) const override {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (column == 1) return text(1).toLongLong() < other.text(1).toLongLong();
        return QTreeWidgetItem::operator<(other);
    }
};

}  // namespace

frmSuggestedRecipes::frmSuggestedRecipes(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSuggestedRecipes"));
    setWindowTitle(QStringLiteral("Suggested Recipes"));
    lvSuggestions = new QTreeWidget(this);
    lvSuggestions->setObjectName(QStringLiteral("lvSuggestions"));
    lvSuggestions->setHeaderLabels({QStringLiteral("Recipe Title"), QStringLiteral("Hit %"), QStringLiteral("Results")});
    lvSuggestions->setRootIsDecorated(false);
    lvSuggestions->setUniformRowHeights(true);
    lvSuggestions->setAlternatingRowColors(true);
    lvSuggestions->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* display = new QAction(QStringLiteral("&Display Recipe"), lvSuggestions);
    display->setObjectName(QStringLiteral("mnuDisplayRecipe"));
    lvSuggestions->addAction(display);
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvSuggestions);
    layout->addLayout(buttons);
    resize(720, 460);
    connect(display, &QAction::triggered, this, &frmSuggestedRecipes::mnuDisplayRecipe_Click);
    connect(lvSuggestions, &QTreeWidget::itemDoubleClicked, this, &frmSuggestedRecipes::lvSuggestions_DblClick);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void frmSuggestedRecipes::Loaded() {
    // The run adds plain rows; they become rows that sort by number.
    QList<QTreeWidgetItem*> rows;
    const QList<QTreeWidgetItem*> plainRows = lvSuggestions->invisibleRootItem()->takeChildren();
    for (QTreeWidgetItem* plain : plainRows) {
        auto* row = new ScoreRow;
        for (int c = 0; c < 3; ++c) row->setText(c, plain->text(c));
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        rows << row;
        delete plain;
    }
    lvSuggestions->addTopLevelItems(rows);
    lvSuggestions->setSortingEnabled(true);
    lvSuggestions->sortByColumn(1, Qt::DescendingOrder);
    for (int c = 0; c < 3; ++c) lvSuggestions->resizeColumnToContents(c);
    lvSuggestions->setColumnWidth(0, qMin(lvSuggestions->columnWidth(0), 320));
    if (!rows.isEmpty()) lvSuggestions->setCurrentItem(lvSuggestions->topLevelItem(0));
}

void frmSuggestedRecipes::mnuDisplayRecipe_Click() { lvSuggestions_DblClick(lvSuggestions->currentItem()); }

void frmSuggestedRecipes::lvSuggestions_DblClick(QTreeWidgetItem* item) {
    if (!item) return;
    clsRecipies().PrintPreview(item->text(0), 2, QString());
}
