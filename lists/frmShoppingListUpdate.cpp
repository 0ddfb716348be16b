#include "lists/frmShoppingListUpdate.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "lists/frmShoppingListEditCost.h"
#include "lists/frmShoppingListUpdateAdd.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/clsProduct.h"
#include "products/clsSpendHistory.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductCostHistory.h"
#include "products/modInventory.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString kCrLf = QStringLiteral("\r\n");
const QString kFromReceipt = QStringLiteral("From Receipt");
const QString kEnterOrSelect = QStringLiteral("<Enter or Select>");
const QString kMoney = QStringLiteral("$##0.#0");

class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

QString Tail(const QString& procedure) {
    return QStringLiteral(". (Occurred in frmShoppingListUpdate.") + procedure + QLatin1Char(')');
}

qint32 SpendIdOf(const QTreeWidgetItem* line) {
    return line->text(frmShoppingListUpdate::colID).toInt();
}

}  // namespace

frmShoppingListUpdate::frmShoppingListUpdate(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingListUpdate"));
    setWindowTitle(QStringLiteral("Update Shopping List Costs"));

    cboShopingList = new QComboBox(this);
    cboShopingList->setObjectName(QStringLiteral("cboShopingList"));
    cboShopingList->setEditable(true);
    cboShopingList->setInsertPolicy(QComboBox::NoInsert);
    cboShopingList->setMinimumContentsLength(22);
    cmdLoad = new QPushButton(QStringLiteral("&Load"), this);
    cmdLoad->setObjectName(QStringLiteral("cmdLoad"));
    lblReceiptDate = new QLabel(QStringLiteral("Bought &on:"), this);
    dtpReceiptDate = new QDateEdit(Clock::Today(), this);
    dtpReceiptDate->setObjectName(QStringLiteral("dtpReceiptDate"));
    dtpReceiptDate->setCalendarPopup(true);
    dtpReceiptDate->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    lblReceiptDate->setBuddy(dtpReceiptDate);
    auto* listLabel = new QLabel(QStringLiteral("Shopping &List:"), this);
    listLabel->setBuddy(cboShopingList);
    auto* pick = new QHBoxLayout;
    pick->addWidget(listLabel);
    pick->addWidget(cboShopingList, 1);
    pick->addWidget(cmdLoad);
    pick->addSpacing(12);
    pick->addWidget(lblReceiptDate);
    pick->addWidget(dtpReceiptDate);

    lblHeader = new QLabel(this);
    lblHeader->setObjectName(QStringLiteral("lblHeader"));
    QFont bold = lblHeader->font();
    bold.setBold(true);
    lblHeader->setFont(bold);

    lvListItems = new QTreeWidget(this);
    lvListItems->setObjectName(QStringLiteral("lvListItems"));
    lvListItems->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Manufacturer"), QStringLiteral("Size"),
                                  QStringLiteral("Cost"), QStringLiteral("Store"), QStringLiteral("ID")});
    lvListItems->setRootIsDecorated(false);
    lvListItems->setUniformRowHeights(true);
    lvListItems->setAlternatingRowColors(true);
    lvListItems->setContextMenuPolicy(Qt::CustomContextMenu);
    lvListItems->setColumnWidth(colItem, 200);
    lvListItems->setColumnWidth(colManufacturer, 140);
    lvListItems->setColumnWidth(colSize, 80);
    lvListItems->setColumnWidth(colCost, 70);
    lvListItems->setColumnWidth(colStore, 110);

    cboStore = new QComboBox(this);
    cboStore->setObjectName(QStringLiteral("cboStore"));
    cboStore->setEditable(true);
    cboStore->setInsertPolicy(QComboBox::NoInsert);
    cboStore->setMinimumContentsLength(16);
    auto* storeLabel = new QLabel(QStringLiteral("S&tore for marked items:"), this);
    storeLabel->setBuddy(cboStore);

    cmdApply = new QPushButton(QStringLiteral("Save &only"), this);
    cmdApply->setObjectName(QStringLiteral("cmdApply"));
    cmdSave = new QPushButton(QStringLiteral("&Save and Exit"), this);
    cmdSave->setObjectName(QStringLiteral("cmdSave"));
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(storeLabel);
    bottom->addWidget(cboStore);
    bottom->addStretch(1);
    bottom->addWidget(cmdApply);
    bottom->addWidget(cmdSave);
    bottom->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pick);
    layout->addWidget(lblHeader);
    layout->addWidget(lvListItems, 1);
    layout->addLayout(bottom);

    mnuPopup = new QMenu(this);
    auto add = [this](const char* name, const QString& caption, void (frmShoppingListUpdate::*slot)()) {
        QAction* a = mnuPopup->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        if (slot) connect(a, &QAction::triggered, this, slot);
        return a;
    };
    add("mnuEditItemCost", QStringLiteral("Edit Item Cost..."), &frmShoppingListUpdate::mnuEditItemCost_Click);
    add("mnuRemoveItem", QStringLiteral("Remove Item"), &frmShoppingListUpdate::mnuRemoveItem_Click);
    add("mnuAddNewItem", QStringLiteral("Add New Item..."), &frmShoppingListUpdate::mnuAddNewItem_Click);
    mnuPopup->addSeparator();
    add("mnuSetItemsStore", QStringLiteral("Set Item's Store"), &frmShoppingListUpdate::mnuSetItemsStore_Click);
    add("mnuMarkAllItemsForStore", QStringLiteral("Mark All Items for Store"),
        &frmShoppingListUpdate::mnuMarkAllItemsForStore_Click);
    add("mnuSetItemsIsle", QStringLiteral("Set Item's Isle"), &frmShoppingListUpdate::mnuSetItemsIsle_Click);
    add("mnuReleaseItemsCoupon", QStringLiteral("Release Item's Coupon"),
        &frmShoppingListUpdate::mnuReleaseItemsCoupon_Click);
    mnuPopup->addSeparator();
    add("mnuCheckAllEntries", QStringLiteral("Check All Entries"), &frmShoppingListUpdate::mnuCheckAllEntries_Click);
    mnuPopup->addSeparator();
    add("mnuItemPriceHistory", QStringLiteral("Price History..."), &frmShoppingListUpdate::mnuItemPriceHistory_Click);
    add("mnuProductCostHistory", QStringLiteral("Item Cost History..."),
        &frmShoppingListUpdate::mnuProductCostHistory_Click);

    connect(cmdLoad, &QPushButton::clicked, this, &frmShoppingListUpdate::cmdLoad_Click);
    connect(cboShopingList, &QComboBox::activated, this, [this] { cboShopingList_Validate(); });
    connect(cboShopingList->lineEdit(), &QLineEdit::returnPressed, this, &frmShoppingListUpdate::cmdLoad_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmShoppingListUpdate::cmdApply_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmShoppingListUpdate::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmShoppingListUpdate::cmdCancel_Click);
    connect(lvListItems, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem*, int column) {
        if (column == colItem) changed_ = true;
    });
    connect(lvListItems, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QTreeWidgetItem* item = lvListItems->itemAt(pos)) lvListItems->setCurrentItem(item);
        QTreeWidgetItem* line = Selected();
        const bool loaded = !listName_.isEmpty(), any = lvListItems->topLevelItemCount() > 0;
        for (const char* name : {"mnuEditItemCost", "mnuRemoveItem", "mnuSetItemsStore", "mnuSetItemsIsle", "mnuItemPriceHistory",
                                 "mnuProductCostHistory"})
            Command(QString::fromLatin1(name))->setEnabled(line != nullptr);
        Command(QStringLiteral("mnuAddNewItem"))->setEnabled(loaded);
        Command(QStringLiteral("mnuMarkAllItemsForStore"))->setEnabled(any);
        Command(QStringLiteral("mnuCheckAllEntries"))->setEnabled(any);
        Command(QStringLiteral("mnuReleaseItemsCoupon"))
            ->setEnabled(line && !line->data(colItem, TagRole).toString().isEmpty());
        mnuPopup->popup(lvListItems->viewport()->mapToGlobal(pos));
    });

    Trap(QStringLiteral("frmShoppingListUpdate.LoadStores"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [Name] FROM Store ORDER BY [Name]"), ConnectionMain(), adOpenForwardOnly,
               adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) cboStore->addItem(TextOf(r.Field(QStringLiteral("Name"))));
        cboStore->setCurrentIndex(-1);
    });

    // Enter loads the list typed, or ticks the line it is on; it never saves.
    for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
    connect(lvListItems, &QTreeWidget::itemActivated, this, [](QTreeWidgetItem* line) {
        line->setCheckState(colItem, line->checkState(colItem) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    resize(760, 480);
    ShowReceiptDate(false);
    LoadListNames();
    UpdateHeader();
    cboShopingList->setFocus();
}

QAction* frmShoppingListUpdate::Command(const QString& name) const { return mnuPopup->findChild<QAction*>(name); }

QTreeWidgetItem* frmShoppingListUpdate::Selected() const { return lvListItems->currentItem(); }

void frmShoppingListUpdate::ShowReceiptDate(bool on) {
    lblReceiptDate->setVisible(on);
    dtpReceiptDate->setVisible(on);
    // A receipt goes back no further than 90 days.
    dtpReceiptDate->setDateRange(Clock::Today().addDays(-90), Clock::Today());
}

void frmShoppingListUpdate::UpdateHeader() {
    if (listName_.isEmpty())
        lblHeader->setText(QStringLiteral("Choose a list and press Load."));
    else if (listName_ == kFromReceipt)
        lblHeader->setText(QStringLiteral(" Item from Receipt"));
    else
        lblHeader->setText(QString::number(lvListItems->topLevelItemCount()) + QStringLiteral(" Adjustments for ") +
                           listName_);
}

void frmShoppingListUpdate::LoadListNames() {
    const QString typed = cboShopingList->currentText();
    cboShopingList->clear();
    cboShopingList->addItem(kFromReceipt);
    TrapTail(Tail(QStringLiteral("LoadListNames")), true, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [ItemListName] FROM SpendHistory WHERE [ItemListName] <> ''"), ConnectionMain(),
               adOpenForwardOnly, adLockReadOnly);
        QStringList names;
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString name = TextOf(r.Field(QStringLiteral("ItemListName")));
            // Rows of one list, however many, are one entry.
            bool seen = false;
            for (const QString& n : names) seen = seen || n.compare(name, Qt::CaseInsensitive) == 0;
            if (!seen && name != kFromReceipt) names << name;
        }
        cboShopingList->addItems(names);
        return true;
    });
    cboShopingList->setEditText(typed.isEmpty() ? kEnterOrSelect : typed);
}

