#include "products/frmProductNew.h"

#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modBarcode.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "coupons/frmNewBarcode.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/Calculator.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"
#include "products/clsSpendHistory.h"
#include "stores/clsItemCategory.h"
#include "stores/clsStore.h"
#include "stores/frmStoreIsleSetup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QComboBox* NamesBox(QWidget* parent, const QString& name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setMinimumWidth(220);
    return box;
}

void Fill(QComboBox* box, const QString& sql) {
    box->clear();
    box->addItem(frmProductNew::Placeholder());
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(QStringLiteral("Name")));
        if (!name.isEmpty() && box->findText(name, Qt::MatchFixedString) < 0) box->addItem(name);
    }
    box->setCurrentIndex(0);
}

// The cost as typed without its dollar sign; "" stays "".
QString Bare(const QString& text) {
    QString t = text.trimmed();
    if (t.startsWith(QLatin1Char('$'))) t.remove(0, 1);
    return t.trimmed();
}

}  // namespace

QString frmProductNew::Placeholder() { return QStringLiteral("<Enter or Select>"); }

frmProductNew::frmProductNew(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmProductNew"));
    setWindowTitle(QStringLiteral("New Product Entry"));

    txtProduct = new QLineEdit(this);
    txtProduct->setObjectName(QStringLiteral("txtProduct"));
    cboManufacturer = NamesBox(this, QStringLiteral("cboManufacturer"));
    cboCategory = NamesBox(this, QStringLiteral("cboCategory"));
    txtSize = new QLineEdit(this);
    txtSize->setObjectName(QStringLiteral("txtSize"));
    cboStore = NamesBox(this, QStringLiteral("cboStore"));
    txtCost = new QLineEdit(this);
    txtCost->setObjectName(QStringLiteral("txtCost"));
    cmdCalculator = new QPushButton(QStringLiteral("Calculator"), this);
    cmdCalculator->setObjectName(QStringLiteral("cmdCalculator"));
    cmdCalculator->setEnabled(!Calculator::Program().isEmpty());
    cmdCalculator->setToolTip(cmdCalculator->isEnabled() ? QStringLiteral("Open the calculator.")
                                                         : QStringLiteral("No calculator is installed."));

    auto check = [this](const QString& name, const QString& caption) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(name);
        return box;
    };
    chkLookout = check(QStringLiteral("chkLookout"), QStringLiteral("Watch for coupons"));
    chkIsFoodItem = check(QStringLiteral("chkIsFoodItem"), QStringLiteral("Food item"));
    chkCreateInventory = check(QStringLiteral("chkCreateInventory"), QStringLiteral("Add to Inventory"));
    chkAddIsleInformation = check(QStringLiteral("chkAddIsleInformation"), QStringLiteral("Add Isle information"));
    chkGetItemBarcode = check(QStringLiteral("chkGetItemBarcode"), QStringLiteral("Get the Item's barcode"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Product:"), txtProduct);
    form->addRow(QStringLiteral("Manufacturer:"), cboManufacturer);
    form->addRow(QStringLiteral("Category:"), cboCategory);
    form->addRow(QStringLiteral("Size:"), txtSize);
    form->addRow(QStringLiteral("Store:"), cboStore);
    auto* costRow = new QHBoxLayout;
    costRow->addWidget(txtCost, 1);
    costRow->addWidget(cmdCalculator);
    form->addRow(QStringLiteral("Cost:"), costRow);

    auto* checks = new QGridLayout;
    checks->addWidget(chkLookout, 0, 0);
    checks->addWidget(chkIsFoodItem, 0, 1);
    checks->addWidget(chkCreateInventory, 1, 0);
    checks->addWidget(chkAddIsleInformation, 1, 1);
    checks->addWidget(chkGetItemBarcode, 2, 0);

    cmdAddProduct = new QPushButton(QStringLiteral("Add Product"), this);
    cmdAddProduct->setObjectName(QStringLiteral("cmdAddProduct"));
    cmdAddProduct->setDefault(true);
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdAddProduct);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(checks);
    layout->addLayout(buttons);

    connect(cmdAddProduct, &QPushButton::clicked, this, &frmProductNew::cmdAddProduct_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCalculator, &QPushButton::clicked, this, &frmProductNew::cmdCalculator_Click);
    connect(chkGetItemBarcode, &QCheckBox::toggled, this, &frmProductNew::chkGetItemBarcode_Click);
    for (QWidget* w :
         {static_cast<QWidget*>(cboManufacturer), static_cast<QWidget*>(cboStore), static_cast<QWidget*>(txtCost)})
        w->installEventFilter(this);
    Form_Load();
}

bool frmProductNew::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        if (watched == cboManufacturer)
            cboManufacturer_LostFocus();
        else if (watched == cboStore)
            cboStore_LostFocus();
        else if (watched == txtCost)
            txtCost_Validate();
    }
    return QDialog::eventFilter(watched, event);
}

void frmProductNew::Form_Load() {
    Fill(cboManufacturer, QStringLiteral("SELECT [Name] FROM Manufacturer ORDER BY [Name]"));
    Fill(cboCategory, QStringLiteral("SELECT [Name] FROM ItemCategory ORDER BY [Name]"));
    Fill(cboStore, QStringLiteral("SELECT [Name] FROM Store ORDER BY [Name]"));
}

