#include "coupons/frmDelivery.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "coupons/clsDelivery.h"
#include "platform/Clock.h"
#include "platform/Ui.h"
#include "products/Calculator.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString kSelect = QStringLiteral("<Select or Enter>");
const QString kMoney = QStringLiteral("$##0.00");
const QString kDate = QStringLiteral("mm/dd/yy");
const QString kSaved = QStringLiteral("Saved");
const QString kUnsaved = QStringLiteral("Unsaved");

enum Column { colType, colRestaurant, colItem, colValue, colExpiration };

QComboBox* NameBox(const QString& name, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setMinimumContentsLength(18);
    return box;
}

void Refill(QComboBox* box, const QStringList& names) {
    box->clear();
    box->addItem(kSelect);
    box->addItems(names);
    box->setCurrentIndex(0);
}

void AddName(QComboBox* box, const QString& name) {
    if (box->findText(name, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0) box->addItem(name);
}

// A typed amount without its one leading "$", or nothing when it is not a number.
bool AmountOf(QString text, QString& amount) {
    text = text.trimmed();
    if (text.startsWith(QLatin1Char('$'))) text.remove(0, 1);
    if (text.contains(QLatin1Char('$')) || !IsNumeric(text)) return false;
    amount = text;
    return true;
}

}  // namespace

frmDelivery::frmDelivery(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmDelivery"));
    setWindowTitle(QStringLiteral("Delivery Coupons"));

    lvDeliveryCoupons = new QTreeWidget(this);
    lvDeliveryCoupons->setObjectName(QStringLiteral("lvDeliveryCoupons"));
    lvDeliveryCoupons->setHeaderLabels({QStringLiteral("Food Type"), QStringLiteral("Restaurant"),
                                        QStringLiteral("Item"), QStringLiteral("Value"), QStringLiteral("Expiration"),
                                        QStringLiteral("State")});
    lvDeliveryCoupons->setRootIsDecorated(false);
    lvDeliveryCoupons->setUniformRowHeights(true);
    lvDeliveryCoupons->setAlternatingRowColors(true);

    cboType = NameBox(QStringLiteral("cboType"), this);
    cboRestaurant = NameBox(QStringLiteral("cboRestaurant"), this);
    cboItem = NameBox(QStringLiteral("cboItem"), this);
    txtValue = new QLineEdit(this);
    txtValue->setObjectName(QStringLiteral("txtValue"));
    chkCarryOut = new QCheckBox(QStringLiteral("Carry &out only"), this);
    chkCarryOut->setObjectName(QStringLiteral("chkCarryOut"));
    dtpExpiration = new QDateEdit(Clock::Today(), this);
    dtpExpiration->setObjectName(QStringLiteral("dtpExpiration"));
    dtpExpiration->setCalendarPopup(true);
    dtpExpiration->setDisplayFormat(QStringLiteral("MM/dd/yy"));
    cmdExpiration = new QPushButton(QStringLiteral("No &Expiration"), this);
    cmdExpiration->setObjectName(QStringLiteral("cmdExpiration"));

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Food &Type:"), cboType);
    form->addRow(QStringLiteral("&Restaurant:"), cboRestaurant);
    form->addRow(QStringLiteral("&Item:"), cboItem);
    auto* valueRow = new QHBoxLayout;
    valueRow->addWidget(txtValue, 1);
    valueRow->addWidget(chkCarryOut);
    // A row that is a layout gets no buddy of its own, so the mnemonic needs one.
    auto* valueLabel = new QLabel(QStringLiteral("&Value:"), this);
    valueLabel->setBuddy(txtValue);
    form->addRow(valueLabel, valueRow);
    auto* expiryRow = new QHBoxLayout;
    expiryRow->addWidget(dtpExpiration, 1);
    expiryRow->addWidget(cmdExpiration);
    form->addRow(QStringLiteral("Expires:"), expiryRow);

    cmdAdd = new QPushButton(QStringLiteral("A&dd"), this);
    cmdDelete = new QPushButton(QStringLiteral("De&lete"), this);
    cmdCalculator = new QPushButton(QStringLiteral("Calc&ulator"), this);
    cmdApply = new QPushButton(QStringLiteral("&Apply"), this);
    cmdSave = new QPushButton(QStringLiteral("&Save"), this);
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    int i = 0;
    const char* names[] = {"cmdAdd", "cmdDelete", "cmdCalculator", "cmdApply", "cmdSave", "cmdClose"};
    for (QPushButton* b : {cmdAdd, cmdDelete, cmdCalculator, cmdApply, cmdSave, cmdClose})
        b->setObjectName(QString::fromLatin1(names[i++]));
    cmdCalculator->setEnabled(!Calculator::Program().isEmpty());

    auto* side = new QVBoxLayout;
    side->addWidget(cmdAdd);
    side->addWidget(cmdDelete);
    side->addWidget(cmdCalculator);
    side->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addLayout(form, 1);
    top->addSpacing(12);
    top->addLayout(side);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdApply);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lvDeliveryCoupons, 1);
    layout->addLayout(buttons);

    connect(cmdAdd, &QPushButton::clicked, this, &frmDelivery::cmdAdd_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmDelivery::cmdDelete_Click);
    connect(cmdExpiration, &QPushButton::clicked, this, &frmDelivery::cmdExpiration_Click);
    connect(cmdCalculator, &QPushButton::clicked, this, &frmDelivery::cmdCalculator_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmDelivery::cmdApply_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmDelivery::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmDelivery::cmdClose_Click);
    connect(txtValue, &QLineEdit::editingFinished, this, &frmDelivery::txtValue_LostFocus);

    resize(680, 460);
    LoadDeliveryCoupons();
    for (int c = colType; c <= colExpiration; ++c) lvDeliveryCoupons->resizeColumnToContents(c);
    for (int c = colType; c <= colExpiration; ++c)
        lvDeliveryCoupons->setColumnWidth(c, qMax(lvDeliveryCoupons->columnWidth(c) + 16, c <= colItem ? 110 : 70));
}

