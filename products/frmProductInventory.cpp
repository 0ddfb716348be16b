#include "products/frmProductInventory.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "lists/clsShopList.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductNew.h"
#include "products/modInventory.h"
#include "products/rptInventory.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr int kSortRole = Qt::UserRole + 3;

// Sorts by the column's own key where it has one (dates, counts), by text otherwise.
class Line : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override {
        const int c = treeWidget() ? treeWidget()->sortColumn() : 0;
        const QVariant a = data(c, kSortRole), b = other.data(c, kSortRole);
        if (a.isValid() && b.isValid()) return a.toDouble() < b.toDouble();
        return text(c).compare(other.text(c), Qt::CaseInsensitive) < 0;
    }
};

// Counts line up on the right even where the list is shown as plain text.
QString Padded(const QString& text) { return text.rightJustified(5, QLatin1Char(' ')); }

QIcon Picture(const QString& key) {
    if (key == QLatin1String("InventoryWarning"))
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    return PaneIcon(QStringLiteral("Inventory"));
}

const QString kSelectAll = QStringLiteral("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50#");

}  // namespace

frmProductInventory::frmProductInventory(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmProductInventory"));
    setWindowTitle(QStringLiteral("Current Inventory"));

    lvInventory = new QTreeWidget(this);
    lvInventory->setObjectName(QStringLiteral("lvInventory"));
    lvInventory->setHeaderLabels({QStringLiteral("Item Name"), QStringLiteral("Manufacturer"),
                                  QStringLiteral("Last Qty."), QStringLiteral("Size"), QStringLiteral("Purchased"),
                                  QStringLiteral("Used"), QStringLiteral("Category")});
    lvInventory->setRootIsDecorated(false);
    lvInventory->setUniformRowHeights(true);
    lvInventory->setAlternatingRowColors(true);
    lvInventory->setSortingEnabled(true);
    lvInventory->sortByColumn(colName, Qt::AscendingOrder);
    lvInventory->setContextMenuPolicy(Qt::CustomContextMenu);
    lvInventory->header()->setStretchLastSection(true);

    // The filter box.
    auto* filter = new QGroupBox(QStringLiteral("Filter"), this);
    dtpMinDate = new QDateEdit(Clock::Today().addMonths(-1), filter);
    dtpMinDate->setObjectName(QStringLiteral("dtpMinDate"));
    dtpMaxDate = new QDateEdit(Clock::Today(), filter);
    dtpMaxDate->setObjectName(QStringLiteral("dtpMaxDate"));
    for (QDateEdit* d : {dtpMinDate, dtpMaxDate}) {
        d->setCalendarPopup(true);
        d->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    }
    chkLookoutOnly = new QCheckBox(QStringLiteral("&Look-out items only"), filter);
    chkLookoutOnly->setObjectName(QStringLiteral("chkLookoutOnly"));
    chkCouponItemsOnly = new QCheckBox(QStringLiteral("Items with &coupons only"), filter);
    chkCouponItemsOnly->setObjectName(QStringLiteral("chkCouponItemsOnly"));
    chkNotOnShopList = new QCheckBox(QStringLiteral("&Not on a shopping list"), filter);
    chkNotOnShopList->setObjectName(QStringLiteral("chkNotOnShopList"));
    cmdApplyFilter = new QPushButton(QStringLiteral("&Apply Filter"), filter);
    cmdApplyFilter->setObjectName(QStringLiteral("cmdApplyFilter"));
    cmdShowAll = new QPushButton(QStringLiteral("Show A&ll"), filter);
    cmdShowAll->setObjectName(QStringLiteral("cmdShowAll"));
    auto* filterGrid = new QGridLayout(filter);
    auto* fromLabel = new QLabel(QStringLiteral("Bought &from:"), filter);
    fromLabel->setBuddy(dtpMinDate);
    auto* toLabel = new QLabel(QStringLiteral("&to:"), filter);
    toLabel->setBuddy(dtpMaxDate);
    filterGrid->addWidget(fromLabel, 0, 0);
    filterGrid->addWidget(dtpMinDate, 0, 1);
    filterGrid->addWidget(toLabel, 0, 2);
    filterGrid->addWidget(dtpMaxDate, 0, 3);
    filterGrid->addWidget(chkLookoutOnly, 1, 0, 1, 2);
    filterGrid->addWidget(chkCouponItemsOnly, 1, 2, 1, 2);
    filterGrid->addWidget(chkNotOnShopList, 2, 0, 1, 2);
    auto* filterButtons = new QHBoxLayout;
    filterButtons->addStretch(1);
    filterButtons->addWidget(cmdShowAll);
    filterButtons->addWidget(cmdApplyFilter);
    filterGrid->addLayout(filterButtons, 2, 2, 1, 2);

    // The search box.
    auto* search = new QGroupBox(QStringLiteral("Search"), this);
    cboSearch = new QComboBox(search);
    cboSearch->setObjectName(QStringLiteral("cboSearch"));
    cboSearch->setEditable(true);
    cboSearch->setInsertPolicy(QComboBox::NoInsert);
    cboSearch->setMinimumContentsLength(18);
    cboSearch->lineEdit()->setPlaceholderText(QStringLiteral("Type to narrow the list"));
    optManufacturers = new QRadioButton(QStringLiteral("&Manufacturers"), search);
    optManufacturers->setObjectName(QStringLiteral("optManufacturers"));
    optProductName = new QRadioButton(QStringLiteral("&Product name"), search);
    optProductName->setObjectName(QStringLiteral("optProductName"));
    optOther = new QRadioButton(QStringLiteral("&Other (size, category)"), search);
    optOther->setObjectName(QStringLiteral("optOther"));
    optProductName->setChecked(true);
    auto* searchLayout = new QVBoxLayout(search);
    searchLayout->addWidget(cboSearch);
    searchLayout->addWidget(optProductName);
    searchLayout->addWidget(optManufacturers);
    searchLayout->addWidget(optOther);
    searchLayout->addStretch(1);

    auto* top = new QHBoxLayout;
    top->addWidget(filter, 3);
    top->addWidget(search, 2);

    mnuPopup = new QMenu(this);
    auto add = [this](const char* name, const QString& caption, void (frmProductInventory::*slot)()) {
        QAction* a = mnuPopup->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    add("mnuAddToShoppingList", QStringLiteral("Add to Shopping List"), &frmProductInventory::mnuAddToShoppingList_Click);
    add("mnuRemoveItem", QStringLiteral("Remove from Inventory"), &frmProductInventory::mnuRemoveItem_Click);
    mnuPopup->addSeparator();
    add("mnuAddNewItem", QStringLiteral("Add New Product..."), &frmProductInventory::mnuAddNewItem_Click);
    add("mnuItemPriceHistory", QStringLiteral("Price History..."), &frmProductInventory::mnuItemPriceHistory_Click);
    // The settings live on the main window's options screen; without one there is nothing to open.
    QAction* options = add("mnuInventoryOptions", QStringLiteral("Inventory Options..."),
                           &frmProductInventory::mnuInventoryOptions_Click);
    const QAction* general = MainWindow() ? MainWindow()->findChild<QAction*>(QStringLiteral("mnuOptionGeneral")) : nullptr;
    options->setEnabled(general && general->isEnabled());
    mnuPopup->addSeparator();
    add("mnuPrintList", QStringLiteral("Print Inventory"), &frmProductInventory::mnuPrintList_Click);
    add("mnuPrintPreview", QStringLiteral("Print Preview"), &frmProductInventory::mnuPrintPreview_Click);
    add("mnuPrintWorksheet", QStringLiteral("Print Worksheet"), &frmProductInventory::mnuPrintWorksheet_Click);

    chkRemoveWhenListed = new QCheckBox(QStringLiteral("&Remove from the inventory when put on a list"), this);
    chkRemoveWhenListed->setObjectName(QStringLiteral("chkRemoveWhenListed"));
    lblCount = new QLabel(this);
    lblCount->setObjectName(QStringLiteral("lblCount"));
    cmdClose = new QPushButton(QStringLiteral("&Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblCount);
    bottom->addSpacing(16);
    bottom->addWidget(chkRemoveWhenListed);
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lvInventory, 1);
    layout->addLayout(bottom);

    connect(cmdApplyFilter, &QPushButton::clicked, this, &frmProductInventory::cmdApplyFilter_Click);
    connect(cmdShowAll, &QPushButton::clicked, this, &frmProductInventory::LoadInventory);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(cboSearch, &QComboBox::editTextChanged, this, &frmProductInventory::cboSearch_Change);
    for (QRadioButton* o : {optManufacturers, optProductName, optOther})
        connect(o, &QRadioButton::toggled, this, [this](bool on) {
            if (!on) return;
            FillSearchChoices();
            cboSearch_Change();
        });
    connect(lvInventory, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QTreeWidgetItem* item = lvInventory->itemAt(pos)) lvInventory->setCurrentItem(item);
        const bool any = Selected() != nullptr;
        for (const char* name : {"mnuAddToShoppingList", "mnuRemoveItem", "mnuItemPriceHistory"})
            Command(QString::fromLatin1(name))->setEnabled(any);
        mnuPopup->popup(lvInventory->viewport()->mapToGlobal(pos));
    });
    // Enter on a line puts it on the list, the screen's most common use.
    connect(lvInventory, &QTreeWidget::itemActivated, this, &frmProductInventory::mnuAddToShoppingList_Click);

    setTabOrder(lvInventory, cboSearch);
    setTabOrder(cboSearch, optProductName);
    setTabOrder(optProductName, optManufacturers);
    setTabOrder(optManufacturers, optOther);
    setTabOrder(optOther, dtpMinDate);
    setTabOrder(dtpMinDate, dtpMaxDate);
    setTabOrder(dtpMaxDate, chkLookoutOnly);
    setTabOrder(chkLookoutOnly, chkCouponItemsOnly);
    setTabOrder(chkCouponItemsOnly, chkNotOnShopList);
    setTabOrder(chkNotOnShopList, cmdShowAll);
    setTabOrder(cmdShowAll, cmdApplyFilter);
    setTabOrder(cmdApplyFilter, chkRemoveWhenListed);
    setTabOrder(chkRemoveWhenListed, cmdClose);

    // Enter belongs to the list: no button takes it.
    for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
    resize(820, 520);
    LoadInventory();
    lvInventory->setFocus();
}

