#include "recipes/frmChangeRecipeCookbook.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsCookBook.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString kNewCookbook = QStringLiteral("<Enter Cookbook>");
// Marks a node that is a cookbook (the root is not).
constexpr int kCookbookRole = Qt::UserRole + 1;

}  // namespace

frmChangeRecipeCookbook::frmChangeRecipeCookbook(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmChangeRecipeCookbook"));
    setWindowTitle(QStringLiteral("Change Recipe Cookbook"));
    lvRecipes = new QTreeWidget(this);
    lvRecipes->setObjectName(QStringLiteral("lvRecipes"));
    lvRecipes->setHeaderLabels({QStringLiteral("Recipe"), QStringLiteral("Cookbook")});
    lvRecipes->setRootIsDecorated(false);
    lvRecipes->setUniformRowHeights(true);
    lvRecipes->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvRecipes->setDragEnabled(true);
    lvRecipes->setDragDropMode(QAbstractItemView::DragOnly);
    tvCookbooks = new QTreeWidget(this);
    tvCookbooks->setObjectName(QStringLiteral("tvCookbooks"));
    tvCookbooks->setHeaderHidden(true);
    tvCookbooks->setAcceptDrops(true);
    tvCookbooks->viewport()->setAcceptDrops(true);
    tvCookbooks->setDropIndicatorShown(true);
    // A node under a hovering drag opens after a moment.
    tvCookbooks->setAutoExpandDelay(600);
    tvCookbooks->setContextMenuPolicy(Qt::CustomContextMenu);
    tvCookbooks->viewport()->installEventFilter(this);
    mnuCookbooks = new QMenu(this);
    mnuAddNewCookbook = mnuCookbooks->addAction(QStringLiteral("&Add New Cookbook"));
    mnuDeleteCookbook = mnuCookbooks->addAction(QStringLiteral("&Delete Cookbook"));
    mnuFilter = mnuCookbooks->addAction(QStringLiteral("&Filter"));
    mnuCookbooks->addSeparator();
    mnuGroupBySpecialty = mnuCookbooks->addAction(QStringLiteral("Group by &Specialty"));
    mnuGroupByCourse = mnuCookbooks->addAction(QStringLiteral("Group by C&ourse"));
    mnuGroupByCategory = mnuCookbooks->addAction(QStringLiteral("Group by &Category"));
    mnuAddNewCookbook->setObjectName(QStringLiteral("mnuAddNewCookbook"));
    for (QAction* a : {mnuDeleteCookbook, mnuFilter, mnuGroupBySpecialty, mnuGroupByCourse, mnuGroupByCategory})
        connect(a, &QAction::triggered, this, [] {
            MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
        });
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    auto* split = new QSplitter(this);
    split->addWidget(lvRecipes);
    split->addWidget(tvCookbooks);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split, 1);
    layout->addLayout(buttons);

    connect(close, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(mnuAddNewCookbook, &QAction::triggered, this, &frmChangeRecipeCookbook::mnuAddNewCookbook_Click);
    connect(tvCookbooks, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { mnuCookbooks->popup(tvCookbooks->viewport()->mapToGlobal(at)); });
    connect(tvCookbooks, &QTreeWidget::itemChanged, this, &frmChangeRecipeCookbook::CookbookEdited);
    resize(720, 480);
    LoadRecipes();
    LoadCookbooks();
}

void frmChangeRecipeCookbook::LoadRecipes() {
    lvRecipes->clear();
    QList<QTreeWidgetItem*> lines;
    Trap(QStringLiteral("frmChangeRecipeCookbook.LoadRecipes"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Title],[CookBookName] FROM Recipie ORDER BY [Title]"), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext())
            lines << new QTreeWidgetItem(QStringList{TextOf(rs.Field(QStringLiteral("Title"))),
                                                     TextOf(rs.Field(QStringLiteral("CookBookName")))});
    });
    lvRecipes->addTopLevelItems(lines);
    lvRecipes->resizeColumnToContents(0);
    lvRecipes->setColumnWidth(0, qBound(160, lvRecipes->columnWidth(0) + 16, 340));
}

