#include "lists/frmCurrentShoppingList.h"

#include "core/ChangeNotices.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "lists/clsShopList.h"
#include "lists/frmShoppingList.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
enum Column { ListName, Items, Pieces, Coupons, Recurring, Date };
}

frmCurrentShoppingList::frmCurrentShoppingList(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmCurrentShoppingList"));
    setWindowTitle(QStringLiteral("Current Shopping List"));
    lvCurrentLists = new QTreeWidget(this);
    lvCurrentLists->setObjectName(QStringLiteral("lvCurrentLists"));
    lvCurrentLists->setRootIsDecorated(false);
    lvCurrentLists->setHeaderLabels({QStringLiteral("List Name"), QStringLiteral("Items"), QStringLiteral("Pieces"),
                                     QStringLiteral("Coupons"), QStringLiteral("Recurring"), QStringLiteral("Date")});
    lvCurrentLists->header()->setSectionResizeMode(ListName, QHeaderView::Stretch);
    lvCurrentLists->header()->setStretchLastSection(false);
    lvCurrentLists->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lvCurrentLists, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem*, int column) {
        if (!loading_ && column == ListName) changed_ = true;
    });
    connect(lvCurrentLists, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (!lvCurrentLists->itemAt(at)) return;
        lvCurrentLists->setCurrentItem(lvCurrentLists->itemAt(at));
        QMenu menu(this);
        menu.addAction(QStringLiteral("Edit List"), this, &frmCurrentShoppingList::mnuEditList_Click);
        menu.addAction(QStringLiteral("Delete List"), this, &frmCurrentShoppingList::mnuDeleteList_Click);
        menu.exec(lvCurrentLists->viewport()->mapToGlobal(at));
    });
    connect(lvCurrentLists, &QTreeWidget::itemDoubleClicked, this, &frmCurrentShoppingList::mnuEditList_Click);

    cmdOK = new QPushButton(QStringLiteral("&Apply"), this);
    cmdClose = new QPushButton(QStringLiteral("&Save"), this);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdClose->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &frmCurrentShoppingList::cmdOK_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmCurrentShoppingList::cmdClose_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdClose, cmdCancel}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvCurrentLists, 1);
    layout->addLayout(buttons);
    resize(620, 360);
    LoadLists();
}

QTreeWidgetItem* frmCurrentShoppingList::Line(const QString& listName) const {
    for (int i = 0; i < lvCurrentLists->topLevelItemCount(); ++i)
        if (lvCurrentLists->topLevelItem(i)->text(ListName) == listName) return lvCurrentLists->topLevelItem(i);
    return nullptr;
}

void frmCurrentShoppingList::LoadLists() {
    loading_ = true;
    lvCurrentLists->clear();
    Recordset r;
    r.Open(QStringLiteral("Select * FROM ShopList ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly,
           adLockReadOnly);
    QTreeWidgetItem* line = nullptr;
    double pieces = 0;
    int items = 0, coupons = 0;
    auto close = [&] {
        if (!line) return;
        line->setText(Items, QString::number(items));
        line->setText(Pieces, QString::number(pieces));
        line->setText(Coupons, QString::number(coupons));
    };
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        if (!line || line->text(ListName) != name) {
            close();
            line = new QTreeWidgetItem(lvCurrentLists, {name});
            line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
            line->setCheckState(ListName, Qt::Unchecked);
            for (int c : {Items, Pieces, Coupons}) line->setTextAlignment(c, Qt::AlignRight);
            items = coupons = 0;
            pieces = 0;
        }
        ++items;
        pieces += Val(TextOf(r.Field(QStringLiteral("ItemQuantity"))));
        if (CLng(r.Field(QStringLiteral("CouponID"))) != 0) ++coupons;
        const QString recurring = TextOf(r.Field(QStringLiteral("Recurring")));
        if (!recurring.trimmed().isEmpty()) line->setText(Recurring, recurring);
        line->setText(Date, TextOf(r.Field(QStringLiteral("Dates"))));
        if (r.Field(QStringLiteral("IsCurrent")).toBool()) line->setCheckState(ListName, Qt::Checked);
    }
    close();
    for (int c = Items; c <= Date; ++c) lvCurrentLists->resizeColumnToContents(c);
    loading_ = false;
    changed_ = false;
}

void frmCurrentShoppingList::SaveCurrent() {
    clsShopList lists;
    lists.RemoveAllCurrent();
    for (int i = 0; i < lvCurrentLists->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* line = lvCurrentLists->topLevelItem(i);
        if (line->checkState(ListName) == Qt::Checked) lists.MakeCurrent(line->text(ListName), QString());
    }
    changed_ = false;
    Q_EMIT Notices().LoadShoppingList();
}

void frmCurrentShoppingList::cmdOK_Click() { SaveCurrent(); }

void frmCurrentShoppingList::cmdClose_Click() {
    SaveCurrent();
    CloseUnchecked();
}

void frmCurrentShoppingList::mnuEditList_Click() {
    const QTreeWidgetItem* line = lvCurrentLists->currentItem();
    if (!line) return;
    auto* editor = new frmShoppingList(MainWindow());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    editor->CurrentListName(line->text(ListName));
    TheUi().ShowModeless(editor, MainWindow());
}

void frmCurrentShoppingList::mnuDeleteList_Click() {
    QTreeWidgetItem* line = lvCurrentLists->currentItem();
    if (!line) return;
    if (MsgBox(QStringLiteral("This will permanently remove this List, Are you certain?"), Box::YesNo + Box::Question,
               QStringLiteral("Remove List")) != Answer::Yes)
        return;
    clsShopList lists;
    lists.Name(line->text(ListName));
    lists.DeleteList();
    const bool changed = changed_;
    LoadLists();
    changed_ = changed;
    Q_EMIT Notices().LoadShoppingList();
}

bool frmCurrentShoppingList::MayClose() {
    if (!changed_) return true;
    if (MsgBox(QStringLiteral("The Current List has changed, Do you wish to save it before exiting?"),
               Box::YesNo + Box::Question, QStringLiteral("Save Changes?")) == Answer::Yes)
        SaveCurrent();
    return true;
}