QAction* frmProductInventory::Command(const QString& name) const { return mnuPopup->findChild<QAction*>(name); }

QTreeWidgetItem* frmProductInventory::Selected() const {
    QTreeWidgetItem* item = lvInventory->currentItem();
    return item && !item->isHidden() ? item : nullptr;
}

int frmProductInventory::VisibleCount() const {
    int n = 0;
    for (int i = 0; i < lvInventory->topLevelItemCount(); ++i)
        if (!lvInventory->topLevelItem(i)->isHidden()) ++n;
    return n;
}

int frmProductInventory::Fill(const QString& sql, const std::function<bool(const Recordset&)>& keep) {
    lvInventory->setSortingEnabled(false);
    lvInventory->clear();
    const QDateTime horizon(Clock::Today().addDays(Registry().InventoryDays()), QTime());
    QList<QTreeWidgetItem*> lines;
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        if (keep && !keep(r)) continue;
        const QVariant bought = r.Field(QStringLiteral("LastPurchasedDate"));
        const bool dated = IsDate(bought);
        const QVariant quantity = r.Field(QStringLiteral("lastpurchasedquantity"));
        const QVariant times = r.Field(QStringLiteral("TimesPurchased"));
        auto* line = new Line(QStringList{
            TextOf(r.Field(QStringLiteral("Name"))), TextOf(r.Field(QStringLiteral("Manufacturer"))),
            Padded(TextOf(quantity)), TextOf(r.Field(QStringLiteral("Size"))),
            dated ? Format(bought, QStringLiteral("mm/dd/yyyy")) : QStringLiteral("Unknown"), Padded(TextOf(times)),
            TextOf(r.Field(QStringLiteral("Category")))});
        line->setData(colName, IdRole, CLng(r.Field(QStringLiteral("ID"))));
        // The days from the purchase to the end of the period counted from
        // today: short for what was bought lately under a short period.
        const qint64 e = dated ? DateDiff(QStringLiteral("d"), CDate(bought), horizon) : 0;
        const QString key = e < 7 ? QStringLiteral("InventoryWarning") : QStringLiteral("InventoryOK");
        line->setData(colName, ImageKeyRole, key);
        line->setIcon(colName, Picture(key));
        line->setData(colQuantity, kSortRole, IsNull(quantity) ? 0.0 : Val(TextOf(quantity)));
        line->setData(colUsed, kSortRole, IsNull(times) ? 0.0 : Val(TextOf(times)));
        line->setData(colPurchased, kSortRole, dated ? ToDateSerial(CDate(bought)) : -1e9);
        line->setTextAlignment(colQuantity, Qt::AlignRight | Qt::AlignVCenter);
        line->setTextAlignment(colUsed, Qt::AlignRight | Qt::AlignVCenter);
        lines << line;
    }
    lvInventory->addTopLevelItems(lines);
    lvInventory->setSortingEnabled(true);
    FillSearchChoices();
    cboSearch_Change();
    FitColumns();
    return int(lines.size());
}