bool frmProductNew::Chosen(const QComboBox* box) {
    const QString text = box->currentText().trimmed();
    return !text.isEmpty() && text != Placeholder();
}

void frmProductNew::AddOnce(QComboBox* box, const QString& text) {
    if (box->findText(text, Qt::MatchFixedString) < 0) box->addItem(text);
}

void frmProductNew::cboManufacturer_LostFocus() {
    if (!Chosen(cboManufacturer)) return;
    const QString text = cboManufacturer->currentText().trimmed();
    if (!clsStore().Exists(text) || cboStore->currentText() == text) return;
    if (MsgBox(text + QStringLiteral(" is also a Store Name. Would you like to set this as this Item's Store as well?"),
               Box::YesNo + Box::Question, QStringLiteral("Set Store")) == Answer::Yes)
        cboStore->setCurrentText(text);
}

void frmProductNew::cboStore_LostFocus() {
    if (!Chosen(cboStore)) return;
    const QString name = cboStore->currentText().trimmed();
    clsStore store;
    if (store.Exists(name)) return;
    if (MsgBox(QStringLiteral("Would you like to add the Store ") + name + QStringLiteral(" to the database?"),
               Box::YesNo + Box::Question, QStringLiteral("Add Store")) != Answer::Yes)
        return;
    store.Name(name);
    store.IsleCount(1);
    if (store.WriteNew()) AddOnce(cboStore, name);
}

bool frmProductNew::txtCost_Validate() {
    const QString bare = Bare(txtCost->text());
    if (bare.isEmpty()) {
        if (!Chosen(cboStore)) return true;
        MsgBox(QStringLiteral("If a Store is selected, you must enter a cost for the item at that Store."), Box::OKOnly,
               QStringLiteral("Notice"));
        cboStore->setCurrentText(Placeholder());
        return false;
    }
    const std::optional<Currency> cost = clsProduct::TypedCost(bare);
    if (!cost) {
        txtCost->selectAll();
        return false;
    }
    txtCost->setText(Format(QVariant::fromValue(*cost), QStringLiteral("$#,##0.00")));
    return true;
}

void frmProductNew::cmdAddProduct_Click() {
    const QString name = txtProduct->text().trimmed();
    if (name.isEmpty()) {
        MsgBox(QStringLiteral("Please enter the name of the Product."), Box::OKOnly, QStringLiteral("Notice"));
        txtProduct->setFocus();
        return;
    }
    if (!txtCost_Validate()) return;
    const Currency cost = clsProduct::CostFromText(txtCost->text()).value_or(Currency());
    const QString manufacturer =
        Chosen(cboManufacturer) ? cboManufacturer->currentText().trimmed() : QStringLiteral("Any");
    const QString category = Chosen(cboCategory) ? cboCategory->currentText().trimmed() : QString();
    const QString barcode = barcode_;

    clsProduct product;
    const qint32 id = product.WriteNew(manufacturer, name, category, txtSize->text().trimmed(), chkLookout->isChecked(),
                                       chkCreateInventory->isChecked(), cost, barcode);
    if (id < 0) return;
    if (Chosen(cboStore)) {
        clsSpendHistory history;
        history.ItemID(qint16(id));
        history.ItemListDate(QDateTime(Clock::Today(), QTime()));
        history.ItemListCost(cost);
        history.ItemStore(cboStore->currentText().trimmed());
        history.AddRecord();
    }
    if (!category.isEmpty()) {
        clsItemCategory().AddIfNew(category);
        AddOnce(cboCategory, category);
    }
    if (manufacturer != QLatin1String("Any")) {
        clsManufacturer maker;
        maker.Name(manufacturer);
        maker.UPCCode(barcode);
        maker.WriteNew();  // a name on file is left alone
        AddOnce(cboManufacturer, manufacturer);
    }
    if (chkAddIsleInformation->isChecked() && Chosen(cboStore)) {
        // The new product's category is placed in the store's aisles at once.
        frmStoreIsleSetup setup(this);
        setup.LoadStore(cboStore->currentText().trimmed());
        ExplodeForm(&setup, Registry().ExplodeRate());
        TheUi().ShowModal(&setup);
    }
    ClearEntry();
}

void frmProductNew::ClearEntry() {
    txtProduct->clear();
    txtSize->clear();
    txtCost->clear();
    for (QComboBox* box : {cboManufacturer, cboCategory, cboStore}) box->setCurrentText(Placeholder());
    for (QCheckBox* box : {chkLookout, chkIsFoodItem, chkCreateInventory, chkAddIsleInformation, chkGetItemBarcode})
        box->setChecked(false);
    txtProduct->setFocus();
}

void frmProductNew::chkGetItemBarcode_Click(bool ticked) {
    if (!ticked) {
        barcode_ = QStringLiteral("0");
        return;
    }
    const QString entered = frmNewBarcode::GetItemBarcode(QString());
    if (entered.isEmpty()) {
        chkGetItemBarcode->setChecked(false);
        return;
    }
    barcode_ = entered;
    // The manufacturer's number is the tail of its UPC number.
    Fill(cboManufacturer, QStringLiteral("SELECT * FROM Manufacturer WHERE [UPC_Number] LIKE ") +
                              SqlText(QStringLiteral("%") + GetManufacturerCode(entered)));
    if (cboManufacturer->count() > 1) cboManufacturer->setCurrentIndex(1);
}

void frmProductNew::cmdCalculator_Click() { Calculator::Start(); }