bool frmShoppingListUpdate::cboShopingList_Validate() {
    const QString name = cboShopingList->currentText().trimmed();
    if (changed_ && !listName_.isEmpty() && name != listName_ &&
        MsgBox(listName_ + QStringLiteral(" has not been saved, Do you wish to continue?"), Box::YesNo + Box::Question,
               QStringLiteral("Continue")) != Answer::Yes) {
        cboShopingList->setEditText(listName_);
        return false;
    }
    if (name.isEmpty() || name == kEnterOrSelect) return false;
    if (name == kFromReceipt) {
        ShowReceiptDate(true);
        dtpReceiptDate->setFocus();
        return true;
    }
    ShowReceiptDate(false);
    if (!clsSpendHistory().ListExists(name)) {
        MsgBox(QStringLiteral("The list '") + name + QStringLiteral("' does not exist, Please re-enter."),
               Box::Information, QStringLiteral("Notice"));
        cboShopingList->setFocus();
        return false;
    }
    return true;
}

void frmShoppingListUpdate::cmdLoad_Click() {
    const QString name = cboShopingList->currentText().trimmed();
    if (name.isEmpty() || name == kEnterOrSelect) return;
    if (name != kFromReceipt && !clsSpendHistory().ListExists(name)) {
        MsgBox(QStringLiteral("The list '") + name + QStringLiteral("' does not exist, Please re-enter."),
               Box::Information, QStringLiteral("Notice"));
        return;
    }
    if (lvListItems->topLevelItemCount() > 0) {
        const int answer =
            MsgBox(QStringLiteral("There is already a loaded List. Do you wish to Save or Clear this List?") + kCrLf +
                       QStringLiteral("Click 'Yes' to Save the List, 'No' to clear the List or 'Cancel' to resume."),
                   Box::YesNoCancel + Box::Question, QStringLiteral("Clear List"));
        if (answer == Answer::Cancel) return;
        if (answer == Answer::Yes && !UpdateItemCosts()) return;
        lvListItems->clear();
    }
    LoadListItems(name);
}

