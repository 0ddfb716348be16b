#include "products/frmProductCostSelect.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QCheckBox>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTagRole = Qt::UserRole + 1;
constexpr int kCostRole = Qt::UserRole + 3;

enum Column { colItem, colManufacturer, colStore, colCost };

QIcon LineIcon(const QString& key) {
    // The panes draw no picture of their own for an item with a coupon: it
    // shows as the coupon ticket.
    return key == QLatin1String("ItemCoupon") ? PaneIcon(QStringLiteral("Coupon")) : PaneIcon(key);
}

}  // namespace

frmProductCostSelect::frmProductCostSelect(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmProductCostSelect"));
    setWindowTitle(QStringLiteral("Select Store by Cost"));

    lblHeader = new QLabel(QStringLiteral("Alternative Store Item Costs"), this);
    lblHeader->setObjectName(QStringLiteral("lblHeader"));
    QFont bold = lblHeader->font();
    bold.setBold(true);
    lblHeader->setFont(bold);

    lvItemList = new QTreeWidget(this);
    lvItemList->setObjectName(QStringLiteral("lvItemList"));
    lvItemList->setRootIsDecorated(false);
    lvItemList->setUniformRowHeights(true);
    lvItemList->setHeaderLabels(
        {QStringLiteral("Item"), QStringLiteral("Manufacturer"), QStringLiteral("Store"), QStringLiteral("Cost")});
    lvItemList->headerItem()->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
    QHeaderView* header = lvItemList->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colItem, QHeaderView::Stretch);
    header->setSectionResizeMode(colManufacturer, QHeaderView::Stretch);
    header->setSectionResizeMode(colStore, QHeaderView::Stretch);
    header->setSectionResizeMode(colCost, QHeaderView::ResizeToContents);

    chkSupressCostSelection =
        new QCheckBox(QStringLiteral("Do not show Cost alternatives for this Shopping List."), this);
    chkSupressCostSelection->setObjectName(QStringLiteral("chkSupressCostSelection"));

    cmdSelect = new QPushButton(QStringLiteral("Select"), this);
    cmdSelect->setObjectName(QStringLiteral("cmdSelect"));
    cmdSelect->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkSupressCostSelection, 1);
    buttons->addWidget(cmdSelect);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblHeader);
    layout->addWidget(lvItemList, 1);
    layout->addLayout(buttons);
    resize(560, 300);

    connect(cmdSelect, &QPushButton::clicked, this, &frmProductCostSelect::cmdSelect_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmProductCostSelect::cmdCancel_Click);
}

QString frmProductCostSelect::GetLowCostStore(const QString& itemName) {
    result_.clear();
    LoadItemCosts(itemName);
    // Closing the window by its frame is a cancel as well.
    if (TheUi().ShowModal(this) != QDialog::Accepted) return QString();
    return result_;
}

void frmProductCostSelect::LoadItemCosts(const QString& itemName) {
    lvItemList->clear();
    TrapTail(QStringLiteral(" (Occurred in frmProductCostSelect.LoadItemCosts)"), true, [&] {
        struct Product {
            QString manufacturer, name, size;
            QList<QTreeWidgetItem*> lines;
        };
        QList<Product> products;
        Recordset product;
        product.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] LIKE ") + SqlText(itemName) +
                         QStringLiteral(" ORDER By [Name]"),
                     ConnectionMain(), adOpenKeyset, adLockReadOnly);
        for (; !product.IsEOF(); product.MoveNext()) {
            Product p{TextOf(product.Field(QStringLiteral("Manufacturer"))),
                      TextOf(product.Field(QStringLiteral("Name"))),
                      TextOf(product.Field(QStringLiteral("Size"))),
                      {}};
            const qint32 id = CLng(product.Field(QStringLiteral("ID")));
            Recordset history;
            history.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] = ") + QString::number(id) +
                             QStringLiteral(" AND [ItemStore] <> '' AND [ItemListCost] <> 0"),
                         ConnectionMain(), adOpenKeyset, adLockReadOnly);
            for (; !history.IsEOF(); history.MoveNext()) {
                const QVariant cost = history.Field(QStringLiteral("ItemListCost"));
                auto* line =
                    new QTreeWidgetItem({p.name, p.manufacturer, TextOf(history.Field(QStringLiteral("ItemStore"))),
                                         Format(cost, QStringLiteral("$0#.#0"))});
                line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
                line->setCheckState(colItem, Qt::Unchecked);
                line->setData(colItem, kTagRole, id);
                line->setData(colItem, kCostRole, cost);
                line->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
                if (!p.size.isEmpty())
                    line->setToolTip(colManufacturer, p.manufacturer + QStringLiteral(", ") + p.size);
                p.lines << line;
                lvItemList->addTopLevelItem(line);
            }
            products << p;
        }
        // Every line is on the list before the coupons are looked up, so that a
        // failing look leaves the prices to choose from.
        for (const Product& p : products) {
            if (p.lines.isEmpty()) continue;
            const bool coupon = clsCoupon().Exists(p.manufacturer, p.name, p.size) == 1;
            const QString key = coupon ? QStringLiteral("ItemCoupon") : QStringLiteral("Item");
            const QString tip = coupon ? QStringLiteral("This Item has a Coupon.")
                                       : QStringLiteral("This Item does not have a Coupon.");
            for (QTreeWidgetItem* line : p.lines) {
                line->setIcon(colItem, LineIcon(key));
                line->setData(colItem, ImageKeyRole, key);
                line->setToolTip(colItem, tip);
            }
        }
        return true;
    });
}

void frmProductCostSelect::cmdSelect_Click() {
    result_.clear();
    for (int i = 0; i < lvItemList->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* line = lvItemList->topLevelItem(i);
        if (line->checkState(colItem) != Qt::Checked) continue;
        result_ = line->text(colStore) + QStringLiteral("::") + line->data(colItem, kTagRole).toString() +
                  QStringLiteral("::") + Format(line->data(colItem, kCostRole), QStringLiteral("#0.#0"));
        break;
    }
    if (chkSupressCostSelection->isChecked()) Registry().ShowCostAlternative(false);
    accept();
}

void frmProductCostSelect::cmdCancel_Click() {
    result_.clear();
    reject();
}
