#include "lists/frmShoppingListUpdateAdd.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const QString kPrompt = QStringLiteral("<Enter Keyword>");
}

frmShoppingListUpdateAdd::frmShoppingListUpdateAdd(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingListUpdateAdd"));
    setWindowTitle(QStringLiteral("Add an Item Bought"));

    txtSearch = new QLineEdit(kPrompt, this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    cmdSearch = new QPushButton(QStringLiteral("&Find"), this);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    auto* search = new QHBoxLayout;
    search->addWidget(txtSearch, 1);
    search->addWidget(cmdSearch);

    lvProducts = new QTreeWidget(this);
    lvProducts->setObjectName(QStringLiteral("lvProducts"));
    lvProducts->setHeaderLabels(
        {QStringLiteral("Item"), QStringLiteral("Manufacturer"), QStringLiteral("Size"), QStringLiteral("Cost")});
    lvProducts->setRootIsDecorated(false);
    lvProducts->setUniformRowHeights(true);
    lvProducts->setAlternatingRowColors(true);

    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(search);
    layout->addWidget(lvProducts, 1);
    layout->addLayout(buttons);

    connect(cmdSearch, &QPushButton::clicked, this, &frmShoppingListUpdateAdd::cmdSearch_Click);
    connect(txtSearch, &QLineEdit::textEdited, this, [this] { searchFrom_ = 0; });
    connect(cmdOK, &QPushButton::clicked, this, &frmShoppingListUpdateAdd::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lvProducts, &QTreeWidget::itemActivated, this, &frmShoppingListUpdateAdd::cmdOK_Click);

    // Enter in the search box finds the next match; on a line it picks it.
    for (QPushButton* b : {cmdOK, cmdCancel}) b->setAutoDefault(false);
    cmdSearch->setDefault(true);
    resize(560, 440);
    LoadProducts();
    txtSearch->selectAll();
    txtSearch->setFocus();
}

QString frmShoppingListUpdateAdd::GetItem(QWidget* parent) {
    frmShoppingListUpdateAdd screen(parent);
    TheUi().ShowModal(&screen);
    return screen.Result();
}

void frmShoppingListUpdateAdd::LoadProducts() {
    lvProducts->clear();
    Trap(QStringLiteral("frmShoppingListUpdateAdd.LoadProducts"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Product ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly,
               adLockReadOnly);
        QList<QTreeWidgetItem*> lines;
        for (; !r.IsEOF(); r.MoveNext()) {
            const QVariant cost = r.Field(QStringLiteral("Cost"));
            auto* line = new QTreeWidgetItem(QStringList{
                TextOf(r.Field(QStringLiteral("Name"))), TextOf(r.Field(QStringLiteral("Manufacturer"))),
                TextOf(r.Field(QStringLiteral("Size"))),
                Format(IsNull(cost) ? QVariant(0) : cost, QStringLiteral("$0.00"))});
            line->setData(colItem, IdRole, CLng(r.Field(QStringLiteral("ID"))));
            line->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
            lines << line;
        }
        lvProducts->addTopLevelItems(lines);
    });
    for (int c = colItem; c <= colCost; ++c) lvProducts->resizeColumnToContents(c);
    for (int c = colItem; c < colCost; ++c) lvProducts->setColumnWidth(c, qMin(lvProducts->columnWidth(c) + 16, 220));
}

void frmShoppingListUpdateAdd::cmdSearch_Click() {
    const QString keyword = txtSearch->text().trimmed();
    if (keyword.isEmpty() || keyword == kPrompt) return;
    // Each search goes on from the line after the last found, so Enter walks the matches.
    const int count = lvProducts->topLevelItemCount();
    for (int n = 0; n < count; ++n) {
        const int i = (searchFrom_ + n) % count;
        QTreeWidgetItem* line = lvProducts->topLevelItem(i);
        if (line->text(colItem).contains(keyword, Qt::CaseInsensitive) ||
            line->text(colManufacturer).contains(keyword, Qt::CaseInsensitive)) {
            lvProducts->setCurrentItem(line);
            lvProducts->scrollToItem(line);
            searchFrom_ = i + 1;
            return;
        }
    }
    MsgBox(keyword + QStringLiteral(" was not found."), Box::Information, QStringLiteral("Not found"));
}

void frmShoppingListUpdateAdd::cmdOK_Click() {
    const QTreeWidgetItem* line = lvProducts->currentItem();
    if (!line) return;
    result_ = QStringList{QString::number(line->data(colItem, IdRole).toInt()), line->text(colItem),
                          line->text(colManufacturer), line->text(colSize), line->text(colCost)}
                  .join(QStringLiteral("::"));
    accept();
}
