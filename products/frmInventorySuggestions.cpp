#include "products/frmInventorySuggestions.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "recipes/RecipeCommands.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Sorts "Pt." as a number; everything else as text.
class SuggestionLine : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override {
        const int c = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (c == frmInventorySuggestions::colPoints) return text(c).toInt() < other.text(c).toInt();
        return text(c).compare(other.text(c), Qt::CaseInsensitive) < 0;
    }
};

// The ingredient columns a recipe is matched on.
const QStringList& IngredientColumns() {
    static const QStringList columns = [] {
        QStringList s;
        for (int i = 1; i <= 18; ++i) s << QStringLiteral("Ingredient") + QString::number(i);
        return s;
    }();
    return columns;
}

}  // namespace

frmInventorySuggestions::frmInventorySuggestions(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmInventorySuggestions"));
    setWindowTitle(QStringLiteral("Recipe Suggestions Using Inventory"));

    optSuggestFromIngredients =
        new QRadioButton(QStringLiteral("Suggest Recipes based on the Ingredients I enter below."), this);
    optSuggestFromIngredients->setObjectName(QStringLiteral("optSuggestFromIngredients"));
    optSuggestFromInventory = new QRadioButton(QStringLiteral("Suggest Recipes based on my current Inventory."), this);
    optSuggestFromInventory->setObjectName(QStringLiteral("optSuggestFromInventory"));
    optSuggestFromIngredients->setChecked(true);

    cboSingleItem = new QComboBox(this);
    cboSingleItem->setObjectName(QStringLiteral("cboSingleItem"));
    cboSingleItem->setEditable(true);
    cboSingleItem->setInsertPolicy(QComboBox::NoInsert);
    cboSingleItem->setMinimumContentsLength(24);
    cmdAddItem = new QPushButton(QStringLiteral("&Add"), this);
    cmdAddItem->setObjectName(QStringLiteral("cmdAddItem"));
    cmdClear = new QPushButton(QStringLiteral("C&lear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    lstIngredients = new QListWidget(this);
    lstIngredients->setObjectName(QStringLiteral("lstIngredients"));
    chkMatchAllIngredients = new QCheckBox(QStringLiteral("Match all ingredients"), this);
    chkMatchAllIngredients->setObjectName(QStringLiteral("chkMatchAllIngredients"));
    cmdSuggest = new QPushButton(QStringLiteral("&Suggest"), this);
    cmdSuggest->setObjectName(QStringLiteral("cmdSuggest"));

    lvRecipeList = new QTreeWidget(this);
    lvRecipeList->setObjectName(QStringLiteral("lvRecipeList"));
    lvRecipeList->setHeaderLabels({QStringLiteral("Pt."), QStringLiteral("Recipe"), QStringLiteral("Cookbook"),
                                   QStringLiteral("Category"), QStringLiteral("Matched Item")});
    lvRecipeList->setRootIsDecorated(false);
    lvRecipeList->setUniformRowHeights(true);
    lvRecipeList->setAlternatingRowColors(true);
    lvRecipeList->setContextMenuPolicy(Qt::CustomContextMenu);
    lvRecipeList->setColumnWidth(colPoints, 40);
    lvRecipeList->setColumnWidth(colRecipe, 240);
    lvRecipeList->setColumnWidth(colCookbook, 120);
    lvRecipeList->setColumnWidth(colCategory, 120);

    prgProgress = new QProgressBar(this);
    prgProgress->setObjectName(QStringLiteral("prgProgress"));
    prgProgress->setTextVisible(false);
    prgProgress->setMaximumHeight(14);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));

    mnuPopup = new QMenu(this);
    auto add = [this](const char* name, const QString& caption, void (frmInventorySuggestions::*slot)()) {
        QAction* a = mnuPopup->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, slot);
    };
    add("mnuAddToShoppingList", QStringLiteral("Add to Shopping List"),
        &frmInventorySuggestions::mnuAddToShoppingList_Click);
    add("mnuPrintRecipe", QStringLiteral("Print Recipe"), &frmInventorySuggestions::mnuPrintRecipe_Click);
    add("mnuPrintPreview", QStringLiteral("Print Preview"), &frmInventorySuggestions::mnuPrintPreview_Click);

    auto* entry = new QGridLayout;
    auto* itemLabel = new QLabel(QStringLiteral("&Ingredient:"), this);
    itemLabel->setBuddy(cboSingleItem);
    entry->addWidget(itemLabel, 0, 0);
    entry->addWidget(cboSingleItem, 0, 1);
    entry->addWidget(cmdAddItem, 0, 2);
    entry->addWidget(lstIngredients, 1, 1, 2, 1);
    entry->addWidget(cmdClear, 1, 2, Qt::AlignTop);
    entry->setColumnStretch(1, 1);
    auto* options = new QVBoxLayout;
    options->addWidget(optSuggestFromIngredients);
    options->addWidget(optSuggestFromInventory);
    options->addLayout(entry);
    auto* run = new QHBoxLayout;
    run->addWidget(chkMatchAllIngredients);
    run->addStretch(1);
    run->addWidget(cmdSuggest);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblStatus, 1);
    bottom->addWidget(prgProgress, 1);
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(options);
    layout->addLayout(run);
    layout->addWidget(lvRecipeList, 1);
    layout->addLayout(bottom);
    lstIngredients->setMaximumHeight(110);

    connect(optSuggestFromIngredients, &QRadioButton::clicked, this,
            &frmInventorySuggestions::optSuggestFromIngredients_Click);
    connect(optSuggestFromInventory, &QRadioButton::clicked, this,
            &frmInventorySuggestions::optSuggestFromInventory_Click);
    connect(cmdAddItem, &QPushButton::clicked, this, &frmInventorySuggestions::cmdAddItem_Click);
    connect(cboSingleItem->lineEdit(), &QLineEdit::returnPressed, this, &frmInventorySuggestions::cmdAddItem_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmInventorySuggestions::cmdClear_Click);
    connect(cmdSuggest, &QPushButton::clicked, this, &frmInventorySuggestions::GetIngredientSuggestions);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(lvRecipeList, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QTreeWidgetItem* item = lvRecipeList->itemAt(pos)) lvRecipeList->setCurrentItem(item);
        if (lvRecipeList->currentItem()) mnuPopup->popup(lvRecipeList->viewport()->mapToGlobal(pos));
    });
    connect(lvRecipeList, &QTreeWidget::itemActivated, this, &frmInventorySuggestions::mnuPrintPreview_Click);

    Trap(QStringLiteral("frmInventorySuggestions.Form_Load"), [&] {
        QStringList items;
        Recordset r;
        r.Open(QStringLiteral("SELECT [Item] FROM Nutrition ORDER BY [Item]"), ConnectionMain(), adOpenForwardOnly,
               adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) items << TextOf(r.Field(QStringLiteral("Item")));
        cboSingleItem->addItems(items);
        cboSingleItem->setCurrentIndex(-1);
    });
    // Enter adds the typed ingredient, or previews the recipe on a line; no button takes it.
    for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
    lvRecipeList->headerItem()->setTextAlignment(colPoints, Qt::AlignRight | Qt::AlignVCenter);
    resize(700, 560);
    cboSingleItem->setFocus();
}

