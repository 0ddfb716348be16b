#include "stores/frmSetItemIsle.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "stores/clsIsleMap.h"
#include "stores/frmSelectStore.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString kPick = QStringLiteral("<Enter or Select>");
const QString kNone = QStringLiteral("- None -");
}  // namespace

frmSetItemIsle::frmSetItemIsle(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSetItemIsle"));
    setWindowTitle(QStringLiteral("Set Item Isle"));
    lblItem = new QLabel(this);
    lblOldIsle = new QLabel(kNone, this);
    lblOldOrder = new QLabel(kNone, this);
    cboNewIsle = new QComboBox(this);
    cboNewIsle->setObjectName(QStringLiteral("cboNewIsle"));
    cboNewIsle->setEditable(true);
    txtNewOrder = new QLineEdit(this);
    txtNewOrder->setObjectName(QStringLiteral("txtNewOrder"));
    cmdShowItemsInIsle = new QPushButton(QStringLiteral("Show Items in Isle"), this);
    lstItemsInIsle = new QListWidget(this);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Item:"), lblItem);
    form->addRow(QStringLiteral("Current Isle:"), lblOldIsle);
    form->addRow(QStringLiteral("Current order:"), lblOldOrder);
    form->addRow(QStringLiteral("New Isle:"), cboNewIsle);
    form->addRow(QStringLiteral("New order:"), txtNewOrder);
    form->addRow(QString(), cmdShowItemsInIsle);
    auto* buttons = new QDialogButtonBox(this);
    cmdOK = buttons->addButton(QDialogButtonBox::Ok);
    cmdCancel = buttons->addButton(QDialogButtonBox::Cancel);
    connect(cmdOK, &QPushButton::clicked, this, &frmSetItemIsle::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdShowItemsInIsle, &QPushButton::clicked, this, &frmSetItemIsle::cmdShowItemsInIsle_Click);
    connect(cboNewIsle, &QComboBox::currentIndexChanged, this, [this](int index) {
        const QVariant order = cboNewIsle->itemData(index);
        if (order.isValid()) txtNewOrder->setText(order.toString());
    });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lstItemsInIsle, 1);
    layout->addWidget(buttons);
    resize(380, 420);
}

QString frmSetItemIsle::SetItemIsle(const QString& item, const QString& manufacturer, QString store) {
    if (store.isEmpty()) store = frmSelectStore::Choose(frmSelectStore::LineAssignment, this);
    if (store.isEmpty()) return QStringLiteral("BAD");
    item_ = item;
    manufacturer_ = manufacturer;
    store_ = store;
    lblItem->setText(manufacturer + QStringLiteral("'s ") + item + QStringLiteral(" at ") + store);
    Recordset product;
    product.Open(QStringLiteral("SELECT [Category] FROM Product WHERE [Name] = ") + SqlText(item) +
                     QStringLiteral(" AND [Manufacturer] = ") + SqlText(manufacturer),
                 ConnectionMain(), adOpenKeyset, adLockReadOnly);
    category_ = product.IsEOF() ? QString() : TextOf(product.Field(QStringLiteral("Category")));
    clsIsleMap map;
    oldIsle_ = map.GetIsle(store, category_);
    lblOldIsle->setText(oldIsle_.isEmpty() ? kNone : oldIsle_);
    lblOldOrder->setText(oldIsle_.isEmpty() ? kNone : QString::number(map.GetIsleOrder(store, category_)));
    LoadStoreIsleNames();
    return TheUi().ShowModal(this) == QDialog::Accepted ? QStringLiteral("OK") : QStringLiteral("BAD");
}

void frmSetItemIsle::LoadStoreIsleNames() {
    Trap(QStringLiteral("frmSetItemIsle.LoadStoreIsleNames"), [&] {
        cboNewIsle->clear();
        cboNewIsle->addItem(kPick);
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + SqlText(store_) +
                   QStringLiteral(" ORDER BY [IsleOrder], [Isle]"),
               ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString isle = TextOf(r.Field(QStringLiteral("Isle")));
            if (cboNewIsle->findText(isle) < 0) cboNewIsle->addItem(isle, CInt(r.Field(QStringLiteral("IsleOrder"))));
        }
        cboNewIsle->setCurrentIndex(0);
    });
}

void frmSetItemIsle::cmdShowItemsInIsle_Click() {
    lstItemsInIsle->clear();
    const QString isle = cboNewIsle->currentText().trimmed();
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [Store] = ") + SqlText(store_) +
               QStringLiteral(" AND [Isle] = ") + SqlText(isle),
           ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) lstItemsInIsle->addItem(TextOf(r.Field(QStringLiteral("ItemCategory"))));
    Recordset alt;
    alt.Open(QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] = ") + SqlText(store_) +
                 QStringLiteral(" AND [StoreIsle] = ") + SqlText(isle),
             ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !alt.IsEOF(); alt.MoveNext())
        lstItemsInIsle->addItem(TextOf(alt.Field(QStringLiteral("ItemManufacturer"))) + QStringLiteral("'s ") +
                                TextOf(alt.Field(QStringLiteral("ItemName"))));
}

void frmSetItemIsle::cmdOK_Click() {
    const QString isle = cboNewIsle->currentText().trimmed();
    if (isle.isEmpty() || isle == kPick) return;
    // Only a product its category puts elsewhere needs a place of its own.
    if (!oldIsle_.isEmpty() && oldIsle_.compare(isle, Qt::CaseInsensitive) != 0 &&
        clsIsleMap().IsMapped(store_, category_, oldIsle_)) {
        if (MsgBox(manufacturer_ + QStringLiteral("'s ") + item_ + QStringLiteral(" is mapped to ") + oldIsle_ +
                       QStringLiteral(" for Store ") + store_ +
                       QStringLiteral(" by default. Do you want to create an Alternate Mapping for this item?"),
                   Box::YesNo + Box::Question + Box::DefaultButton2,
                   QStringLiteral("Alternate Isle Map")) != Answer::Yes)
            return;
    }
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] = 'X'"), ConnectionMain(), adOpenKeyset,
           adLockOptimistic);
    r.AddNew();
    r.setField(QStringLiteral("StoreName"), store_);
    r.setField(QStringLiteral("ItemName"), item_);
    r.setField(QStringLiteral("ItemManufacturer"), manufacturer_);
    r.setField(QStringLiteral("StoreIsle"), isle);
    r.setField(QStringLiteral("StoreIsleOrder"), CInt(Val(txtNewOrder->text())));
    r.Update();
    accept();
}