QTreeWidgetItem* frmShoppingListUpdate::AddLine(const QString& name, const QString& manufacturer,
                                                const QString& size, const QVariant& cost, const QString& store,
                                                qint32 spendID, const QString& couponTag) {
    const QSignalBlocker quiet(lvListItems);
    auto* line = new QTreeWidgetItem(lvListItems, QStringList{name, manufacturer, size,
                                                              Format(IsNull(cost) ? QVariant(0) : cost, kMoney), store,
                                                              QString::number(spendID)});
    line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
    line->setCheckState(colItem, Qt::Unchecked);
    line->setTextAlignment(colCost, Qt::AlignRight | Qt::AlignVCenter);
    line->setTextAlignment(colID, Qt::AlignRight | Qt::AlignVCenter);
    SetCoupon(line, couponTag);
    return line;
}

void frmShoppingListUpdate::SetCoupon(QTreeWidgetItem* line, const QString& tag) {
    const QSignalBlocker quiet(lvListItems);
    const QString key = tag.isEmpty() ? QStringLiteral("Item") : QStringLiteral("HasCoupon");
    line->setData(colItem, TagRole, tag);
    line->setData(colItem, ImageKeyRole, key);
    line->setIcon(colItem, PaneIcon(tag.isEmpty() ? QStringLiteral("Item") : QStringLiteral("Coupon")));
}