void frmChangeRecipeCookbook::LoadCookbooks() {
    const QSignalBlocker quiet(tvCookbooks);
    tvCookbooks->clear();
    auto* root = new QTreeWidgetItem(tvCookbooks, {QStringLiteral("Cookbooks")});
    Trap(QStringLiteral("frmChangeRecipeCookbook.LoadCookbooks"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Name],[Specialty] FROM Cookbook ORDER By [Name]"), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            auto* node = new QTreeWidgetItem(root, {TextOf(rs.Field(QStringLiteral("Name")))});
            node->setData(0, kCookbookRole, true);
            const QString specialty = TextOf(rs.Field(QStringLiteral("Specialty")));
            if (!specialty.isEmpty() && specialty != QLatin1String("None")) node->setToolTip(0, specialty);
        }
    });
    root->setExpanded(true);
}

int frmChangeRecipeCookbook::DropRecipes(QTreeWidgetItem* node, const QStringList& titles) {
    if (!node) return 0;
    if (!node->data(0, kCookbookRole).toBool()) {
        MsgBox(QStringLiteral("'") + node->text(0) + QStringLiteral("' is not a Cookbook."), Box::Exclamation,
               QStringLiteral("Notice"));
        return 0;
    }
    const QString cookbook = node->text(0);
    int moved = 0;
    clsRecipies recipes;
    for (const QString& title : titles)
        if (recipes.ChangeCookbook(title, cookbook)) ++moved;
    for (int i = 0; i < lvRecipes->topLevelItemCount(); ++i) {
        QTreeWidgetItem* line = lvRecipes->topLevelItem(i);
        if (titles.contains(line->text(0))) line->setText(1, cookbook);
    }
    if (moved) Q_EMIT Notices().SetCurrentRecipieCount();
    return moved;
}

bool frmChangeRecipeCookbook::eventFilter(QObject* watched, QEvent* event) {
    if (watched != tvCookbooks->viewport()) return GuardedDialog::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDragMoveEvent*>(event);
        const bool ours = drag->source() == lvRecipes;
        if (ours) drag->acceptProposedAction();
        else drag->ignore();
        // The tree's own handling opens the node below after the delay.
        return !ours;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        if (drop->source() != lvRecipes) return true;
        QStringList titles;
        for (QTreeWidgetItem* line : lvRecipes->selectedItems()) titles << line->text(0);
        DropRecipes(tvCookbooks->itemAt(drop->position().toPoint()), titles);
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        return true;
    }
    default:
        return GuardedDialog::eventFilter(watched, event);
    }
}

void frmChangeRecipeCookbook::mnuAddNewCookbook_Click() {
    QTreeWidgetItem* root = tvCookbooks->topLevelItem(0);
    {
        const QSignalBlocker quiet(tvCookbooks);
        newNode_ = new QTreeWidgetItem(root, {kNewCookbook});
        newNode_->setFlags(newNode_->flags() | Qt::ItemIsEditable);
    }
    tvCookbooks->setCurrentItem(newNode_);
    tvCookbooks->editItem(newNode_);
}

void frmChangeRecipeCookbook::CookbookEdited(QTreeWidgetItem* node) {
    if (node != newNode_) return;
    const QString name = node->text(0).trimmed();
    if (name.isEmpty() || name == kNewCookbook) return;
    clsCookBook books;
    if (books.Exists(name)) {
        MsgBox(QStringLiteral("That Cookbook already exists. Please re-enter."), Box::Exclamation,
               QStringLiteral("Cookbook Exists"));
        tvCookbooks->editItem(node);
        return;
    }
    if (!books.WriteNew(name, QStringLiteral("None"))) return;
    newNode_ = nullptr;
    const QSignalBlocker quiet(tvCookbooks);
    node->setFlags(node->flags() & ~Qt::ItemIsEditable);
    node->setData(0, kCookbookRole, true);
}
