#include "coupons/frmNewCoupon.h"

#include "core/Dates.h"
#include "core/EntryBox.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/modBarcode.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmAllCoupons.h"
#include "coupons/frmNewBarcode.h"
#include "coupons/modCouponBarcodes.h"
#include "messages/EditorToolbar.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QString kNoExpiration = QStringLiteral("No &Expiration");
const QString kSetExpiration = QStringLiteral("Set &Expiration");

// The names of `column` in the query's order, each once, the box's text left empty.
void Fill(QComboBox* box, const QString& sql, const QString& column = QStringLiteral("Name")) {
    box->clear();
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    QStringList names;
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString name = TextOf(r.Field(column)).trimmed();
        if (!name.isEmpty() && !names.contains(name, Qt::CaseInsensitive)) names << name;
    }
    box->addItems(names);
    box->setCurrentIndex(-1);
    box->setEditText(QString());
}

void AddIfNew(QComboBox* box, const QString& name) {
    if (!name.isEmpty() && box->findText(name, Qt::MatchFixedString) < 0) box->addItem(name);
}

QString Text(const QComboBox* box) { return box->currentText().trimmed(); }

}  // namespace

frmNewCoupon::frmNewCoupon(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNewCoupon"));
    setWindowTitle(QStringLiteral("Enter New Coupon"));

    cboManufacturer = EntryBox(QStringLiteral("cboManufacturer"), this);
    cboProduct = EntryBox(QStringLiteral("cboProduct"), this);
    cboSize = EntryBox(QStringLiteral("cboSize"), this, 10);
    cboQuantity = EntryBox(QStringLiteral("cboQuantity"), this, 4);
    cboCouponCategory = EntryBox(QStringLiteral("cboCouponCategory"), this);
    cboCouponValue = EntryBox(QStringLiteral("cboCouponValue"), this);
    cboCouponValue->setMaxVisibleItems(20);
    chkDiscountDouble = new QCheckBox(QStringLiteral("Store may &double it"), this);
    chkDiscountDouble->setObjectName(QStringLiteral("chkDiscountDouble"));
    dtpExpiration = new QDateEdit(Clock::Today(), this);
    dtpExpiration->setObjectName(QStringLiteral("dtpExpiration"));
    dtpExpiration->setCalendarPopup(true);
    dtpExpiration->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    cmdNeverExpires = new QPushButton(kNoExpiration, this);
    cmdNeverExpires->setObjectName(QStringLiteral("cmdNeverExpires"));
    chkAdvertisedSpecial = new QCheckBox(QStringLiteral("&Advertised special of one store"), this);
    chkAdvertisedSpecial->setObjectName(QStringLiteral("chkAdvertisedSpecial"));
    lblStore = new QLabel(QStringLiteral("S&tore:"), this);
    lblStore->setObjectName(QStringLiteral("lblStore"));
    cboStore = EntryBox(QStringLiteral("cboStore"), this, 18);
    lblStore->setBuddy(cboStore);
    picBarcode = new QLabel(this);
    picBarcode->setObjectName(QStringLiteral("picBarcode"));
    picBarcode->setFixedSize(380, 80);  // twelve digits at two pixels a narrow bar
    picBarcode->setFrameShape(QFrame::StyledPanel);
    cmdScan = new QPushButton(QStringLiteral("S&can Barcode..."), this);
    cmdScan->setObjectName(QStringLiteral("cmdScan"));
    cboQuantity->addItems({"1", "2", "3", "4", "5", "6", "8", "10", "12"});
    cboQuantity->setCurrentIndex(-1);

    // The coupon page.
    auto* couponPage = new QWidget(this);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Manufacturer:"), cboManufacturer);
    form->addRow(QStringLiteral("&Product:"), cboProduct);
    auto* sizeRow = new QHBoxLayout;
    sizeRow->addWidget(cboSize, 1);
    auto* quantityLabel = new QLabel(QStringLiteral("&Quantity:"), this);
    quantityLabel->setBuddy(cboQuantity);
    sizeRow->addWidget(quantityLabel);
    sizeRow->addWidget(cboQuantity);
    auto* sizeLabel = new QLabel(QStringLiteral("Si&ze:"), this);
    sizeLabel->setBuddy(cboSize);
    form->addRow(sizeLabel, sizeRow);
    form->addRow(QStringLiteral("Cate&gory:"), cboCouponCategory);
    auto* valueRow = new QHBoxLayout;
    valueRow->addWidget(cboCouponValue, 1);
    valueRow->addWidget(chkDiscountDouble);
    auto* valueLabel = new QLabel(QStringLiteral("&Value:"), this);
    valueLabel->setBuddy(cboCouponValue);
    form->addRow(valueLabel, valueRow);
    auto* expiryRow = new QHBoxLayout;
    expiryRow->addWidget(dtpExpiration, 1);
    expiryRow->addWidget(cmdNeverExpires);
    auto* expiryLabel = new QLabel(QStringLiteral("E&xpires:"), this);
    expiryLabel->setBuddy(dtpExpiration);
    form->addRow(expiryLabel, expiryRow);
    auto* storeRow = new QHBoxLayout;
    storeRow->addWidget(chkAdvertisedSpecial);
    storeRow->addSpacing(12);
    storeRow->addWidget(lblStore);
    storeRow->addWidget(cboStore, 1);
    form->addRow(QString(), storeRow);
    auto* scanRow = new QHBoxLayout;
    scanRow->addWidget(picBarcode);
    scanRow->addWidget(cmdScan, 0, Qt::AlignBottom);
    scanRow->addStretch(1);
    form->addRow(QStringLiteral("Barcode:"), scanRow);
    couponPage->setLayout(form);

    // The notes page: kept while the screen is open, never stored.
    auto* notesPage = new QWidget(this);
    txtCouponNotes = new QTextEdit(notesPage);
    txtCouponNotes->setObjectName(QStringLiteral("txtCouponNotes"));
    txtCouponNotes->setAcceptRichText(false);
    tbNotes = new EditorToolbar(txtCouponNotes, notesPage);
    tbNotes->setObjectName(QStringLiteral("tbNotes"));
    tbNotes->AddButton(QStringLiteral("Delete"), QStringLiteral("Delete"));
    auto* notesLayout = new QVBoxLayout(notesPage);
    notesLayout->setContentsMargins(0, 0, 0, 0);
    notesLayout->addWidget(new QLabel(QStringLiteral("Notes (for you while you enter coupons; they are not kept):"), notesPage));
    notesLayout->addWidget(tbNotes);
    notesLayout->addWidget(txtCouponNotes, 1);

    pages = new QStackedWidget(this);
    pages->setObjectName(QStringLiteral("pages"));
    pages->addWidget(couponPage);
    pages->addWidget(notesPage);

    cmdPrev = new QPushButton(QStringLiteral("< P&rev"), this);
    cmdPrev->setObjectName(QStringLiteral("cmdPrev"));
    cmdNext = new QPushButton(QStringLiteral("&Notes >"), this);
    cmdNext->setObjectName(QStringLiteral("cmdNext"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Close"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    for (QPushButton* b : {cmdPrev, cmdNext, cmdScan, cmdNeverExpires, cmdCancel}) b->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdPrev);
    buttons->addWidget(cmdNext);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages, 1);
    layout->addLayout(buttons);

    const QList<QWidget*> order = {cboManufacturer, cboProduct,      cboSize,   cboQuantity,
                                   cboCouponCategory, cboCouponValue, chkDiscountDouble, dtpExpiration,
                                   cmdNeverExpires,   chkAdvertisedSpecial, cboStore, cmdScan,
                                   cmdOK,             cmdCancel,       cmdPrev,   cmdNext};
    for (int i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);

    connect(cmdOK, &QPushButton::clicked, this, &frmNewCoupon::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdScan, &QPushButton::clicked, this, &frmNewCoupon::cmdScan_Click);
    connect(cmdNeverExpires, &QPushButton::clicked, this, &frmNewCoupon::cmdNeverExpires_Click);
    connect(chkAdvertisedSpecial, &QCheckBox::clicked, this, &frmNewCoupon::chkAdvertisedSpecial_Click);
    connect(cmdPrev, &QPushButton::clicked, this, &frmNewCoupon::cmdPrev_Click);
    connect(cmdNext, &QPushButton::clicked, this, &frmNewCoupon::cmdNext_Click);
    connect(tbNotes, &EditorToolbar::buttonClicked, this, [this](const QString& key) {
        if (key != QLatin1String("Delete")) return;
        QTextCursor cursor = txtCouponNotes->textCursor();
        if (!cursor.hasSelection()) cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    });
    connect(dtpExpiration, &QDateEdit::dateChanged, this, [this] {
        if (!filling_) dateEdited_ = true;
    });
    for (QWidget* w : {static_cast<QWidget*>(cboManufacturer), static_cast<QWidget*>(cboQuantity),
                       static_cast<QWidget*>(dtpExpiration)})
        w->installEventFilter(this);

    lblStore->setVisible(false);
    cboStore->setVisible(false);
    ShowPage(0);
    Form_Load();
}

int frmNewCoupon::Page() const { return pages->currentIndex(); }

void frmNewCoupon::Form_Load() {
    Trap(QStringLiteral("NewCoupon.LoadManufacturer"),
         [&] { Fill(cboManufacturer, QStringLiteral("SELECT * FROM Manufacturer ORDER BY [Name]")); });
    Trap(QStringLiteral("NewCoupon.LoadCategories"),
         [&] { Fill(cboCouponCategory, QStringLiteral("SELECT * FROM ItemCategory ORDER BY [Name]")); });
    cboCouponValue->clear();
    cboCouponValue->addItems(clsCoupon::ValueList());
    cboCouponValue->setCurrentIndex(-1);
    Trap(QStringLiteral("NewCoupon.LoadStores"),
         [&] { Fill(cboStore, QStringLiteral("SELECT * FROM Store ORDER BY [Name]")); });
}

bool frmNewCoupon::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // OK checks the boxes itself, Close leaves without them, and a box
        // that only lost focus to another window or its own pop-up is not left.
        const QWidget* next = QApplication::focusWidget();
        const bool leaving = reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
                             next != cmdOK && next != cmdCancel && !filling_;
        if (watched == cboManufacturer && reason != Qt::PopupFocusReason) {
            cboManufacturer_LostFocus();
        } else if (watched == cboQuantity && leaving) {
            // After the focus has settled, so the box can take it back.
            QTimer::singleShot(0, this, [this] { cboQuantity_Validate(); });
        } else if (watched == dtpExpiration && leaving && dateEdited_) {
            QTimer::singleShot(0, this, [this] { dtpExpiration_Validate(); });
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmNewCoupon::LoadProducts(const QString& manufacturer) {
    TrapTail(QStringLiteral(" ocurred in NewCoupon.LoadProducts."), 0, [&] {
        const QString typed = cboProduct->currentText();
        Fill(cboProduct,
             QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = '%1' ORDER BY [Name]").arg(QuoteSql(manufacturer)));
        // The sizes of that maker's products are the likely ones.
        const QString size = cboSize->currentText();
        Fill(cboSize,
             QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = '%1' ORDER BY [Size]").arg(QuoteSql(manufacturer)),
             QStringLiteral("Size"));
        cboProduct->setEditText(typed);
        cboSize->setEditText(size);
        return 0;
    });
}

void frmNewCoupon::cboManufacturer_LostFocus() {
    const QString maker = Text(cboManufacturer);
    if (maker.isEmpty() || maker == loadedMaker_) return;
    if (!clsManufacturer().Exists(maker)) return;
    loadedMaker_ = maker;
    LoadProducts(maker);
}

bool frmNewCoupon::cboQuantity_Validate() {
    const QString quantity = Text(cboQuantity);
    if (quantity.isEmpty() || IsNumeric(QVariant(quantity))) return true;
    MsgBox(QStringLiteral("The Quantity field must be a numberic value, please correct."), Box::Exclamation);
    ShowPage(0);
    cboQuantity->setFocus();
    cboQuantity->lineEdit()->selectAll();
    return false;
}

bool frmNewCoupon::dtpExpiration_Validate() {
    if (!dtpExpiration->isEnabled() || dtpExpiration->date() >= Clock::Today()) return true;
    MsgBox(QStringLiteral("That date is prior to today!"), Box::OKCancel + Box::Exclamation,
           QStringLiteral("Prior Date"));
    ShowPage(0);
    dtpExpiration->setFocus();
    return false;
}

void frmNewCoupon::SetNeverExpires(bool never) {
    dtpExpiration->setEnabled(!never);
    cmdNeverExpires->setText(never ? kSetExpiration : kNoExpiration);
}

void frmNewCoupon::cmdNeverExpires_Click() { SetNeverExpires(dtpExpiration->isEnabled()); }

void frmNewCoupon::chkAdvertisedSpecial_Click() {
    const bool special = chkAdvertisedSpecial->isChecked();
    lblStore->setVisible(special);
    cboStore->setVisible(special);
    cboStore->setCurrentIndex(-1);
    cboStore->setEditText(QString());
    if (special) cboStore->setFocus();
}

void frmNewCoupon::ShowPage(int page) {
    page = qBound(0, page, pages->count() - 1);
    pages->setCurrentIndex(page);
    cmdPrev->setEnabled(page > 0);
    cmdNext->setEnabled(page < pages->count() - 1);
}

void frmNewCoupon::cmdPrev_Click() { ShowPage(pages->currentIndex() - 1); }

void frmNewCoupon::cmdNext_Click() {
    ShowPage(pages->currentIndex() + 1);
    if (pages->currentIndex() == 1) txtCouponNotes->setFocus();
}

void frmNewCoupon::cmdScan_Click() {
    barcode_ = frmNewBarcode::GetItemBarcode(QString(), QString(), QString());
    if (barcode_.isEmpty()) return;  // a cancelled scan leaves the boxes and the picture alone
    SetCouponBarcode(barcode_);
    DecodeCoupon();
    cboCouponValue->setEditText(GetCouponValueText());
    // The decoder names no maker or product, so a scan empties both boxes.
    cboManufacturer->setEditText(GetCouponManufacturerText());
    cboProduct->setEditText(GetCouponProductText());
    loadedMaker_.clear();
    DrawBarcode(barcode_, picBarcode);
}

void frmNewCoupon::EditCoupon(qint32 id) {
    Trap(QStringLiteral("frmNewCoupon.EditCoupon"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = ") + QString::number(id), ConnectionMain(),
               adOpenForwardOnly, adLockReadOnly);
        if (r.IsEOF()) return;
        const auto text = [&r](const char* column) { return TextOf(r.Field(QString::fromLatin1(column))); };
        ClearEntry();
        filling_ = true;
        // The row's own columns, so that the value, the store, the double
        // mark and "Never" come through an edit unchanged.
        cboManufacturer->setEditText(text("Manufacturer"));
        cboManufacturer_LostFocus();
        cboProduct->setEditText(text("Product"));
        cboSize->setEditText(text("Size"));
        cboQuantity->setEditText(text("Quantity"));
        cboCouponCategory->setEditText(text("Category"));
        cboCouponValue->setEditText(text("Value"));
        chkDiscountDouble->setChecked(frmAllCoupons::Doubled(text("DiscountDouble")));
        const QString expiration = text("Expiration");
        if (expiration == QLatin1String("Never")) {
            SetNeverExpires(true);
        } else if (IsDate(QVariant(expiration))) {
            dtpExpiration->setDate(CDate(QVariant(expiration)).date());
        }
        const QString store = text("Store");
        chkAdvertisedSpecial->setChecked(!store.trimmed().isEmpty());
        chkAdvertisedSpecial_Click();
        cboStore->setEditText(store.trimmed());
        filling_ = false;
        editing_ = true;
        editID_ = id;
        cboManufacturer->setFocus();
    });
    filling_ = false;
}

void frmNewCoupon::Prefill(const QString& manufacturer, const QString& product, const QString& size,
                           const QString& category) {
    cboManufacturer->setEditText(manufacturer);
    cboManufacturer_LostFocus();
    cboProduct->setEditText(product);
    cboSize->setEditText(size);
    cboCouponCategory->setEditText(category);
}

bool frmNewCoupon::Required() {
    const struct {
        QComboBox* box;
        const char* text;
    } required[] = {
        {cboManufacturer, "The Manufacturer field is blank, please correct."},
        {cboProduct, "The Product Field is blank, please correct."},
        {cboSize, "The Size field is blank, please correct."},
        {cboCouponCategory, "The Category field is blank, please correct"},
    };
    for (const auto& r : required) {
        if (!Text(r.box).isEmpty()) continue;
        MsgBox(QString::fromLatin1(r.text), Box::Exclamation);
        ShowPage(0);
        r.box->setFocus();
        return false;
    }
    return true;
}

void frmNewCoupon::cmdOK_Click() {
    // The boxes that check themselves on the way out are checked here too,
    // since OK is where the way out leads.
    if (!cboQuantity_Validate()) return;
    if (dateEdited_ && !dtpExpiration_Validate()) return;
    if (!Required()) return;

    const QString product = Text(cboProduct);
    clsCoupon().CheckForExistingList(product);
    if (editing_) {
        clsCoupon().DeleteCoupon(editID_, 1);
        MainPanes& panes = MainPanes::Instance();
        if (QStandardItem* node = panes.FindByKey(panes.coupons, QStringLiteral("C") + QString::number(editID_)))
            panes.Remove(panes.coupons, node);
    }
    if (!WriteNewCoupon()) return;  // the boxes stay for another try

    const QString maker = Text(cboManufacturer), size = Text(cboSize);
    clsProduct catalogue;
    if (!catalogue.Exists(product, maker, size))
        catalogue.WriteNew(maker, product, Text(cboCouponCategory), size, false, false, Currency(0), QString());

    ++savedCount_;
    ClearEntry();
    cboManufacturer->setFocus();
}

bool frmNewCoupon::WriteNewCoupon() {
    return Trap(QStringLiteral("frmNewCoupon.WriteNewCoupon"), false, [&] {
        const QString category = Text(cboCouponCategory), maker = Text(cboManufacturer);
        AddIfNew(cboCouponCategory, category);
        AddIfNew(cboManufacturer, maker);
        clsCoupon coupon;
        coupon.Manufacturer(maker);
        coupon.product(Text(cboProduct));
        coupon.Size(Text(cboSize));
        // A value typed by hand goes in as typed.
        coupon.Discount(Text(cboCouponValue));
        coupon.DiscountDbl(chkDiscountDouble->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
        coupon.Expiration(dtpExpiration->isEnabled() ? dtpExpiration->date().toString(Qt::ISODate)
                                                     : QStringLiteral("Never"));
        coupon.Quantity(Text(cboQuantity));
        coupon.Category(category);
        const QString store = chkAdvertisedSpecial->isChecked() ? Text(cboStore) : QString();
        coupon.Store(store.isEmpty() ? QStringLiteral(" ") : store);
        coupon.OwnerList(QStringLiteral("None"));
        return coupon.AddNew();
    });
}

void frmNewCoupon::ClearEntry() {
    filling_ = true;
    for (QComboBox* box : {cboManufacturer, cboProduct, cboSize, cboQuantity, cboCouponCategory, cboCouponValue,
                           cboStore}) {
        box->setCurrentIndex(-1);
        box->setEditText(QString());
    }
    chkDiscountDouble->setChecked(false);
    chkAdvertisedSpecial->setChecked(false);
    lblStore->setVisible(false);
    cboStore->setVisible(false);
    dtpExpiration->setDate(Clock::Today());
    SetNeverExpires(false);
    txtCouponNotes->clear();
    picBarcode->clear();
    barcode_.clear();
    loadedMaker_.clear();
    dateEdited_ = false;
    editing_ = false;
    editID_ = 0;
    filling_ = false;
    ShowPage(0);
}