void frmShoppingListUpdate::LoadListItems(const QString& listName) {
    lvListItems->clear();
    listName_ = listName;
    listDate_ = QDateTime(Clock::Today(), QTime());
    changed_ = false;
    ShowReceiptDate(listName == kFromReceipt);
    if (listName != kFromReceipt) {
        TrapTail(Tail(QStringLiteral("LoadListItems")), true, [&] {
            Recordset r;
            r.Open(QStringLiteral("SELECT * FROM SpendHistory WHERE [ItemListName] = '") + QuoteSql(listName) +
                       QLatin1Char('\''),
                   ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            bool first = true;
            for (; !r.IsEOF(); r.MoveNext()) {
                const QVariant date = r.Field(QStringLiteral("ItemListDate"));
                if (first && IsDate(date)) listDate_ = CDate(date);
                first = false;
                Recordset product;
                product.Open(QStringLiteral("SELECT [Name],[Manufacturer],[ID],[Size] FROM Product WHERE [ID] = ") +
                                 QString::number(CLng(r.Field(QStringLiteral("ItemID")))),
                             ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
                // A product deleted since the purchase leaves its price to confirm all the same.
                const bool known = !product.IsEOF();
                const QVariant coupon = r.Field(QStringLiteral("ItemCouponID"));
                const qint32 couponID = IsNull(coupon) ? 0 : CLng(coupon);
                AddLine(known ? TextOf(product.Field(QStringLiteral("Name"))) : QString(),
                        known ? TextOf(product.Field(QStringLiteral("Manufacturer"))) : QString(),
                        known ? TextOf(product.Field(QStringLiteral("Size"))) : QString(),
                        r.Field(QStringLiteral("ItemListCost")), TextOf(r.Field(QStringLiteral("ItemStore"))),
                        CLng(r.Field(QStringLiteral("SpendID"))),
                        couponID ? QString::number(couponID) : QString());
            }
            return true;
        });
    }
    UpdateHeader();
    lvListItems->setFocus();
}

void frmShoppingListUpdate::NotBought(QTreeWidgetItem* line) {
    clsSpendHistory().DeleteID(SpendIdOf(line));
    const qint16 productID =
        clsProduct().GetItemID(line->text(colItem), line->text(colManufacturer), line->text(colSize));
    modInventory::RemoveFromInventory(productID);
}

bool frmShoppingListUpdate::UpdateItemCosts() {
    for (int i = lvListItems->topLevelItemCount() - 1; i >= 0; --i) {
        if (lvListItems->topLevelItem(i)->checkState(colItem) == Qt::Checked) continue;
        if (MsgBox(QStringLiteral("There are some Items that have not been Checked, these Items will be deleted.") +
                       kCrLf + kCrLf +
                       QStringLiteral("You can click 'No' and use the option 'Check All Entries' to mark these "
                                      "items.") +
                       QStringLiteral("        Do you wish to Continue?"),
                   Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Continue")) == Answer::No)
            return false;
        break;
    }
    WaitCursor hourglass;
    cboShopingList->setEnabled(false);
    const bool done = TrapTail(Tail(QStringLiteral("UpdateItemCosts")), false, [&] {
        for (int i = lvListItems->topLevelItemCount() - 1; i >= 0; --i) {
            QTreeWidgetItem* line = lvListItems->topLevelItem(i);
            if (line->checkState(colItem) != Qt::Checked) {
                NotBought(line);
            } else {
                const QString tag = line->data(colItem, TagRole).toString();
                if (!tag.isEmpty()) {
                    // The coupon was handed in at the till.
                    Recordset coupon;
                    coupon.Open(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = ") + tag, ConnectionMain(),
                                adOpenKeyset, adLockOptimistic);
                    if (!coupon.IsEOF()) coupon.Delete();
                }
                const qint32 spendID = SpendIdOf(line);
                const std::optional<Currency> cost = clsProduct::CostFromText(line->text(colCost));
                clsSpendHistory history;
                history.UpdateItemCost(spendID, cost.value_or(Currency()));
                history.UpdateItemStore(spendID, line->text(colStore));
                history.FinalizeUpdate(spendID, QString());
            }
            delete line;
        }
        return true;
    });
    if (done) {
        if (listName_ != kFromReceipt) {
            const int at = cboShopingList->findText(listName_, Qt::MatchFixedString);
            if (at > 0) cboShopingList->removeItem(at);
        }
        lvListItems->clear();
        changed_ = false;
        listName_.clear();
        cboShopingList->setEditText(kEnterOrSelect);
        UpdateHeader();
        Q_EMIT Notices().SetCurrentInventory();
        Q_EMIT Notices().LoadAllCoupons();
    }
    cboShopingList->setEnabled(true);
    return done;
}

void frmShoppingListUpdate::cmdApply_Click() { UpdateItemCosts(); }

void frmShoppingListUpdate::cmdSave_Click() {
    if (lvListItems->topLevelItemCount() > 0 && !UpdateItemCosts()) return;
    CloseUnchecked();
}

void frmShoppingListUpdate::cmdCancel_Click() { CloseChecked(); }

bool frmShoppingListUpdate::MayClose() {
    if (!changed_) return true;
    return MsgBox(QStringLiteral("The current changes have not been saved, Continue?"), Box::YesNo + Box::Question,
                  QStringLiteral("Exit")) == Answer::Yes;
}

void frmShoppingListUpdate::mnuEditItemCost_Click() {
    QTreeWidgetItem* line = Selected();
    if (!line) return;
    const Currency old = clsProduct::CostFromText(line->text(colCost)).value_or(Currency());
    Currency cost;
    if (!frmShoppingListEditCost::GetNewCost(old, cost, this)) return;
    line->setText(colCost, Format(QVariant::fromValue(cost), QStringLiteral("$##0.#0")));
    changed_ = true;
}

void frmShoppingListUpdate::mnuRemoveItem_Click() {
    QTreeWidgetItem* line = Selected();
    if (!line) return;
    if (MsgBox(QStringLiteral("Are you certain that you want to remove ") + line->text(colItem) +
                   QStringLiteral(" from the List as well as Inventory?"),
               Box::YesNo + Box::Question, QStringLiteral("Remove")) != Answer::Yes)
        return;
    Trap(QStringLiteral("mnuRemoveItem.UpdateItemCosts"), [&] {
        NotBought(line);
        delete line;
        UpdateHeader();
    });
}

void frmShoppingListUpdate::mnuAddNewItem_Click() {
    if (listName_.isEmpty()) return;
    const QString chosen = frmShoppingListUpdateAdd::GetItem(this);
    if (chosen.isEmpty()) return;
    const QStringList parts = chosen.split(QStringLiteral("::"));
    if (parts.size() < 5) return;
    const QString name = parts[1], maker = parts[2], size = parts[3];
    for (int i = 0; i < lvListItems->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* line = lvListItems->topLevelItem(i);
        if (line->text(colItem).compare(name, Qt::CaseInsensitive) != 0 ||
            line->text(colManufacturer).compare(maker, Qt::CaseInsensitive) != 0)
            continue;
        if (MsgBox(maker + QStringLiteral("'s ") + name +
                       QStringLiteral(" is already on this List. Would you like to still add it?"),
                   Box::YesNo + Box::Question, QStringLiteral("Duplicate")) != Answer::Yes)
            return;
        break;
    }
    Trap(QStringLiteral("frmShoppingListUpdate.mnuAddNewItem"), [&] {
        const bool receipt = listName_ == kFromReceipt;
        const Currency cost = clsProduct::CostFromText(parts[4]).value_or(Currency());
        clsSpendHistory history;
        history.ItemID(CInt(parts[0]));
        history.ItemListCost(cost);
        history.ItemListDate(receipt ? QDateTime(dtpReceiptDate->date(), QTime()) : listDate_);
        // A purchase off the receipt belongs to no list: it is final at once.
        history.ItemListName(receipt ? QString() : listName_);
        history.ItemStore(QString());
        history.AddRecord();
        const qint32 spendID = history.SpendID();
        history.CloseDB();
        QTreeWidgetItem* line = AddLine(name, maker, size, QVariant::fromValue(cost), QString(), spendID, QString());
        line->setCheckState(colItem, Qt::Checked);
        lvListItems->setCurrentItem(line);
        changed_ = true;
        UpdateHeader();
    });
}

void frmShoppingListUpdate::mnuSetItemsStore_Click() {
    QTreeWidgetItem* line = Selected();
    const QString store = cboStore->currentText().trimmed();
    if (!line) return;
    if (store.isEmpty()) {
        cboStore->setFocus();
        return;
    }
    line->setText(colStore, store);
    changed_ = true;
}

void frmShoppingListUpdate::mnuMarkAllItemsForStore_Click() {
    const QString store = cboStore->currentText().trimmed();
    if (store.isEmpty()) {
        cboStore->setFocus();
        return;
    }
    for (int i = 0; i < lvListItems->topLevelItemCount(); ++i) lvListItems->topLevelItem(i)->setText(colStore, store);
    changed_ = true;
}

void frmShoppingListUpdate::mnuSetItemsIsle_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

void frmShoppingListUpdate::mnuReleaseItemsCoupon_Click() {
    QTreeWidgetItem* line = Selected();
    if (!line) return;
    const QString tag = line->data(colItem, TagRole).toString();
    if (tag.isEmpty()) return;
    if (MsgBox(QStringLiteral("This will release the Coupon for ") + line->text(colItem) +
                   QStringLiteral(". Once the Coupon has been released it cannot be reassigned to this Item.") + kCrLf +
                   QStringLiteral("Do you wish to Release this Coupon?"),
               Box::YesNo + Box::Question, QStringLiteral("Release Coupon")) != Answer::Yes)
        return;
    clsCoupon().ReleaseCouponList(tag.toInt(), listName_);
    SetCoupon(line, QString());
    changed_ = true;
}

void frmShoppingListUpdate::mnuCheckAllEntries_Click() {
    for (int i = 0; i < lvListItems->topLevelItemCount(); ++i)
        lvListItems->topLevelItem(i)->setCheckState(colItem, Qt::Checked);
}

void frmShoppingListUpdate::mnuItemPriceHistory_Click() {
    const QTreeWidgetItem* line = Selected();
    if (!line) return;
    frmItemPriceHistory history(this);
    if (history.DisplayProduct(line->text(colItem), line->text(colManufacturer))) TheUi().ShowModal(&history);
}

void frmShoppingListUpdate::mnuProductCostHistory_Click() {
    const QTreeWidgetItem* line = Selected();
    if (!line) return;
    frmProductCostHistory history(line->text(colManufacturer), line->text(colItem), this);
    TheUi().ShowModal(&history);
}
