#include "stores/frmNewItemCategory.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "stores/clsItemCategory.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmNewItemCategory::frmNewItemCategory(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNewItemCategory"));
    setWindowTitle(QStringLiteral("Item Categories"));
    lvItemCategories = new QTreeWidget(this);
    lvItemCategories->setObjectName(QStringLiteral("lvItemCategories"));
    lvItemCategories->setRootIsDecorated(false);
    lvItemCategories->setHeaderLabels({QStringLiteral("Category"), QStringLiteral("Items")});
    lvItemCategories->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lvItemCategories->header()->setStretchLastSection(false);
    lvItemCategories->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lvItemCategories, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (!lvItemCategories->itemAt(at)) return;
        lvItemCategories->setCurrentItem(lvItemCategories->itemAt(at));
        QMenu menu(this);
        menu.addAction(QStringLiteral("Rename Category"), this, &frmNewItemCategory::mnuRenameCategory_Click);
        menu.addAction(QStringLiteral("Delete Category"), this, &frmNewItemCategory::mnuDeleteCategory_Click);
        menu.addAction(QStringLiteral("Show Items in Category"), this,
                       &frmNewItemCategory::mnuShowItemsInCategory_Click);
        menu.exec(lvItemCategories->viewport()->mapToGlobal(at));
    });
    txtCategory = new QLineEdit(this);
    txtCategory->setObjectName(QStringLiteral("txtCategory"));
    txtCategory->setMaxLength(50);
    txtCategory->setPlaceholderText(QStringLiteral("New category"));
    cmdAddNew = new QPushButton(QStringLiteral("&Add"), this);
    cmdAddNew->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    connect(cmdAddNew, &QPushButton::clicked, this, &frmNewItemCategory::cmdAddNew_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* entry = new QHBoxLayout;
    entry->addWidget(txtCategory, 1);
    entry->addWidget(cmdAddNew);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(entry);
    layout->addWidget(lvItemCategories, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdClose);
    layout->addLayout(bottom);
    resize(380, 440);
    LoadCategories();
}

void frmNewItemCategory::LoadCategories() {
    const QString keep = SelectedCategory();
    lvItemCategories->clear();
    // One pass over the catalogue counts the products of every category.
    QHash<QString, int> counts;
    Recordset products;
    products.Open(QStringLiteral("SELECT [Category] FROM Product"), ConnectionMain(), adOpenForwardOnly,
                  adLockReadOnly);
    for (; !products.IsEOF(); products.MoveNext())
        ++counts[TextOf(products.Field(QStringLiteral("Category"))).toLower()];
    Recordset r;
    r.Open(QStringLiteral("SELECT [Name] FROM ItemCategory ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly,
           adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        auto* row = new QTreeWidgetItem(lvItemCategories, {name, QString::number(counts.value(name.toLower()))});
        row->setTextAlignment(1, Qt::AlignRight);
        if (name.compare(keep, Qt::CaseInsensitive) == 0) lvItemCategories->setCurrentItem(row);
    }
    lvItemCategories->resizeColumnToContents(1);
}

QString frmNewItemCategory::SelectedCategory() const {
    return lvItemCategories->currentItem() ? lvItemCategories->currentItem()->text(0) : QString();
}

void frmNewItemCategory::cmdAddNew_Click() {
    const QString name = txtCategory->text().trimmed();
    if (name.isEmpty()) return;
    clsItemCategory categories;
    if (categories.Exists(name)) {
        MsgBox(QStringLiteral("That category already exists,please re-enter."), Box::OKOnly, QStringLiteral("Notice"));
        txtCategory->selectAll();
        txtCategory->setFocus();
        return;
    }
    categories.WriteNew(name);
    txtCategory->clear();
    LoadCategories();
}

void frmNewItemCategory::mnuDeleteCategory_Click() {
    const QString name = SelectedCategory();
    if (name.isEmpty()) return;
    if (MsgBox(QStringLiteral("Do you want to permanently delete this Item(s)?"), Box::YesNo + Box::Question,
               QStringLiteral("Confirm Delete")) != Answer::Yes)
        return;
    clsItemCategory().RemoveCategory(name);
    LoadCategories();
}

void frmNewItemCategory::mnuRenameCategory_Click() {
    const QString name = SelectedCategory();
    if (name.isEmpty()) return;
    const QString renamed =
        InputBox(QStringLiteral("What Category name would you like to change ") + name + QStringLiteral(" to ?"),
                 QStringLiteral("New Name"), name)
            .trimmed();
    if (renamed.isEmpty() || renamed == name) return;
    clsItemCategory().RenameCategory(name, renamed);
    lvItemCategories->currentItem()->setText(0, renamed);
    LoadCategories();
}

void frmNewItemCategory::mnuShowItemsInCategory_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::OKOnly, QStringLiteral("Coming Soon"));
}
