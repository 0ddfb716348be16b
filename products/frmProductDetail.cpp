#include "products/frmProductDetail.h"

#include "core/Dates.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/ProductEvents.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"
#include "stores/clsItemCategory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QComboBox* Names(QWidget* parent, const QString& objectName, const QString& sql) {
    auto* box = new QComboBox(parent);
    box->setObjectName(objectName);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        if (!name.isEmpty() && box->findText(name, Qt::MatchFixedString) < 0) box->addItem(name);
    }
    return box;
}

QString ProductQuery(qint32 id) { return QStringLiteral("SELECT * FROM Product WHERE [ID] = ") + QString::number(id); }

}  // namespace

frmProductDetail::frmProductDetail(qint32 productID, QWidget* parent) : QDialog(parent), id_(productID) {
    setObjectName(QStringLiteral("frmProductDetail"));
    setWindowTitle(QStringLiteral("Product Detail"));

    txtProduct = new QLineEdit(this);
    txtProduct->setObjectName(QStringLiteral("txtProduct"));
    cboManufacturer = Names(this, QStringLiteral("cboManufacturer"),
                            QStringLiteral("SELECT [Name] FROM Manufacturer ORDER BY [Name]"));
    cboCategory =
        Names(this, QStringLiteral("cboCategory"), QStringLiteral("SELECT [Name] FROM ItemCategory ORDER BY [Name]"));
    txtSize = new QLineEdit(this);
    txtSize->setObjectName(QStringLiteral("txtSize"));
    txtCost = new QLineEdit(this);
    txtCost->setObjectName(QStringLiteral("txtCost"));
    chkLookout = new QCheckBox(QStringLiteral("Watch for coupons"), this);
    chkLookout->setObjectName(QStringLiteral("chkLookout"));
    txtBarcode = new QLineEdit(this);
    txtBarcode->setObjectName(QStringLiteral("txtBarcode"));
    lblInventory = new QLabel(this);
    lblInventory->setObjectName(QStringLiteral("lblInventory"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Product:"), txtProduct);
    form->addRow(QStringLiteral("Manufacturer:"), cboManufacturer);
    form->addRow(QStringLiteral("Category:"), cboCategory);
    form->addRow(QStringLiteral("Size:"), txtSize);
    form->addRow(QStringLiteral("Cost:"), txtCost);
    form->addRow(QStringLiteral("Barcode:"), txtBarcode);
    form->addRow(QString(), chkLookout);
    form->addRow(QStringLiteral("Inventory:"), lblInventory);

    lvPriceHistory = new QTreeWidget(this);
    lvPriceHistory->setObjectName(QStringLiteral("lvPriceHistory"));
    lvPriceHistory->setRootIsDecorated(false);
    lvPriceHistory->setHeaderLabels(
        {QStringLiteral("Date"), QStringLiteral("Store"), QStringLiteral("List"), QStringLiteral("Cost")});
    lvPriceHistory->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);

    cmdSave = new QPushButton(QStringLiteral("Save"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdSave->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("Price history:"), this));
    layout->addWidget(lvPriceHistory, 1);
    layout->addLayout(buttons);
    resize(520, 520);

    connect(cmdSave, &QPushButton::clicked, this, [this] {
        if (cmdSave_Click()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void frmProductDetail::Form_Load() {
    Recordset r;
    r.Open(ProductQuery(id_), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    found_ = !r.IsEOF();
    cmdSave->setEnabled(found_);
    if (!found_) {
        lblInventory->setText(QStringLiteral("This product is no longer in the database."));
        return;
    }
    txtProduct->setText(TextOf(r.Field(QStringLiteral("Name"))));
    cboManufacturer->setCurrentText(TextOf(r.Field(QStringLiteral("Manufacturer"))));
    cboCategory->setCurrentText(TextOf(r.Field(QStringLiteral("Category"))));
    txtSize->setText(TextOf(r.Field(QStringLiteral("Size"))));
    // A product whose price was never given shows an empty box, not a price of nothing.
    const QVariant cost = r.Field(QStringLiteral("Cost"));
    txtCost->setText(IsNull(cost) ? QString() : Format(cost, QStringLiteral("$#,##0.00")));
    const QVariant watch = r.Field(QStringLiteral("lookout"));
    chkLookout->setChecked(!IsNull(watch) && CBool(watch));
    txtBarcode->setText(TextOf(r.Field(QStringLiteral("Barcode"))));

    const QVariant last = r.Field(QStringLiteral("LastPurchasedDate"));
    const QVariant timesPurchased = r.Field(QStringLiteral("TimesPurchased"));
    const qint32 times = IsNull(timesPurchased) ? 0 : CLng(timesPurchased);
    if (!IsNull(last) && CDate(last) > CDate(QStringLiteral("1/1/50")))
        lblInventory->setText(QStringLiteral("On hand since ") + Format(last, Registry().DateDisplayFormat()) +
                              QStringLiteral(", bought ") + QString::number(times) + QStringLiteral(" times"));
    else
        lblInventory->setText(QStringLiteral("Not in inventory"));

    lvPriceHistory->clear();
    Recordset history;
    history.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemID] = ") + QString::number(id_) +
                     QStringLiteral(" ORDER BY [ItemListDate] DESC"),
                 ConnectionMain(), adOpenKeyset, adLockReadOnly);
    for (; !history.IsEOF(); history.MoveNext()) {
        const QVariant paid = history.Field(QStringLiteral("ItemListCost"));
        auto* line = new QTreeWidgetItem(QStringList{
            Format(history.Field(QStringLiteral("ItemListDate")), Registry().DateDisplayFormat()),
            TextOf(history.Field(QStringLiteral("ItemStore"))), TextOf(history.Field(QStringLiteral("ItemListName"))),
            Format(IsNull(paid) ? QVariant(0) : paid, QStringLiteral("$#,##0.00"))});
        line->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        lvPriceHistory->addTopLevelItem(line);
    }
    for (int c = 0; c < lvPriceHistory->columnCount(); ++c) lvPriceHistory->resizeColumnToContents(c);
}

bool frmProductDetail::cmdSave_Click() {
    const QString name = txtProduct->text().trimmed();
    if (name.isEmpty()) {
        MsgBox(QStringLiteral("Please enter the name of the Product."), Box::OKOnly, QStringLiteral("Notice"));
        return false;
    }
    // An empty box leaves the stored cost as it is, so that saving other
    // corrections never invents a price.
    const bool costGiven = !txtCost->text().trimmed().isEmpty();
    const std::optional<Currency> cost = costGiven ? clsProduct::TypedCost(txtCost->text()) : Currency();
    if (!cost) return false;
    QString manufacturer = cboManufacturer->currentText().trimmed();
    if (manufacturer.isEmpty()) manufacturer = QStringLiteral("Any");
    const QString category = cboCategory->currentText().trimmed();

    Recordset r;
    r.Open(ProductQuery(id_), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    if (r.IsEOF()) return false;
    r.setField(QStringLiteral("Name"), name);
    r.setField(QStringLiteral("Manufacturer"), manufacturer);
    r.setField(QStringLiteral("Category"), category);
    r.setField(QStringLiteral("Size"), txtSize->text().trimmed());
    if (costGiven) r.setField(QStringLiteral("Cost"), QVariant::fromValue(*cost));
    r.setField(QStringLiteral("lookout"), chkLookout->isChecked());
    r.setField(QStringLiteral("Barcode"),
               txtBarcode->text().trimmed().isEmpty() ? QStringLiteral("0") : txtBarcode->text().trimmed());
    r.Update();

    // New names become known the way entry makes them known.
    if (!category.isEmpty()) clsItemCategory().AddIfNew(category);
    if (manufacturer != QLatin1String("Any")) {
        clsManufacturer maker;
        maker.Name(manufacturer);
        maker.UPCCode(txtBarcode->text().trimmed());
        maker.WriteNew();  // a name on file is left alone
    }
    ProductEvents::Instance().Raise(1);
    return true;
}
