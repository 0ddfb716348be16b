#include "products/frmProductListing.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "coupons/frmNewCoupon.h"
#include "lists/clsShopList.h"
#include "lists/frmShoppingListSelect.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/ProductEvents.h"
#include "products/clsProduct.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductDetail.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr int kIdRole = Qt::UserRole + 1;

// Name, manufacturer, size, category, watch, in percent of the list's width.
const QList<int> kColumnShares = {36, 22, 14, 18, 10};

}  // namespace

frmProductListing::frmProductListing(const QString& manufacturer, QWidget* parent)
    : QDialog(parent), manufacturer_(manufacturer) {
    setObjectName(QStringLiteral("frmProductListing"));
    setWindowTitle(QStringLiteral("Product Listing"));

    lblIntro = new QLabel(this);
    lblIntro->setObjectName(QStringLiteral("lblIntro"));
    lblIntro->setWordWrap(true);
    lblIntro->setVisible(!manufacturer.isEmpty());
    if (!manufacturer.isEmpty())
        lblIntro->setText(QStringLiteral("Below is a listing of all of the products that have ever been entered for ") +
                          manufacturer + QStringLiteral(" into the database."));

    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setPlaceholderText(QStringLiteral("Product name"));
    chkWatchOnly = new QCheckBox(QStringLiteral("Watched items only"), this);
    chkWatchOnly->setObjectName(QStringLiteral("chkWatchOnly"));
    cmdSearch = new QPushButton(QStringLiteral("Search"), this);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    auto* search = new QHBoxLayout;
    search->addWidget(txtSearch, 1);
    search->addWidget(chkWatchOnly);
    search->addWidget(cmdSearch);

    lvProducts = new QTreeWidget(this);
    lvProducts->setObjectName(QStringLiteral("lvProducts"));
    lvProducts->setRootIsDecorated(false);
    lvProducts->setUniformRowHeights(true);
    lvProducts->setHeaderLabels({QStringLiteral("Product Name"), QStringLiteral("Manufacturer"), QStringLiteral("Size"),
                                 QStringLiteral("Category"), QStringLiteral("Watch")});
    lvProducts->header()->setSectionsClickable(true);
    lvProducts->header()->setStretchLastSection(false);
    lvProducts->header()->setSectionResizeMode(QHeaderView::Interactive);
    lvProducts->setTextElideMode(Qt::ElideRight);
    lvProducts->viewport()->installEventFilter(this);
    lvProducts->header()->setSortIndicatorShown(true);
    lvProducts->setContextMenuPolicy(Qt::CustomContextMenu);

    mnuPopup = new QMenu(this);
    auto add = [this](const QString& name, const QString& caption, bool enabled) {
        QAction* a = mnuPopup->addAction(caption);
        a->setObjectName(name);
        a->setEnabled(enabled);
        return a;
    };
    connect(add(QStringLiteral("mnuAddCoupon"), QStringLiteral("Add Coupon"), true), &QAction::triggered, this,
            &frmProductListing::mnuAddCoupon_Click);
    connect(add(QStringLiteral("mnuAddItemToInventory"), QStringLiteral("Add Item to Inventory"), true),
            &QAction::triggered, this, &frmProductListing::mnuAddItemToInventory_Click);
    connect(add(QStringLiteral("mnuAddItemToShopList"), QStringLiteral("Add Item to Shopping List"), true),
            &QAction::triggered, this, &frmProductListing::mnuAddItemToShopList_Click);
    mnuPopup->addSeparator();
    connect(add(QStringLiteral("mnuEditItem"), QStringLiteral("Edit Item"), true), &QAction::triggered, this,
            &frmProductListing::mnuEditItem_Click);
    connect(add(QStringLiteral("mnuDeleteItem"), QStringLiteral("Delete Item"), true), &QAction::triggered, this,
            &frmProductListing::mnuDeleteItem_Click);
    connect(add(QStringLiteral("mnuItemPriceHistory"), QStringLiteral("Price History"), true), &QAction::triggered,
            this, &frmProductListing::mnuItemPriceHistory_Click);

    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblIntro);
    layout->addLayout(search);
    layout->addWidget(lvProducts, 1);
    layout->addLayout(bottom);
    resize(720, 460);

    connect(cmdSearch, &QPushButton::clicked, this, &frmProductListing::cmdSearch_Click);
    connect(txtSearch, &QLineEdit::returnPressed, this, &frmProductListing::cmdSearch_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(lvProducts->header(), &QHeaderView::sectionClicked, this, &frmProductListing::lvProducts_ColumnClick);
    connect(lvProducts, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QTreeWidgetItem* item = lvProducts->itemAt(pos)) lvProducts->setCurrentItem(item);
        if (lvProducts->currentItem()) mnuPopup->popup(lvProducts->viewport()->mapToGlobal(pos));
    });
    connect(lvProducts, &QTreeWidget::itemDoubleClicked, this, &frmProductListing::mnuEditItem_Click);
    // Another screen writing or deleting a product refreshes the list.
    connect(&ProductEvents::Instance(), &ProductEvents::ProductEvent, this, [this] { Fill(query_); });
    LoadProducts();
}