int frmDelivery::UnsavedCount() const {
    int n = 0;
    for (int i = 0; i < lvDeliveryCoupons->topLevelItemCount(); ++i)
        if (lvDeliveryCoupons->topLevelItem(i)->text(StateColumn) == kUnsaved) ++n;
    return n;
}

void frmDelivery::AddLine(const QStringList& cells, bool carryOut, const QString& state) {
    auto* line = new QTreeWidgetItem(lvDeliveryCoupons, QStringList(cells) << state);
    line->setData(colType, Qt::UserRole, carryOut);
    line->setTextAlignment(colValue, Qt::AlignRight | Qt::AlignVCenter);
}

void frmDelivery::LoadDeliveryCoupons() {
    lvDeliveryCoupons->clear();
    QStringList types, restaurants, items;
    Trap(QStringLiteral("frmDelivery.LoadDeliveryCoupons"), [&] {
        clsDelivery delivery;
        delivery.OpenDB(QStringLiteral("SELECT * FROM Delivery"), adOpenStatic, adLockReadOnly);
        for (; !delivery.dbEOF(); delivery.MoveNext()) {
            const QString type = delivery.FoodType(), restaurant = delivery.Restaurant(), item = delivery.Item();
            AddLine({type, restaurant, item, Format(delivery.Value(), kMoney),
                     Format(delivery.ItemExpiration(), kDate)},
                    delivery.CarryOutOnly(), kSaved);
            if (!types.contains(type)) types << type;
            if (!restaurants.contains(restaurant)) restaurants << restaurant;
            if (!items.contains(item)) items << item;
        }
        delivery.CloseDB();
    });
    Refill(cboType, types);
    Refill(cboRestaurant, restaurants);
    Refill(cboItem, items);
}

void frmDelivery::txtValue_LostFocus() {
    QString amount;
    if (txtValue->text().trimmed().isEmpty()) return;
    if (!AmountOf(txtValue->text(), amount)) {
        MsgBox(QStringLiteral("The Coupon's value can only be a numeric value."), Box::Information,
               QStringLiteral("Notice"));
        return;
    }
    txtValue->setText(Format(QVariant::fromValue(CCur(amount)), kMoney));
}