QAction* frmInventorySuggestions::Command(const QString& name) const { return mnuPopup->findChild<QAction*>(name); }

void frmInventorySuggestions::optSuggestFromIngredients_Click() {
    for (QWidget* w : {static_cast<QWidget*>(cboSingleItem), static_cast<QWidget*>(cmdAddItem),
                       static_cast<QWidget*>(lstIngredients)})
        w->setEnabled(true);
}

void frmInventorySuggestions::optSuggestFromInventory_Click() {
    for (QWidget* w : {static_cast<QWidget*>(cboSingleItem), static_cast<QWidget*>(cmdAddItem),
                       static_cast<QWidget*>(lstIngredients)})
        w->setEnabled(false);
    // What is on hand becomes the list searched for.
    Trap(QStringLiteral("frmInventorySuggestions.optSuggestFromInventory"), [&] {
        QStringList names;
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Product WHERE [LastPurchasedDate] > #1/1/50# ORDER BY [Name]"),
               ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) names << TextOf(r.Field(QStringLiteral("Name"))).trimmed();
        names.removeAll(QString());
        names.removeDuplicates();
        lstIngredients->clear();
        lstIngredients->addItems(names);
    });
}

void frmInventorySuggestions::cmdAddItem_Click() {
    const QString item = cboSingleItem->currentText().trimmed();
    if (item.isEmpty()) return;
    if (lstIngredients->findItems(item, Qt::MatchFixedString).isEmpty()) lstIngredients->addItem(item);
    cboSingleItem->setCurrentIndex(-1);
    cboSingleItem->clearEditText();
    cboSingleItem->setFocus();
}