QAction* frmProductListing::Command(const QString& name) const { return mnuPopup->findChild<QAction*>(name); }

QString frmProductListing::SelectedName() const {
    const QTreeWidgetItem* item = lvProducts->currentItem();
    return item ? item->text(0) : QString();
}

void frmProductListing::LoadProducts() {
    Fill(manufacturer_.isEmpty() ? QStringLiteral("SELECT * FROM Product ORDER BY [Name]")
                                 : QStringLiteral("SELECT * FROM Product WHERE [Manufacturer] = ") +
                                       SqlText(manufacturer_) + QStringLiteral(" ORDER BY [Name]"));
}

void frmProductListing::cmdSearch_Click() {
    QString sql = QStringLiteral("SELECT * FROM Product WHERE [Name] LIKE '*") + QuoteSql(txtSearch->text()) +
                  QStringLiteral("*'");
    if (chkWatchOnly->isChecked()) sql += QStringLiteral(" AND [LookOut] = True");
    Fill(sql + QStringLiteral(" ORDER BY [Name]"));
}

void frmProductListing::Fill(const QString& sql) {
    query_ = sql;
    lvProducts->clear();
    Recordset r;
    r.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    QList<QTreeWidgetItem*> items;
    for (; !r.IsEOF(); r.MoveNext()) {
        const QVariant watch = r.Field(QStringLiteral("lookout"));
        auto* item = new QTreeWidgetItem(
            {TextOf(r.Field(QStringLiteral("Name"))), TextOf(r.Field(QStringLiteral("Manufacturer"))),
             TextOf(r.Field(QStringLiteral("Size"))), TextOf(r.Field(QStringLiteral("Category"))),
             !IsNull(watch) && CBool(watch) ? QStringLiteral("Yes") : QStringLiteral("No")});
        item->setData(0, kIdRole, CLng(r.Field(QStringLiteral("ID"))));
        // A name too long for its column is cut short; its tip shows it whole.
        item->setToolTip(0, item->text(0));
        items << item;
    }
    lvProducts->addTopLevelItems(items);
    FitColumns();
}

void frmProductListing::FitColumns() {
    const int width = lvProducts->viewport()->width();
    int used = 0;
    for (int c = 0; c < kColumnShares.size(); ++c) {
        // The last column takes what rounding left over.
        const int w = c + 1 < kColumnShares.size() ? width * kColumnShares[c] / 100 : width - used;
        lvProducts->setColumnWidth(c, w);
        used += w;
    }
}

bool frmProductListing::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvProducts->viewport() && event->type() == QEvent::Resize) FitColumns();
    return QDialog::eventFilter(watched, event);
}