void frmDelivery::cmdAdd_Click() {
    // A box left blank counts as never chosen.
    const auto chosen = [](QComboBox* box) {
        const QString text = box->currentText().trimmed();
        return text != kSelect && !text.isEmpty();
    };
    const struct {
        QComboBox* box;
        const char* what;
    } required[] = {{cboItem, "Item"}, {cboRestaurant, "Restaurant"}, {cboType, "Food Type"}};
    for (const auto& r : required)
        if (!chosen(r.box)) {
            MsgBox(QStringLiteral("You must enter an ") + QString::fromLatin1(r.what) +
                       QStringLiteral(" for this Coupon."),
                   Box::Information, QStringLiteral("Notice"));
            r.box->setFocus();
            return;
        }
    QString amount;
    if (!AmountOf(txtValue->text(), amount)) {
        MsgBox(QStringLiteral("The Coupon's value can only be a numeric value."), Box::Information,
               QStringLiteral("Notice"));
        txtValue->setFocus();
        return;
    }
    const QString type = cboType->currentText().trimmed(), restaurant = cboRestaurant->currentText().trimmed(),
                  item = cboItem->currentText().trimmed();
    const QString expiry =
        dtpExpiration->isEnabled() ? Format(QDateTime(dtpExpiration->date(), QTime()), kDate) : QStringLiteral("Never");
    AddLine({type, restaurant, item, Format(QVariant::fromValue(CCur(amount)), kMoney), expiry}, chkCarryOut->isChecked(), kUnsaved);
    AddName(cboType, type);
    AddName(cboRestaurant, restaurant);
    AddName(cboItem, item);
    cboItem->setCurrentIndex(0);
    txtValue->clear();
}

void frmDelivery::cmdDelete_Click() {
    QTreeWidgetItem* line = lvDeliveryCoupons->currentItem();
    if (!line) return;
    if (MsgBox(QStringLiteral("This will permantently remove the this item. Do you want to continue?"),
               Box::YesNo + Box::Question, QStringLiteral("Delete")) != Answer::Yes)
        return;
    if (line->text(StateColumn) == kSaved) clsDelivery().DeleteCoupon();
    delete line;
}

void frmDelivery::cmdExpiration_Click() {
    const bool dated = !dtpExpiration->isEnabled();
    dtpExpiration->setEnabled(dated);
    cmdExpiration->setText(dated ? QStringLiteral("No &Expiration") : QStringLiteral("&Expiration"));
}

void frmDelivery::cmdCalculator_Click() { Calculator::Start(); }

bool frmDelivery::SaveDeliveryCoupons() {
    return Trap(QStringLiteral("frmDelivery.SaveDeliveryCoupons"), false, [&] {
        clsDelivery delivery;
        for (int i = 0; i < lvDeliveryCoupons->topLevelItemCount(); ++i) {
            QTreeWidgetItem* line = lvDeliveryCoupons->topLevelItem(i);
            if (line->text(StateColumn) != kUnsaved) continue;
            delivery.FoodType(line->text(colType));
            delivery.Restaurant(line->text(colRestaurant));
            delivery.Item(line->text(colItem));
            delivery.CarryOutOnly(line->data(colType, Qt::UserRole).toBool());
            const Currency value = CCur(line->text(colValue));
            delivery.Value(QVariant::fromValue(value));
            delivery.ActualValue(QVariant::fromValue(value));
            // Set on every line, "Never" included: a line without a date must not
            // take the date of the line written before it.
            delivery.ItemExpiration(line->text(colExpiration));
            if (!delivery.AddNew()) return false;  // the line stays unsaved, to be tried again
            line->setText(StateColumn, kSaved);
        }
        return true;
    });
}

void frmDelivery::cmdApply_Click() { SaveDeliveryCoupons(); }

void frmDelivery::cmdSave_Click() {
    // A line the table refused keeps the screen open rather than being dropped.
    if (!SaveDeliveryCoupons()) return;
    accept();
}

bool frmDelivery::MayClose() {
    if (UnsavedCount() == 0) return true;
    return MsgBox(QStringLiteral("The current list of Delivery Coupons has not been saved. Do you wish to continue?"),
                  Box::YesNo + Box::Question, QStringLiteral("Continue")) == Answer::Yes;
}

void frmDelivery::cmdClose_Click() { CloseChecked(); }
