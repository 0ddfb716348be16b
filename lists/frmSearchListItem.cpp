#include "lists/frmSearchListItem.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

frmSearchListItem::frmSearchListItem(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSearchListItem"));
    setWindowTitle(QStringLiteral("Search Shopping Lists"));

    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setPlaceholderText(QStringLiteral("Item name, or part of it"));
    cmdSearch = new QPushButton(QStringLiteral("&Search"), this);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setAutoDefault(false);
    auto* searchRow = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("&Find item:"), this);
    label->setBuddy(txtSearch);
    searchRow->addWidget(label);
    searchRow->addWidget(txtSearch, 1);
    searchRow->addWidget(cmdSearch);

    lvItems = new QTreeWidget(this);
    lvItems->setObjectName(QStringLiteral("lvItems"));
    lvItems->setRootIsDecorated(false);
    lvItems->setUniformRowHeights(true);
    lvItems->setAlternatingRowColors(true);
    lvItems->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Manufacturer"),
                              QStringLiteral("List"), QStringLiteral("Date")});
    QHeaderView* header = lvItems->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colItem, QHeaderView::Stretch);
    header->setSectionResizeMode(colList, QHeaderView::Stretch);
    for (int c : {colQuantity, colManufacturer, colDate}) header->setSectionResizeMode(c, QHeaderView::ResizeToContents);

    lblFound = new QLabel(this);
    lblFound->setObjectName(QStringLiteral("lblFound"));
    cmdOpen = new QPushButton(QStringLiteral("&Open List"), this);
    cmdOpen->setObjectName(QStringLiteral("cmdOpen"));
    cmdOpen->setAutoDefault(false);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblFound, 1);
    buttons->addWidget(cmdOpen);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(searchRow);
    layout->addWidget(lvItems, 1);
    layout->addLayout(buttons);
    resize(640, 380);

    connect(cmdSearch, &QPushButton::clicked, this, &frmSearchListItem::cmdSearch_Click);
    connect(txtSearch, &QLineEdit::returnPressed, this, &frmSearchListItem::cmdSearch_Click);
    connect(lvItems, &QTreeWidget::itemSelectionChanged, this,
            [this] { cmdOpen->setEnabled(!lvItems->selectedItems().isEmpty()); });
    connect(lvItems, &QTreeWidget::itemDoubleClicked, this, [this] { cmdOpen->click(); });
    connect(cmdOpen, &QPushButton::clicked, this, [this] {
        if (!ListName().isEmpty()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    cmdOpen->setEnabled(false);
}

void frmSearchListItem::cmdSearch_Click() {
    lvItems->clear();
    const QString text = txtSearch->text().trimmed();
    if (text.isEmpty()) {
        lblFound->clear();
        txtSearch->setFocus();
        return;
    }
    Trap(QStringLiteral("frmSearchListItem.cmdSearch"), [&] {
        // LIKE's own wildcards in the text stand for themselves.
        QString pattern = text;
        QuoteSql(pattern);
        pattern.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
            .replace(QLatin1Char('%'), QStringLiteral("\\%"))
            .replace(QLatin1Char('_'), QStringLiteral("\\_"));
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Name],[ItemName],[ItemQuantity],[ItemManufacturer],[Dates] FROM ShopList "
                               "WHERE [ItemName] LIKE '%") +
                    pattern + QStringLiteral("%' ESCAPE '\\' ORDER BY [Name],[ItemName]"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        QList<QTreeWidgetItem*> lines;
        const QString format = Registry().DateDisplayFormat();
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString dates = TextOf(rs.Field(QStringLiteral("Dates")));
            lines << new QTreeWidgetItem(
                {TextOf(rs.Field(QStringLiteral("ItemName"))), TextOf(rs.Field(QStringLiteral("ItemQuantity"))),
                 TextOf(rs.Field(QStringLiteral("ItemManufacturer"))), TextOf(rs.Field(QStringLiteral("Name"))),
                 IsDate(QVariant(dates)) ? Format(QVariant(dates), format) : QString()});
        }
        lvItems->addTopLevelItems(lines);
    });
    const int found = lvItems->topLevelItemCount();
    lblFound->setText(found == 0   ? QStringLiteral("No list holds \"%1\".").arg(text)
                      : found == 1 ? QStringLiteral("1 item found.")
                                   : QStringLiteral("%1 items found.").arg(found));
    if (found > 0) lvItems->setCurrentItem(lvItems->topLevelItem(0));
}

QString frmSearchListItem::ListName() const {
    const QList<QTreeWidgetItem*> selected = lvItems->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text(colList);
}

QString frmSearchListItem::ItemName() const {
    const QList<QTreeWidgetItem*> selected = lvItems->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text(colItem);
}

bool frmSearchListItem::FindListItem(QString& listName, QString& itemName, QWidget* parent) {
    frmSearchListItem form(parent ? parent : MainWindow());
    if (TheUi().ShowModal(&form) != QDialog::Accepted || form.ListName().isEmpty()) return false;
    listName = form.ListName();
    itemName = form.ItemName();
    return true;
}