void frmProductListing::lvProducts_ColumnClick(int column) {
    ascending_ = column == sortColumn_ ? !ascending_ : true;
    sortColumn_ = column;
    lvProducts->sortItems(column, ascending_ ? Qt::AscendingOrder : Qt::DescendingOrder);
    lvProducts->header()->setSortIndicator(column, ascending_ ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void frmProductListing::mnuAddItemToInventory_Click() {
    const QString name = SelectedName();
    if (!name.isEmpty()) clsProduct().AddToInventory(name);
}

void frmProductListing::mnuAddCoupon_Click() {
    const QTreeWidgetItem* item = lvProducts->currentItem();
    if (!item) return;
    frmNewCoupon entry(this);
    entry.Prefill(item->text(1), item->text(0), item->text(2), item->text(3));
    TheUi().ShowModal(&entry);
}

void frmProductListing::mnuAddItemToShopList_Click() {
    const QTreeWidgetItem* line = lvProducts->currentItem();
    if (!line) return;
    const QString name = line->text(0), maker = line->text(1), size = line->text(2), category = line->text(3);
    Trap(QStringLiteral("frmProductListing.mnuAddItemToShopList"), [&] {
        clsProduct product;
        product.Name(name);
        product.Manufacturer(maker);
        product.Size(size);
        if (product.HasPossibleInventory() &&
            MsgBox(QStringLiteral("It appear that this Item may still be in your Inventory. Do you still wish to add "
                                  "it to a Shopping List?"),
                   Box::YesNo + Box::Question, QStringLiteral("Notice")) != Answer::Yes)
            return;
        const int answer =
            MsgBox(QStringLiteral("Would you like to add this to an existing Shopping List or create a new one?") +
                       QStringLiteral("\r\n\r\n") +
                       QStringLiteral("Click Yes to add this item to an existing List, Click 'No' to create a new List."),
                   Box::YesNoCancel + Box::Question, QStringLiteral("Add Item"));
        if (answer == Answer::Cancel) return;
        auto rowsOf = [](const QString& list) {
            auto rs = std::make_unique<Recordset>();
            rs->Open(QStringLiteral("SELECT [Dates],[Recurring],[IsCurrent] FROM ShopList WHERE [Name] = ") +
                         SqlText(list),
                     ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            return rs;
        };
        QString list;
        if (answer == Answer::Yes) {
            list = frmShoppingListSelect::GetListName(this);
        } else {
            while (true) {
                list = InputBox(QStringLiteral("What is the Name of the List that you would like to create?"),
                                QStringLiteral("New Shopping List Name"))
                           .trimmed();
                if (list.isEmpty() || rowsOf(list)->IsEOF()) break;
                MsgBox(QStringLiteral("There is already a Shopping List named ") + list +
                           QStringLiteral(". Please choose another name."),
                       Box::Exclamation, QStringLiteral("New Shopping List Name"));
            }
        }
        if (list.isEmpty()) return;
        // The item joins the list as the list stands: its date, its recurring
        // name and whether it is on the Current list.
        QString dates = QStringLiteral("None"), recurring = QStringLiteral(" ");
        bool current = false;
        if (auto rs = rowsOf(list); !rs->IsEOF()) {
            dates = TextOf(rs->Field(QStringLiteral("Dates")));
            recurring = TextOf(rs->Field(QStringLiteral("Recurring")));
            current = CBool(rs->Field(QStringLiteral("IsCurrent")));
        }
        Recordset catalogue;
        catalogue.Open(QStringLiteral("SELECT [Cost] FROM Product WHERE [ID] = ") +
                           QString::number(line->data(0, kIdRole).toInt()),
                       ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        const Currency cost = catalogue.IsEOF() ? Currency() : CCur(catalogue.Field(QStringLiteral("Cost")));
        clsShopList item;
        item.Name(list);
        item.Store(QStringLiteral("Any"));
        item.Dates(dates.isEmpty() ? QStringLiteral("None") : dates);
        item.ItemName(name);
        item.ItemQuantity(QStringLiteral("1"));
        item.ItemManufacturer(maker.isEmpty() ? QStringLiteral("Any") : maker);
        item.ItemSize(size);
        item.ItemStyle(category);
        item.ItemCost(cost);
        item.Recurring(recurring.isEmpty() ? QStringLiteral(" ") : recurring);
        item.IsCurrent(current);
        item.AddItem();
        if (current) Notices().ShoppingListChanged();
        Notices().SetMessage(name + QStringLiteral(" was added to ") + list + QStringLiteral("."));
    });
}

void frmProductListing::mnuDeleteItem_Click() {
    const QString name = SelectedName();
    if (name.isEmpty()) return;
    if (MsgBox(QStringLiteral("This will permanently delete ") + name + QStringLiteral(". Do you want to Continue?"),
               Box::YesNo + Box::Question, QStringLiteral("Confirm Delete")) != Answer::Yes)
        return;
    clsProduct().Delete(name);
}

void frmProductListing::mnuEditItem_Click() {
    const QTreeWidgetItem* item = lvProducts->currentItem();
    if (!item) return;
    // A saved product raises its event, which refills this list.
    auto detail = std::make_unique<frmProductDetail>(item->data(0, kIdRole).toInt(), this);
    TheUi().ShowModal(detail.get());
}

void frmProductListing::mnuItemPriceHistory_Click() {
    const QTreeWidgetItem* item = lvProducts->currentItem();
    if (!item) return;
    // The reason is shown when there is nothing to draw; the screen opens only with a history.
    frmItemPriceHistory history(this);
    if (history.DisplayProduct(item->text(0), item->text(1))) TheUi().ShowModal(&history);
}