void frmProductInventory::LoadInventory() {
    Trap(QStringLiteral("frmProductInventory.LoadInventory"), [&] { Fill(kSelectAll, {}); });
}

void frmProductInventory::cmdApplyFilter_Click() {
    Trap(QStringLiteral("frmProductInventory.cmdApplyFilter"), [&] {
        // The last day counts whole: a purchase is stamped with its time of day.
        QString sql = QStringLiteral("SELECT * FROM Product  WHERE [LastPurchasedDate] BETWEEN #") +
                      dtpMinDate->date().toString(QStringLiteral("M/d/yyyy")) + QStringLiteral("# AND #") +
                      dtpMaxDate->date().toString(QStringLiteral("M/d/yyyy")) + QStringLiteral(" 11:59:59 PM#");
        if (chkLookoutOnly->isChecked()) sql += QStringLiteral(" AND [LookOut] = True");
        const bool couponsOnly = chkCouponItemsOnly->isChecked(), notListed = chkNotOnShopList->isChecked();
        clsCoupon coupons;
        const int kept = Fill(sql, [&](const Recordset& r) {
            const QString name = TextOf(r.Field(QStringLiteral("Name")));
            const QString maker = TextOf(r.Field(QStringLiteral("Manufacturer")));
            const QString size = TextOf(r.Field(QStringLiteral("Size")));
            if (couponsOnly && coupons.Exists(maker, name, size) == 5) return false;
            if (notListed) {
                Recordset listed;
                listed.Open(QStringLiteral("SELECT * FROM ShopList WHERE [ItemName] = '") + QuoteSql(name) +
                                QStringLiteral("' AND [ItemManufacturer] = '") + QuoteSql(maker) +
                                QStringLiteral("' AND  [ItemSize] = '") + QuoteSql(size) + QLatin1Char('\''),
                            ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
                if (!listed.IsEOF()) return false;
            }
            return true;
        });
        if (kept == 0)
            MsgBox(QStringLiteral("No Items matched the Filter criteria, Please select again."), Box::Information,
                   QStringLiteral("Notice"));
    });
}

void frmProductInventory::FillSearchChoices() {
    const int column = optManufacturers->isChecked() ? colManufacturer : optOther->isChecked() ? colCategory : colName;
    QStringList names;
    for (int i = 0; i < lvInventory->topLevelItemCount(); ++i) {
        const QString text = lvInventory->topLevelItem(i)->text(column);
        if (!text.isEmpty()) names << text;
    }
    names.removeDuplicates();
    names.sort(Qt::CaseInsensitive);
    const QString typed = cboSearch->currentText();
    const QSignalBlocker quiet(cboSearch);
    cboSearch->clear();
    cboSearch->addItems(names);
    cboSearch->setEditText(typed);
}

void frmProductInventory::cboSearch_Change() {
    const QString wanted = cboSearch->currentText().trimmed();
    for (int i = 0; i < lvInventory->topLevelItemCount(); ++i) {
        QTreeWidgetItem* line = lvInventory->topLevelItem(i);
        bool match = wanted.isEmpty();
        if (!match && optManufacturers->isChecked())
            match = line->text(colManufacturer).contains(wanted, Qt::CaseInsensitive);
        else if (!match && optProductName->isChecked())
            match = line->text(colName).contains(wanted, Qt::CaseInsensitive);
        else if (!match)
            match = line->text(colSize).contains(wanted, Qt::CaseInsensitive) ||
                    line->text(colCategory).contains(wanted, Qt::CaseInsensitive);
        line->setHidden(!match);
    }
    UpdateCount();
}

void frmProductInventory::UpdateCount() {
    const int shown = VisibleCount(), all = lvInventory->topLevelItemCount();
    lblCount->setText(shown == all ? QString::number(all) + QStringLiteral(" items on hand")
                                   : QString::number(shown) + QStringLiteral(" of ") + QString::number(all) +
                                         QStringLiteral(" items shown"));
}

void frmProductInventory::FitColumns() {
    // Widths from the texts themselves: measuring through the view would lay
    // out every line of a big inventory.
    const QFontMetrics metrics(lvInventory->font());
    const int columns = lvInventory->columnCount();
    QList<int> widths(columns, 0);
    for (int c = 0; c < columns; ++c)
        widths[c] = lvInventory->header()->fontMetrics().horizontalAdvance(lvInventory->headerItem()->text(c)) + 24;
    const int sample = qMin(lvInventory->topLevelItemCount(), 400);
    for (int i = 0; i < sample; ++i) {
        const QTreeWidgetItem* line = lvInventory->topLevelItem(i);
        for (int c = 0; c < columns; ++c) widths[c] = qMax(widths[c], metrics.horizontalAdvance(line->text(c)) + 16);
    }
    widths[colName] += 22;  // the picture
    for (int c = 0; c < columns; ++c) lvInventory->setColumnWidth(c, qMin(widths[c], 260));
}

void frmProductInventory::mnuAddToShoppingList_Click() {
    QTreeWidgetItem* line = Selected();
    if (!line) return;
    const QString name = line->text(colName), maker = line->text(colManufacturer), size = line->text(colSize);
    Trap(QStringLiteral("frmProductInventory.mnuAddToShoppingList"), [&] {
        clsCoupon coupon;
        if (coupon.Exists(maker, name, size) != 5 &&
            MsgBox(QStringLiteral("There is a Coupon for this Item, Do you want to use it?"), Box::YesNo + Box::Question,
                   QStringLiteral("Coupon Alert")) == Answer::Yes)
            coupon.MarkCouponList(FoundCouponID, QStringLiteral("Current"));
        clsShopList list;
        list.ItemName(name);
        list.ItemManufacturer(maker);
        list.ItemQuantity(line->text(colQuantity).trimmed());
        list.ItemSize(size);
        list.ItemStyle(line->text(colCategory));
        list.IsCurrent(true);
        list.Name(QStringLiteral("From Inventory"));
        list.AddItem();
        if (chkRemoveWhenListed->isChecked() && modInventory::RemoveFromInventory(line->data(colName, IdRole).toInt())) {
            delete line;
            UpdateCount();
        }
        Notices().ShoppingListChanged();
    });
}

void frmProductInventory::mnuRemoveItem_Click() {
    QTreeWidgetItem* line = Selected();
    if (!line) return;
    if (modInventory::RemoveFromInventory(line->data(colName, IdRole).toInt())) {
        delete line;
        UpdateCount();
    }
}

void frmProductInventory::mnuAddNewItem_Click() {
    auto entry = std::make_unique<frmProductNew>(this);
    TheUi().ShowModal(entry.get());
    // A product entered as bought is on hand now.
    LoadInventory();
}

void frmProductInventory::mnuItemPriceHistory_Click() {
    const QTreeWidgetItem* line = Selected();
    if (!line) return;
    frmItemPriceHistory history(this);
    if (history.DisplayProduct(line->text(colName), line->text(colManufacturer))) TheUi().ShowModal(&history);
}

void frmProductInventory::mnuInventoryOptions_Click() {
    QAction* general = MainWindow() ? MainWindow()->findChild<QAction*>(QStringLiteral("mnuOptionGeneral")) : nullptr;
    if (!general || !general->isEnabled()) return;
    general->trigger();
    // The period may have changed, and with it the pictures.
    LoadInventory();
}

void frmProductInventory::mnuPrintList_Click() {
    Trap(QStringLiteral("frmProductInventory.mnuPrintList"),
         [&] { rptInventory::Print(rptInventory::Inventory(), false); });
}

void frmProductInventory::mnuPrintPreview_Click() {
    Trap(QStringLiteral("frmProductInventory.mnuPrintPreview"),
         [&] { rptInventory::Print(rptInventory::Inventory(), true); });
}

void frmProductInventory::mnuPrintWorksheet_Click() {
    Trap(QStringLiteral("frmProductInventory.mnuPrintWorksheet"),
         [&] { rptInventory::Print(rptInventory::Worksheet(), false); });
}