void frmInventorySuggestions::cmdClear_Click() { lstIngredients->clear(); }

void frmInventorySuggestions::GetIngredientSuggestions() {
    lvRecipeList->clear();
    lvRecipeList->setSortingEnabled(false);
    QStringList entries;
    for (int i = 0; i < lstIngredients->count(); ++i) entries << lstIngredients->item(i)->text();
    TrapTail(QStringLiteral("(Occurred in frmInventorySuggestions.GetIngredientSuggestions)"), true, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Recipie ORDER BY [Title]"), ConnectionMain(), adOpenStatic,
               adLockReadOnly);
        prgProgress->setRange(0, qMax(1, int(r.RecordCount())));
        QSet<QString> listed;
        int done = 0;
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString title = TextOf(r.Field(QStringLiteral("Title")));
            if (++done % 100 == 0) {
                prgProgress->setValue(done);
                lblStatus->setText(QStringLiteral("Checking ") + title + QStringLiteral(" ... "));
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            }
            for (const QString& column : IngredientColumns()) {
                const QString slot = TextOf(r.Field(column));
                if (slot.trimmed().isEmpty()) continue;
                for (const QString& entry : entries) {
                    // A recipe is listed once, for the first entry that matched.
                    if (!slot.contains(entry, Qt::CaseInsensitive) || listed.contains(title)) continue;
                    const QVariant used = r.Field(QStringLiteral("TimesUsed"));
                    const qint32 times = IsNull(used) ? 0 : CLng(used);
                    const QVariant favorite = r.Field(QStringLiteral("Favorite"));
                    int score = 0;
                    if (!IsNull(favorite) && CBool(favorite)) ++score;
                    if (times == 1) ++score;
                    if (times > 1) ++score;
                    if (times > 5) ++score;
                    auto* line = new SuggestionLine(
                        lvRecipeList, QStringList{QString::number(score + 1), title,
                                                  TextOf(r.Field(QStringLiteral("CookbookName"))),
                                                  TextOf(r.Field(QStringLiteral("Style"))), entry});
                    line->setTextAlignment(colPoints, Qt::AlignRight | Qt::AlignVCenter);
                    listed.insert(title);
                }
            }
        }
        return true;
    });
    prgProgress->setValue(prgProgress->maximum());
    lblStatus->setText(QStringLiteral("Done."));
    lvRecipeList->setSortingEnabled(true);
    lvRecipeList->sortByColumn(colPoints, Qt::DescendingOrder);
}

QString frmInventorySuggestions::SelectedTitle() const {
    const QTreeWidgetItem* line = lvRecipeList->currentItem();
    return line ? line->text(colRecipe) : QString();
}

void frmInventorySuggestions::mnuAddToShoppingList_Click() {
    const QString title = SelectedTitle();
    if (!title.isEmpty()) RecipeCommands::AddRecipeToCurrentList(title);
}

void frmInventorySuggestions::mnuPrintRecipe_Click() {
    const QString title = SelectedTitle();
    if (!title.isEmpty()) clsRecipies().PrintPreview(title, 1, QString());
}

void frmInventorySuggestions::mnuPrintPreview_Click() {
    const QString title = SelectedTitle();
    if (!title.isEmpty()) clsRecipies().PrintPreview(title, 2, QString());
}
