#include "lists/frmShoppingList.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmAvailableCoupons.h"
#include "coupons/frmNewCoupon.h"
#include "lists/clsShopList.h"
#include "lists/frmShoplistRecipeSearch.h"
#include "lists/frmShoppingListEditCost.h"
#include "lists/frmShoppingListName.h"
#include "lists/frmShoppingListSelect.h"
#include "meals/clsMeal.h"
#include "measures/clsSize.h"
#include "messages/clsMessages.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/clsManufacturer.h"
#include "products/clsProduct.h"
#include "products/frmItemPriceHistory.h"
#include "products/frmProductCostSelect.h"
#include "stores/clsItemCategory.h"
#include "text/modAutoComplete.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The hourglass for the length of one piece of work; a question asked on the
// way gets the ordinary pointer back while it waits for the answer.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

int AskWithPointer(const QString& prompt, int buttons, const QString& title) {
    const bool waiting = QApplication::overrideCursor() != nullptr;
    if (waiting) QApplication::restoreOverrideCursor();
    const int answer = MsgBox(prompt, buttons, title);
    if (waiting) QApplication::setOverrideCursor(Qt::WaitCursor);
    return answer;
}

int CountOf(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return rs.RecordCount();
}

// A combo's list from the first column of a query, one entry per distinct text.
void FillCombo(QComboBox* combo, const QString& sql, const QStringList& first = {}) {
    const QString typed = combo->currentText();
    QStringList entries = first;
    QSet<QString> seen;
    for (const QString& e : first) seen.insert(e.toCaseFolded());
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const QString text = TextOf(rs.Field(0)).trimmed();
        if (text.isEmpty() || seen.contains(text.toCaseFolded())) continue;
        seen.insert(text.toCaseFolded());
        entries << text;
    }
    const QSignalBlocker quiet(combo);
    combo->clear();
    combo->addItems(entries);
    combo->setEditText(typed);
}

// Adds a word the person typed to a combo's list, once.
void Remember(QComboBox* combo, const QString& text) {
    if (text.isEmpty() || combo->findText(text, Qt::MatchFixedString) >= 0) return;
    const QString typed = combo->currentText();
    const QSignalBlocker quiet(combo);
    combo->addItem(text);
    combo->setEditText(typed);
}

QString WithoutDollar(const QString& cost) {
    const QString t = cost.trimmed();
    return t.startsWith(QLatin1Char('$')) ? t.mid(1).trimmed() : t;
}

// A typed cost as an amount; nothing when it is not one (or too big to be one).
std::optional<Currency> CostOf(const QString& text) {
    try {
        return clsProduct::CostFromText(text);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

// Two cost texts name the same amount ("2.5" and "2.50").
bool SameCost(const QString& a, const QString& b) {
    const auto x = CostOf(a), y = CostOf(b);
    if (x && y) return *x == *y;
    return a == b;
}

// The database's LIKE folds only the letters A to Z.
QString AsciiFolded(const QString& text) {
    QString out = text;
    for (QChar& c : out)
        if (c.unicode() >= 'A' && c.unicode() <= 'Z') c = QChar(c.unicode() + ('a' - 'A'));
    return out;
}

// The coupons as a save matches its lines against them: the three columns the
// reservation compares, folded once, so that 300 lines cost one read of the
// table rather than 300 scans of it.
struct CouponKeys {
    qint32 id;
    QString manufacturer, product, size;  // folded; a Null column never matches
    bool nullManufacturer, nullProduct, nullSize;
};

QList<CouponKeys> ReadCouponKeys() {
    QList<CouponKeys> keys;
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ID],[Manufacturer],[Product],[Size] FROM Coupons"), ConnectionMain(),
            adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const QVariant m = rs.Field(QStringLiteral("Manufacturer")), p = rs.Field(QStringLiteral("Product")),
                       s = rs.Field(QStringLiteral("Size"));
        keys << CouponKeys{CLng(rs.Field(QStringLiteral("ID"))),
                           AsciiFolded(TextOf(m)),
                           AsciiFolded(TextOf(p)),
                           AsciiFolded(TextOf(s)),
                           IsNull(m),
                           IsNull(p),
                           IsNull(s)};
    }
    return keys;
}

// "LIKE '%text%'" for a text without the pattern's own wildcards.
bool HasWildcard(const QString& text) { return text.contains(QLatin1Char('%')) || text.contains(QLatin1Char('_')); }

QString DateShown(const QString& stored) {
    if (stored.isEmpty() || stored == QLatin1String("None")) return QString();
    return IsDate(QVariant(stored)) ? Format(QVariant(stored), Registry().DateDisplayFormat()) : stored;
}

}  // namespace

frmShoppingList::frmShoppingList(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingList"));
    setWindowTitle(QStringLiteral("Shopping List"));
    setSizeGripEnabled(true);

    BuildToolbar();
    BuildInputs();

    fraStore = new QGroupBox(QStringLiteral("Store"), this);
    fraStore->setObjectName(QStringLiteral("fraStore"));
    cboStore = new QComboBox(fraStore);
    cboStore->setObjectName(QStringLiteral("cboStore"));
    cboStore->setEditable(true);
    cboStore->setInsertPolicy(QComboBox::NoInsert);
    cboStore->setMinimumWidth(180);
    cboStore->lineEdit()->setPlaceholderText(QStringLiteral("A store for the whole list"));
    cmdStoreAction = new QPushButton(QStringLiteral("Set"), fraStore);
    cmdStoreAction->setObjectName(QStringLiteral("cmdStoreAction"));
    cmdStoreAction->setToolTip(QStringLiteral("Every line without a store of its own goes to this store"));
    cmdClearStore = new QPushButton(QStringLiteral("Clear"), fraStore);
    cmdClearStore->setObjectName(QStringLiteral("cmdClearStore"));
    auto* storeRow = new QHBoxLayout(fraStore);
    storeRow->addWidget(cboStore, 1);
    storeRow->addWidget(cmdStoreAction);
    storeRow->addWidget(cmdClearStore);

    fraImportMeal = new QGroupBox(QStringLiteral("Import Meal"), this);
    fraImportMeal->setObjectName(QStringLiteral("fraImportMeal"));
    cboMeal = new QComboBox(fraImportMeal);
    cboMeal->setObjectName(QStringLiteral("cboMeal"));
    cboMeal->setMinimumWidth(200);
    cboMeal->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmdImport = new QPushButton(QStringLiteral("Import"), fraImportMeal);
    cmdImport->setObjectName(QStringLiteral("cmdImport"));
    auto* importRow = new QHBoxLayout(fraImportMeal);
    importRow->addWidget(cboMeal, 1);
    importRow->addWidget(cmdImport);

    lvShoppingList = new QTreeWidget(this);
    lvShoppingList->setObjectName(QStringLiteral("lvShoppingList"));
    lvShoppingList->setRootIsDecorated(false);
    lvShoppingList->setUniformRowHeights(true);
    lvShoppingList->setAlternatingRowColors(true);
    lvShoppingList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvShoppingList->setContextMenuPolicy(Qt::CustomContextMenu);
    lvShoppingList->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Manufacturer"),
                                     QStringLiteral("Size"), QStringLiteral("Category"), QStringLiteral("Coupon"),
                                     QString(), QString(), QString()});
    for (int c : {colSpare, colCost, colStore}) lvShoppingList->setColumnHidden(c, true);
    lvShoppingList->headerItem()->setTextAlignment(colQuantity, Qt::AlignCenter);
    lvShoppingList->headerItem()->setTextAlignment(colCoupon, Qt::AlignCenter);
    QHeaderView* header = lvShoppingList->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colItem, QHeaderView::Stretch);
    header->setSectionResizeMode(colCategory, QHeaderView::Stretch);
    lvShoppingList->setColumnWidth(colQuantity, 80);
    lvShoppingList->setColumnWidth(colManufacturer, 150);
    lvShoppingList->setColumnWidth(colSize, 90);
    lvShoppingList->setColumnWidth(colCoupon, 70);
    lvShoppingList->installEventFilter(this);
    BuildPopup();

    sbStatus = new QStatusBar(this);
    sbStatus->setObjectName(QStringLiteral("sbStatus"));
    sbStatus->setSizeGripEnabled(false);
    lblName = new QLabel(sbStatus);
    lblDate = new QLabel(sbStatus);
    lblItems = new QLabel(sbStatus);
    lblStatus = new QLabel(sbStatus);
    lblCost = new QLabel(sbStatus);
    lblName->setObjectName(QStringLiteral("lblName"));
    lblCost->setObjectName(QStringLiteral("lblCost"));
    sbStatus->addWidget(lblName, 3);
    sbStatus->addWidget(lblDate, 2);
    sbStatus->addWidget(lblItems, 1);
    sbStatus->addWidget(lblStatus, 1);
    sbStatus->addWidget(lblCost, 1);

    auto* frames = new QHBoxLayout;
    frames->addWidget(fraStore, 1);
    frames->addWidget(fraImportMeal, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(tbMain);
    layout->addWidget(fraItem);
    layout->addLayout(frames);
    layout->addWidget(lvShoppingList, 1);
    layout->addWidget(sbStatus);
    resize(960, 640);

    for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
    connect(cmdImport, &QPushButton::clicked, this, &frmShoppingList::cmdImport_Click);
    connect(cmdAddItem, &QPushButton::clicked, this, &frmShoppingList::cmdAddItem_Click);
    connect(cmdAddCoupon, &QPushButton::clicked, this, &frmShoppingList::cmdAddCoupon_Click);
    connect(cmdStoreAction, &QPushButton::clicked, this, &frmShoppingList::cmdStoreAction_Click);
    connect(cmdClearStore, &QPushButton::clicked, this, &frmShoppingList::cmdClearStore_Click);
    connect(cboStore, &QComboBox::editTextChanged, this, [this](const QString& text) {
        // A store chosen again brings back the commands a cost choice took away.
        if (!text.trimmed().isEmpty()) cmdStoreAction->setEnabled(true);
    });
    connect(lvShoppingList, &QTreeWidget::itemSelectionChanged, this, &frmShoppingList::RefreshStatus);
    connect(lvShoppingList, &QWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
        if (QTreeWidgetItem* line = lvShoppingList->itemAt(pos)) {
            if (!line->isSelected()) lvShoppingList->setCurrentItem(line);
            mnuPopup->popup(lvShoppingList->viewport()->mapToGlobal(pos));
        }
    });

    // Form_Load
    LoadItems();
    LoadSizes();
    LoadCategories();
    LoadManufacturers();
    LoadStores();
    LoadMeals();
    pendingCoupon_ = QStringLiteral("No");
    RefreshStatus();
}

void frmShoppingList::BuildToolbar() {
    tbMain = new QToolBar(this);
    tbMain->setObjectName(QStringLiteral("tbMain"));
    tbMain->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tbMain->setIconSize(QSize(20, 20));
    QStyle* s = style();
    auto button = [&](const QString& key, const QString& caption, QStyle::StandardPixmap icon, const QString& tip) {
        auto* a = new QAction(s->standardIcon(icon), caption, this);
        a->setObjectName(key);
        a->setToolTip(tip);
        connect(a, &QAction::triggered, this, [this, key] { tbMain_ButtonClick(key); });
        return a;
    };
    // Commands that belong together share one button with a menu.
    auto group = [&](const QString& caption, QStyle::StandardPixmap icon, const QList<QAction*>& actions) {
        auto* menu = new QMenu(this);
        menu->addActions(actions);
        auto* b = new QToolButton(tbMain);
        b->setText(caption);
        b->setIcon(s->standardIcon(icon));
        b->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        b->setPopupMode(QToolButton::InstantPopup);
        b->setMenu(menu);
        tbMain->addWidget(b);
    };
    tbMain->addAction(button(QStringLiteral("OpenList"), QStringLiteral("Open"), QStyle::SP_DialogOpenButton,
                             QStringLiteral("Open a saved list")));
    tbMain->addAction(button(QStringLiteral("SaveList"), QStringLiteral("Save"), QStyle::SP_DialogSaveButton,
                             QStringLiteral("Save this list (Ctrl+S)")));
    Button(QStringLiteral("SaveList"))->setShortcut(QKeySequence::Save);
    addAction(Button(QStringLiteral("SaveList")));
    tbMain->addAction(button(QStringLiteral("SaveListAs"), QStringLiteral("Save As"), QStyle::SP_DialogSaveButton,
                             QStringLiteral("Save this list under another name")));
    group(QStringLiteral("Recurring"), QStyle::SP_BrowserReload,
          {button(QStringLiteral("RecurringOpen"), QStringLiteral("Open Recurring List"), QStyle::SP_DialogOpenButton,
                  QString()),
           button(QStringLiteral("RecurringSave"), QStringLiteral("Save as Recurring List"),
                  QStyle::SP_DialogSaveButton, QString())});
    tbMain->addSeparator();
    tbMain->addAction(button(QStringLiteral("ExpiredInventory"), QStringLiteral("Expired"), QStyle::SP_TrashIcon,
                             QStringLiteral("Add what has run out of the pantry")));
    tbMain->addAction(button(QStringLiteral("LoadRecipe"), QStringLiteral("Recipe"), QStyle::SP_FileIcon,
                             QStringLiteral("Add a recipe's ingredients")));
    group(QStringLiteral("Meals"), QStyle::SP_FileDialogListView,
          {button(QStringLiteral("LoadMeal"), QStringLiteral("All Meals"), QStyle::SP_FileDialogListView, QString()),
           button(QStringLiteral("LoadCheapMeal"), QStringLiteral("Cheap Meals"), QStyle::SP_FileDialogListView,
                  QString()),
           button(QStringLiteral("LoadFavMeal"), QStringLiteral("Favorite Meals"), QStyle::SP_FileDialogListView,
                  QString())});
    tbMain->addAction(button(QStringLiteral("PendingCoupons"), QStringLiteral("Coupons"),
                             QStyle::SP_FileDialogContentsView, QStringLiteral("Pending coupons")));
    tbMain->addSeparator();
    tbMain->addAction(button(QStringLiteral("Remove"), QStringLiteral("Remove"), QStyle::SP_DialogDiscardButton,
                             QStringLiteral("Remove the selected items (Del)")));
    tbMain->addAction(button(QStringLiteral("ClearList"), QStringLiteral("Clear"), QStyle::SP_DialogResetButton,
                             QStringLiteral("Clear the whole list")));
    tbMain->addAction(button(QStringLiteral("Print"), QStringLiteral("Print"), QStyle::SP_FileDialogDetailedView,
                             QStringLiteral("Print the saved list")));
    group(QStringLiteral("View"), QStyle::SP_FileDialogDetailedView,
          {button(QStringLiteral("Report"), QStringLiteral("Details"), QStyle::SP_FileDialogDetailedView, QString()),
           button(QStringLiteral("SmIcon"), QStringLiteral("Small Icons"), QStyle::SP_FileDialogListView, QString()),
           button(QStringLiteral("LgIcon"), QStringLiteral("Large Icons"), QStyle::SP_FileDialogListView, QString()),
           button(QStringLiteral("Ascend"), QStringLiteral("Sort A to Z"), QStyle::SP_ArrowUp, QString()),
           button(QStringLiteral("Decend"), QStringLiteral("Sort Z to A"), QStyle::SP_ArrowDown, QString())});
    auto* spacer = new QWidget(tbMain);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    tbMain->addWidget(spacer);
    tbMain->addAction(button(QStringLiteral("Help"), QStringLiteral("Help"), QStyle::SP_DialogHelpButton, QString()));
    tbMain->addAction(button(QStringLiteral("Close"), QStringLiteral("Close"), QStyle::SP_DialogCloseButton,
                             QStringLiteral("Close the list")));
}

void frmShoppingList::BuildInputs() {
    fraItem = new QGroupBox(QStringLiteral("New Item"), this);
    fraItem->setObjectName(QStringLiteral("fraItem"));
    auto combo = [this](const QString& name, int minWidth) {
        auto* c = new QComboBox(fraItem);
        c->setObjectName(name);
        c->setEditable(true);
        c->setInsertPolicy(QComboBox::NoInsert);
        c->setMaxVisibleItems(20);
        c->setMinimumWidth(minWidth);
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        c->setMinimumContentsLength(6);
        c->lineEdit()->installEventFilter(this);
        return c;
    };
    cboItem = combo(QStringLiteral("cboItem"), 170);
    cboItem->lineEdit()->setPlaceholderText(QStringLiteral("Type or scan an item"));
    // Typing completes through the program's own rule, not the box's.
    cboItem->setCompleter(nullptr);
    txtQuantity = new QLineEdit(fraItem);
    txtQuantity->setObjectName(QStringLiteral("txtQuantity"));
    txtQuantity->setAlignment(Qt::AlignCenter);
    txtQuantity->setMinimumWidth(48);
    txtQuantity->setMaximumWidth(60);
    txtQuantity->setToolTip(QStringLiteral("Up and Down change the quantity; Enter adds the item"));
    txtQuantity->installEventFilter(this);
    cmdQuantityUp = new QToolButton(fraItem);
    cmdQuantityUp->setObjectName(QStringLiteral("UpDown1"));
    cmdQuantityUp->setArrowType(Qt::UpArrow);
    cmdQuantityDown = new QToolButton(fraItem);
    cmdQuantityDown->setArrowType(Qt::DownArrow);
    for (QToolButton* b : {cmdQuantityUp, cmdQuantityDown}) {
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoRepeat(true);
        b->setFixedSize(18, 12);
    }
    connect(cmdQuantityUp, &QToolButton::clicked, this, [this] { StepQuantity(1); });
    connect(cmdQuantityDown, &QToolButton::clicked, this, [this] { StepQuantity(-1); });
    cboManufacturer = combo(QStringLiteral("cboManufacturer"), 120);
    cboSize = combo(QStringLiteral("cboSize"), 90);
    cboItemCategory = combo(QStringLiteral("cboItemCategory"), 130);
    txtCost = new QLineEdit(fraItem);
    txtCost->setObjectName(QStringLiteral("txtCost"));
    txtCost->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    txtCost->setMinimumWidth(72);
    txtCost->setMaximumWidth(90);
    txtCost->setPlaceholderText(QStringLiteral("$0.00"));
    txtCost->installEventFilter(this);
    cmdAddItem = new QPushButton(QStringLiteral("&Add"), fraItem);
    cmdAddItem->setObjectName(QStringLiteral("cmdAddItem"));
    cmdAddItem->setToolTip(QStringLiteral("Add the item to the list (Enter)"));
    cmdAddCoupon = new QPushButton(QStringLiteral("Enter &Coupon"), fraItem);
    cmdAddCoupon->setObjectName(QStringLiteral("cmdAddCoupon"));
    cmdAddCoupon->setToolTip(QStringLiteral("Enter a coupon for the next item added"));

    auto* quantity = new QHBoxLayout;
    quantity->setSpacing(1);
    auto* arrows = new QVBoxLayout;
    arrows->setSpacing(0);
    arrows->addWidget(cmdQuantityUp);
    arrows->addWidget(cmdQuantityDown);
    quantity->addWidget(txtQuantity);
    quantity->addLayout(arrows);

    auto* grid = new QGridLayout(fraItem);
    grid->setVerticalSpacing(2);
    auto label = [&](const QString& text, QWidget* buddy, int column) {
        auto* l = new QLabel(text, fraItem);
        l->setBuddy(buddy);
        grid->addWidget(l, 0, column);
    };
    label(QStringLiteral("&Item"), cboItem, 0);
    label(QStringLiteral("&Quantity"), txtQuantity, 1);
    label(QStringLiteral("&Manufacturer"), cboManufacturer, 2);
    label(QStringLiteral("Si&ze"), cboSize, 3);
    label(QStringLiteral("Ca&tegory"), cboItemCategory, 4);
    label(QStringLiteral("C&ost"), txtCost, 5);
    grid->addWidget(cboItem, 1, 0);
    grid->addLayout(quantity, 1, 1);
    grid->addWidget(cboManufacturer, 1, 2);
    grid->addWidget(cboSize, 1, 3);
    grid->addWidget(cboItemCategory, 1, 4);
    grid->addWidget(txtCost, 1, 5);
    grid->addWidget(cmdAddItem, 1, 6);
    grid->addWidget(cmdAddCoupon, 1, 7);
    grid->setColumnStretch(0, 4);
    grid->setColumnStretch(2, 3);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(4, 3);

    setTabOrder(cboItem, txtQuantity);
    setTabOrder(txtQuantity, cboManufacturer);
    setTabOrder(cboManufacturer, cboSize);
    setTabOrder(cboSize, cboItemCategory);
    setTabOrder(cboItemCategory, txtCost);
    setTabOrder(txtCost, cmdAddItem);
    setTabOrder(cmdAddItem, cmdAddCoupon);

    itemCompleter_ = new ComboCompleter(cboItem, [] { return Registry().ComboAutoComplete(); });
    connect(itemCompleter_, &ComboCompleter::Typed, this, [this] {
        // A new item is being typed: what the boxes hold belongs to the last one.
        bool filled = !txtCost->text().trimmed().isEmpty() || !txtQuantity->text().trimmed().isEmpty();
        for (QComboBox* c : {cboItemCategory, cboManufacturer, cboSize})
            filled = filled || !c->currentText().trimmed().isEmpty();
        if (filled) {
            txtCost->clear();
            txtQuantity->clear();
            for (QComboBox* c : {cboItemCategory, cboManufacturer, cboSize}) c->setEditText(QString());
            checkedQuantity_.clear();
        }
        const QString text = cboItem->currentText();
        if (text.size() != 12 || !IsNumeric(QVariant(text))) return;
        // Twelve digits in the item box come from the scanner.
        Recordset rs;
        const bool found = Trap(QStringLiteral("frmShoppingList.cboItem_Change"), false, [&] {
            rs.Open(QStringLiteral("SELECT * FROM Product WHERE [Barcode] = ") + SqlText(text), ConnectionMain(),
                    adOpenForwardOnly, adLockReadOnly);
            if (rs.IsEOF()) return false;
            const QString size = TextOf(rs.Field(QStringLiteral("Size"))).trimmed();
            cboItem->setEditText(TextOf(rs.Field(QStringLiteral("Name"))));
            cboManufacturer->setEditText(TextOf(rs.Field(QStringLiteral("Manufacturer"))));
            cboSize->setEditText(size.isEmpty() ? QStringLiteral("Any") : size);
            cboItemCategory->setEditText(TextOf(rs.Field(QStringLiteral("Category"))));
            txtCost->setText(Format(rs.Field(QStringLiteral("Cost")), QStringLiteral("$#0.00")));
            // One of the scanned thing, unless the person already said how many.
            if (txtQuantity->text().trimmed().isEmpty()) txtQuantity->setText(QStringLiteral("1"));
            return true;
        });
        if (found) {
            cmdAddItem_Click();
            return;
        }
        MsgBox(QStringLiteral("That Barcode was not recogized. Please either enter or scan it again."),
               Box::Exclamation, QStringLiteral("Unknown Barcode"));
        cboItem->setEditText(QString());
        cboItem->setFocus();
    });
}

void frmShoppingList::BuildPopup() {
    mnuPopup = new QMenu(this);
    auto add = [this](const QString& name, const QString& caption, void (frmShoppingList::*slot)()) {
        QAction* a = mnuPopup->addAction(caption);
        a->setObjectName(name);
        connect(a, &QAction::triggered, this, slot);
    };
    add(QStringLiteral("mnuEditItem"), QStringLiteral("Edit Item"), &frmShoppingList::mnuEditItem_Click);
    add(QStringLiteral("mnuEditItemCost"), QStringLiteral("Edit Item Cost..."), &frmShoppingList::mnuEditItemCost_Click);
    add(QStringLiteral("mnuViewPriceHistory"), QStringLiteral("View Price History"),
        &frmShoppingList::mnuViewPriceHistory_Click);
    mnuPopup->addSeparator();
    add(QStringLiteral("mnuFindCoupon"), QStringLiteral("Find Coupon..."), &frmShoppingList::mnuFindCoupon_Click);
    add(QStringLiteral("mnuReleaseCoupon"), QStringLiteral("Release Coupon"), &frmShoppingList::mnuReleaseCoupon_Click);
    mnuPopup->addSeparator();
    add(QStringLiteral("mnuRemoveItem"), QStringLiteral("Remove Item"), &frmShoppingList::mnuRemoveItem_Click);
    connect(mnuPopup, &QMenu::aboutToShow, this, [this] {
        const QList<QTreeWidgetItem*> selected = lvShoppingList->selectedItems();
        const bool one = selected.size() == 1;
        const bool coupon =
            one && selected.first()->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0;
        Command(QStringLiteral("mnuEditItem"))->setEnabled(one);
        Command(QStringLiteral("mnuEditItemCost"))->setEnabled(one);
        Command(QStringLiteral("mnuViewPriceHistory"))->setEnabled(one);
        Command(QStringLiteral("mnuFindCoupon"))->setEnabled(one);
        Command(QStringLiteral("mnuReleaseCoupon"))->setEnabled(coupon);
        Command(QStringLiteral("mnuRemoveItem"))->setEnabled(!selected.isEmpty());
    });
}

QAction* frmShoppingList::Button(const QString& key) const { return findChild<QAction*>(key); }

QAction* frmShoppingList::Command(const QString& name) const { return mnuPopup->findChild<QAction*>(name); }

void frmShoppingList::CurrentListName(const QString& name) {
    currentListName_ = name;
    RefreshStatus();
}

void frmShoppingList::CurrentListDate(const QString& date) {
    currentListDate_ = date;
    RefreshStatus();
}

// ---------------------------------------------------------------------------
// Toolbar

void frmShoppingList::tbMain_ButtonClick(const QString& key) {
    if (key == QLatin1String("Close")) {
        CloseChecked();
    } else if (key == QLatin1String("OpenList")) {
        OpenList(false);
    } else if (key == QLatin1String("SaveList")) {
        SaveList(false);
    } else if (key == QLatin1String("SaveListAs")) {
        if (lvShoppingList->topLevelItemCount() == 0) {
            MsgBox(QStringLiteral("There is nothing on the list to save."), Box::Information);
            return;
        }
        if (AskName()) SaveList(false);
    } else if (key == QLatin1String("RecurringOpen")) {
        OpenList(true);
    } else if (key == QLatin1String("RecurringSave")) {
        if (!recurringName_.isEmpty() &&
            MsgBox(QStringLiteral(
                       "This List was previously save as a Recurring List. Save it again as a Recurring List?"),
                   Box::YesNo + Box::Question, QStringLiteral("Save As Recurring")) != Answer::Yes)
            return;
        SaveList(true);
    } else if (key == QLatin1String("ExpiredInventory")) {
        LoadShopList(QStringLiteral("Expired"));
    } else if (key == QLatin1String("LoadRecipe")) {
        PickAndLoadRecipe();
    } else if (key == QLatin1String("PendingCoupons")) {
        MsgBox(QStringLiteral("PendingCoupons is still in progress!"), Box::Information, QStringLiteral("Coming Soon"));
    } else if (key == QLatin1String("Ascend")) {
        lvShoppingList->sortItems(colItem, Qt::AscendingOrder);
    } else if (key == QLatin1String("Decend")) {
        lvShoppingList->sortItems(colItem, Qt::DescendingOrder);
    } else if (key == QLatin1String("Remove")) {
        const QList<QTreeWidgetItem*> selected = lvShoppingList->selectedItems();
        if (selected.isEmpty()) return;
        if (MsgBox(QStringLiteral("Are you sure you want to remove these Item(s)?"), Box::YesNo + Box::Question,
                   QStringLiteral("Remove Item")) != Answer::Yes)
            return;
        RemoveLines(selected, false);
    } else if (key == QLatin1String("ClearList")) {
        ClearList();
    } else if (key == QLatin1String("Report") || key == QLatin1String("LgIcon") || key == QLatin1String("SmIcon")) {
        ShowStyle(key);
    } else if (key == QLatin1String("Print")) {
        if (changed_ || !saved_) {
            if (MsgBox(QStringLiteral("The Current List will first have to be saved, Save it now?"),
                       Box::YesNo + Box::Question, QStringLiteral("Save List")) != Answer::Yes)
                return;
            if (!SaveList(false)) return;
        }
        TempListPrint();
    } else if (key == QLatin1String("LoadMeal")) {
        LoadMeals(AllMeals);
    } else if (key == QLatin1String("LoadCheapMeal")) {
        LoadMeals(CheapMeals);
    } else if (key == QLatin1String("LoadFavMeal")) {
        LoadMeals(FavoriteMeals);
    } else if (key == QLatin1String("Help")) {
        MsgBox(QStringLiteral("Type an item, its quantity, manufacturer and size, and press Enter to add it. "
                              "Right-click a line for its commands. Nothing is kept until the list is saved."),
               Box::Information, QStringLiteral("Shopping List"));
    }
}

void frmShoppingList::ShowStyle(const QString& key) {
    // The details show every column; the icon styles show the items alone.
    const bool details = key == QLatin1String("Report");
    for (int c = colQuantity; c <= colCoupon; ++c) lvShoppingList->setColumnHidden(c, !details);
    lvShoppingList->setHeaderHidden(!details);
    const int side = key == QLatin1String("LgIcon") ? 32 : 16;
    lvShoppingList->setIconSize(QSize(side, side));
}

void frmShoppingList::OpenList(bool recurringOnly) {
    const QString name = frmShoppingListSelect::GetListName(this, recurringOnly);
    if (!name.isEmpty()) LoadShopList(name);
}

bool frmShoppingList::AskName() {
    QString name = currentListName_;
    QString date = currentListDate_;
    if (!frmShoppingListName::GetName(name, date, this)) return false;
    // A name that another list already has would throw that list's rows
    // away, so the person says so first.
    if (name.compare(currentListName_, Qt::CaseInsensitive) != 0) {
        const bool taken = Trap(QStringLiteral("frmShoppingList.SaveList"), true, [&] {
            return CountOf(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name)) > 0;
        });
        if (taken && MsgBox(QStringLiteral("The Shopping List ") + name +
                                QStringLiteral(" already exists. Do you want to replace it?"),
                            Box::YesNo + Box::Question + Box::DefaultButton2,
                            QStringLiteral("Replace List")) != Answer::Yes)
            return false;
        // Under a new name the list has not been saved yet.
        saved_ = false;
    }
    currentListName_ = name;
    currentListDate_ = date;
    RefreshStatus();
    return true;
}

void frmShoppingList::PickAndLoadRecipe() {
    const QString title = frmShoplistRecipeSearch::GetRecipe(this);
    if (title.isEmpty()) return;
    LoadRecipe(title);
}

// ---------------------------------------------------------------------------
// Combos

void frmShoppingList::LoadItems() {
    Trap(QStringLiteral("frmShoppingList.LoadItems"), [&] {
        // The words the item box completes to: the catalogue and what lists
        // have held, in one alphabetical list.
        FillCombo(cboItem,
                  QStringLiteral("SELECT [Name] FROM Product UNION SELECT [ItemName] FROM ShopList ORDER BY 1"));
    });
}

void frmShoppingList::LoadSizes() {
    Trap(QStringLiteral("frmShoppingList.LoadSizes"), [&] {
        FillCombo(cboSize, QStringLiteral("SELECT [Name] FROM ItemSize ORDER BY [Name]"), {QStringLiteral("Any")});
    });
}

void frmShoppingList::LoadCategories() {
    Trap(QStringLiteral("frmShoppingList.LoadCategories"), [&] {
        FillCombo(cboItemCategory, QStringLiteral("SELECT [Name] FROM ItemCategory ORDER BY [Name]"));
    });
}

void frmShoppingList::LoadManufacturers() {
    Trap(QStringLiteral("frmShoppingList.LoadManufacturers"), [&] {
        FillCombo(cboManufacturer, QStringLiteral("SELECT [Name] FROM Manufacturer ORDER BY [Name]"),
                  {QStringLiteral("Any")});
    });
}

void frmShoppingList::LoadStores() {
    Trap(QStringLiteral("frmShoppingList.LoadStores"),
         [&] { FillCombo(cboStore, QStringLiteral("SELECT [Name] FROM Store ORDER BY [Name]")); });
}

void frmShoppingList::LoadMeals(int kind) {
    cboMeal->clear();
    Trap(QStringLiteral("frmShoppingList.LoadMeals"), [&] {
        QString sql = QStringLiteral("SELECT DISTINCT [Name] FROM Meal");
        if (kind == CheapMeals) sql += QStringLiteral(" WHERE [Cheap] = True");
        if (kind == FavoriteMeals) sql += QStringLiteral(" WHERE [Favorite] = True");
        Recordset rs;
        rs.Open(sql + QStringLiteral(" ORDER BY [Name]"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) cboMeal->addItem(TextOf(rs.Field(QStringLiteral("Name"))));
    });
    cmdImport->setEnabled(cboMeal->count() > 0);
}

// ---------------------------------------------------------------------------
// Meals and recipes

void frmShoppingList::cmdImport_Click() {
    const QString meal = cboMeal->currentText();
    WaitCursor hourglass;
    Trap(QStringLiteral("frmShoppingList.cmdImport"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [Name] = ") + SqlText(meal), ConnectionMain(), adOpenKeyset,
                adLockOptimistic);
        if (rs.IsEOF()) {
            AskWithPointer(meal + QStringLiteral(" is not a Meal in the database."), Box::Information, QString());
            return;
        }
        // Only the meal's first row is imported, in this order of courses,
        // which is the order of the lines.
        QStringList titles;
        for (const char* course : {"Appetizer", "MainCourse", "Desert", "SideDishOne", "SideDishTwo", "SideDishThree"})
            titles << TextOf(rs.Field(QString::fromLatin1(course)));
        rs.Close();
        importingMeal_ = meal;
        for (const QString& title : titles) LoadRecipe(title);
        importingMeal_.clear();
    });
    importingMeal_.clear();
}

void frmShoppingList::AddRecipe(const QString& title) { LoadRecipe(title); }

void frmShoppingList::LoadRecipe(const QString& title) {
    if (title.trimmed().isEmpty()) return;
    TrapTail(QStringLiteral(" occurred in Shoplist.LoadRecipe."), true, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie where [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        // Only a meal can lose the title; a recipe asked for by itself that is
        // gone simply adds nothing.
        if (rs.IsEOF() && !importingMeal_.isEmpty()) {
            Response = AskWithPointer(
                title + QStringLiteral(" was not found in any Cookbook do you want to remove if from this Meal?"),
                Box::YesNo + Box::Question, QStringLiteral("Missing Recipe"));
            if (Response == Answer::Yes) clsMeal().RemoveRecipe(importingMeal_, title);
        }
        for (; !rs.IsEOF(); rs.MoveNext()) {
            for (int i = 1; i <= 18; ++i) {
                const QString packed = TextOf(rs.Field(QStringLiteral("Ingredient") + QString::number(i)));
                if (packed.isEmpty()) continue;
                // Lines are not merged here; like items join when the list is saved.
                const Split parts(packed, QStringLiteral("%%"));
                AddLine({parts[2], parts[0], QStringLiteral("Any"), parts[1], QStringLiteral("For ") + title,
                         QStringLiteral("No"), QString(), QString(), QString()},
                        QString());
            }
        }
        SetChanged(true);
        return true;
    });
    RefreshStatus();
}

// ---------------------------------------------------------------------------
// Adding an item

QTreeWidgetItem* frmShoppingList::AddLine(const QStringList& cells, const QString& tag) {
    auto* line = new QTreeWidgetItem(cells);
    line->setTextAlignment(colQuantity, Qt::AlignCenter);
    line->setTextAlignment(colCoupon, Qt::AlignCenter);
    const bool coupon = line->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0;
    line->setIcon(colItem, PaneIcon(coupon ? QStringLiteral("Coupon") : QStringLiteral("Item")));
    line->setData(colItem, TagRole, tag);
    lvShoppingList->addTopLevelItem(line);
    return line;
}

void frmShoppingList::StepQuantity(int step) {
    double value = 0;
    try {
        value = Val(txtQuantity->text());
    } catch (const std::exception&) {
        return;
    }
    txtQuantity->setText(CStr(QVariant(value + step)).trimmed());
    txtQuantity->setFocus();
}

bool frmShoppingList::txtQuantity_Validate() {
    const QString text = txtQuantity->text().trimmed();
    if (text.isEmpty() || text == checkedQuantity_) return true;
    if (!IsNumeric(QVariant(text))) {
        MsgBox(QStringLiteral("This must be a numeric value."), Box::Exclamation);
        txtQuantity->setFocus();
        txtQuantity->selectAll();
        return false;
    }
    if (CDbl(QVariant(text)) > 10 &&
        MsgBox(QStringLiteral("This is a large quantity for a single item, Is this correct?"),
               Box::OKCancel + Box::Question, QStringLiteral("Large Quantity")) == Answer::Cancel) {
        txtQuantity->clear();
        txtQuantity->setFocus();
        return false;
    }
    checkedQuantity_ = text;
    return true;
}

bool frmShoppingList::txtCost_Validate() {
    const QString text = txtCost->text().trimmed();
    if (text.isEmpty() || CostOf(text)) return true;
    MsgBox(QStringLiteral("This must be a numeric value."), Box::Exclamation);
    txtCost->setFocus();
    txtCost->selectAll();
    return false;
}

void frmShoppingList::cboItem_Change(int key) { itemCompleter_->Changed(key); }

void frmShoppingList::cboItem_Validate() {
    if (!Registry().FormAutoComplete()) return;
    const QString item = cboItem->currentText().trimmed();
    if (item.isEmpty()) return;
    TrapTail(QStringLiteral(" (Occurring in frmShoppingList.cboItem_Validate)"), true, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Product WHERE [Name] = ") + SqlText(item), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        if (rs.IsEOF()) return true;
        // Only empty boxes are filled, so coming back to the item box never
        // undoes what the person chose since.
        auto fill = [](QComboBox* box, const QString& text) {
            if (box->currentText().trimmed().isEmpty()) box->setEditText(text);
        };
        fill(cboItemCategory, TextOf(rs.Field(QStringLiteral("Category"))));
        fill(cboSize, TextOf(rs.Field(QStringLiteral("Size"))));
        fill(cboManufacturer, TextOf(rs.Field(QStringLiteral("Manufacturer"))));
        if (txtQuantity->text().trimmed().isEmpty()) {
            const QString usual = TextOf(rs.Field(QStringLiteral("lastpurchasedquantity"))).trimmed();
            txtQuantity->setText(usual.isEmpty() || Val(usual) <= 0 ? QStringLiteral("1") : usual);
        }
        if (txtCost->text().trimmed().isEmpty())
            txtCost->setText(Format(rs.Field(QStringLiteral("Cost")), QStringLiteral("$#0.00")));
        return true;
    });
}

void frmShoppingList::cmdAddItem_Click() {
    // The scanner's add can arrive while a question of the last add is open.
    if (adding_) return;
    adding_ = true;
    struct Done {
        bool& flag;
        ~Done() { flag = false; }
    } done{adding_};

    QString item = cboItem->currentText().trimmed();
    QString manufacturer = cboManufacturer->currentText().trimmed();
    QString size = cboSize->currentText().trimmed();
    QString quantity = txtQuantity->text().trimmed();
    const QString category = cboItemCategory->currentText().trimmed();
    const QString cost = WithoutDollar(txtCost->text());
    auto stop = [](QWidget* box, const QString& text) {
        MsgBox(text, Box::Exclamation);
        box->setFocus();
    };
    if (item.isEmpty()) return stop(cboItem, QStringLiteral("You must enter an Item before Adding this item."));
    if (manufacturer.isEmpty())
        return stop(cboManufacturer, QStringLiteral("You must enter a Manufacturer before Adding this item."));
    if (size.isEmpty()) return stop(cboSize, QStringLiteral("You must enter a Size before Adding this item."));
    if (quantity.isEmpty())
        return stop(txtQuantity, QStringLiteral("You must enter a Quantity before Adding this item."));
    // What Enter brings straight from a box is checked as leaving it would.
    if (!txtQuantity_Validate() || !txtCost_Validate()) return;
    quantity = txtQuantity->text().trimmed();
    if (quantity.isEmpty()) return;

    Trap(QStringLiteral("frmShoppingList.cmdAddItem_Click"), [&] {
        // Inventory.
        clsProduct product;
        product.Name(item);
        product.Manufacturer(manufacturer);
        product.Size(size);
        if (product.HasPossibleInventory() &&
            MsgBox(size + QStringLiteral(" ") + manufacturer + QStringLiteral("'s ") + item +
                       QStringLiteral(" may still have Inventory. Do you want to continue?"),
                   Box::YesNo + Box::Question, QStringLiteral("Continue?")) == Answer::No) {
            cboItem->setFocus();
            return;
        }

        // A cheaper store.
        QString lineStore;
        if (Registry().CheckLowerCost() && Registry().ShowCostAlternative() && product.MultiplePricePoints(item)) {
            // One price screen serves the editor's whole session.
            if (!costSelect_) costSelect_ = new frmProductCostSelect(this);
            const QString chosen = costSelect_->GetLowCostStore(item);
            if (!chosen.isEmpty()) {
                lineStore = Split(chosen, QStringLiteral("::"))[0];
                if (!listStore_.isEmpty() && lineStore.compare(listStore_, Qt::CaseInsensitive) != 0) {
                    if (MsgBox(QStringLiteral("You have choosen a Store for ") + item +
                                   QStringLiteral(" for cost reasons which is different than the choosen Store for "
                                                  "the entire List. Do you wish to disable the Store for this List?"),
                               Box::YesNo + Box::Question, QStringLiteral("Cancel List Store")) == Answer::Yes) {
                        cmdClearStore_Click();
                        cboStore->setEditText(QString());
                        cmdStoreAction->setEnabled(false);
                        cmdClearStore->setEnabled(false);
                    } else {
                        lineStore.clear();
                    }
                }
            }
        }

        // Coupons.
        QString tag = pendingTag_;
        {
            clsCoupon coupon;
            int code = 5;
            try {
                code = coupon.Exists(manufacturer, item, size);
            } catch (const std::exception& e) {
                // A coupon for the product alone cannot be read back; the item
                // still goes on the list, without it.
                ReportError(e, QStringLiteral("frmShoppingList.cmdAddItem_Click"));
            }
            if (code == 1) {
                if (MsgBox(QStringLiteral("A exact Coupon match was found for this Item. Do you want to use this "
                                          "Coupon?"),
                           Box::YesNo + Box::Question, QStringLiteral("Coupon Found")) == Answer::Yes) {
                    pendingCoupon_ = QStringLiteral("Yes");
                    tag = QString::number(FoundCouponID);
                } else {
                    pendingCoupon_ = QStringLiteral("No");
                    FoundCouponID = 0;
                }
            } else if (code != 5) {
                coupon.GetExistingCouponResponse();
                if (FoundCouponID != 0) {
                    SetListCurrentCoupon(FoundCouponID);
                    tag = QString::number(FoundCouponID);
                    item = cboItem->currentText().trimmed();
                    manufacturer = cboManufacturer->currentText().trimmed();
                    size = cboSize->currentText().trimmed();
                    quantity = txtQuantity->text().trimmed();
                }
            }
        }

        // The line.
        if (!LineMerge(item, manufacturer, size, quantity, cost)) {
            AddLine({item, quantity, manufacturer, size.isEmpty() ? QStringLiteral("Any") : size,
                     category.isEmpty() ? QStringLiteral("None") : category, pendingCoupon_, QString(), cost,
                     lineStore},
                    pendingCoupon_ == QLatin1String("Yes") ? tag : QString());
        }
        SetChanged(true);

        // The cost is remembered for the product.
        if (!cost.isEmpty()) {
            const Currency amount = CostOf(cost).value_or(Currency());
            clsProduct known;
            const Currency stored = known.CostInfo(item, manufacturer, size);
            if (!known.Exists(item, manufacturer, size))
                known.WriteNew(manufacturer, item, category.isEmpty() ? QStringLiteral("None") : category, size, false,
                               false, amount, QStringLiteral("0"));
            else if (stored != amount)
                known.ChangeCost(item, manufacturer, size, amount);
        }

        // New words.
        if (size != QLatin1String("Any") && !clsSize().Exists(size)) {
            clsSize().WriteNew(size, QString());
            Remember(cboSize, size);
        }
        if (!category.isEmpty() && !clsItemCategory().Exists(category)) {
            clsItemCategory().WriteNew(category);
            Remember(cboItemCategory, category);
        }
        Remember(cboItem, item);
        Remember(cboManufacturer, manufacturer);
        ClearInputs();
    });
    RefreshStatus();
}

bool frmShoppingList::LineMerge(const QString& item, const QString& manufacturer, const QString& size,
                                const QString& quantity, const QString& cost) {
    const QString newCost = WithoutDollar(cost);
    for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
        QTreeWidgetItem* line = lvShoppingList->topLevelItem(i);
        if (line->text(colItem) != item || line->text(colManufacturer) != manufacturer || line->text(colSize) != size)
            continue;
        const QString oldCost = line->text(colCost);
        // Only a cost that was given can replace the line's.
        if (!newCost.isEmpty() && !SameCost(oldCost, newCost) &&
            MsgBox(manufacturer + QStringLiteral("'s ") + item +
                       QStringLiteral(" already exists on this List but at a different Cost. The existing cost is ") +
                       oldCost + QStringLiteral(" and the new cost is ") + newCost +
                       QStringLiteral(". Would you like to use the new cost?"),
                   Box::YesNo + Box::Question, QStringLiteral("Choose Cost")) == Answer::Yes)
            line->setText(colCost, newCost);
        line->setText(colQuantity, CStr(QVariant(Val(line->text(colQuantity)) + Val(quantity))));
        lvShoppingList->scrollToItem(line);
        return true;
    }
    return false;
}

void frmShoppingList::SetListCurrentCoupon(qint32 couponID) {
    Trap(QStringLiteral("frmShopList.SetListCurrentCoupon"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [ID] =") + QString::number(couponID), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        if (rs.IsEOF()) return;
        cboItem->setEditText(TextOf(rs.Field(QStringLiteral("product"))));
        txtQuantity->setText(TextOf(rs.Field(QStringLiteral("Quantity"))));
        cboManufacturer->setEditText(TextOf(rs.Field(QStringLiteral("Manufacturer"))));
        cboSize->setEditText(TextOf(rs.Field(QStringLiteral("Size"))));
        pendingCoupon_ = QStringLiteral("Yes");
    });
}

void frmShoppingList::ClearInputs() {
    cboItem->setEditText(QString());
    txtQuantity->clear();
    cboManufacturer->setEditText(QString());
    cboSize->setEditText(QString());
    cboItemCategory->setEditText(QString());
    txtCost->clear();
    checkedQuantity_.clear();
    pendingCoupon_ = QStringLiteral("No");
    pendingTag_.clear();
    cmdAddCoupon->setText(QStringLiteral("Enter &Coupon"));
    cboItem->setFocus();
}

void frmShoppingList::cmdAddCoupon_Click() {
    frmNewCoupon entry(this);
    TheUi().ShowModal(&entry);
    if (entry.SavedCount() <= 0) return;
    pendingCoupon_ = QStringLiteral("Yes");
    // The button says the next item takes the coupon.
    cmdAddCoupon->setText(QStringLiteral("Coupon: Yes"));
    cboItem->setFocus();
}

// ---------------------------------------------------------------------------
// The list-wide store

bool frmShoppingList::IsOtherStoreBrand(const QString& manufacturer, const QString& store) {
    // "Any" is no maker at all, whatever a store happens to be called.
    if (manufacturer.isEmpty() || manufacturer == QLatin1String("Any")) return false;
    if (manufacturer.compare(store, Qt::CaseInsensitive) == 0) return false;
    return clsManufacturer().rsManufacturer(manufacturer);
}

void frmShoppingList::cmdStoreAction_Click() {
    const QString store = cboStore->currentText().trimmed();
    if (store.isEmpty()) {
        cboStore->setFocus();
        return;
    }
    QSet<QString> asked;
    for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
        const QString maker = lvShoppingList->topLevelItem(i)->text(colManufacturer);
        if (asked.contains(maker)) continue;
        asked.insert(maker);
        if (!IsOtherStoreBrand(maker, store)) continue;
        if (MsgBox(QStringLiteral("There are items already on this list that appear to be Store brands but not for "
                                  "this Store. Would you still like to set this Lists Store to ") +
                       store + QStringLiteral("?"),
                   Box::YesNo + Box::Question, QStringLiteral("Set Store")) == Answer::No)
            return;
        break;
    }
    listStore_ = store;
    fraStore->setTitle(QStringLiteral("Store-") + store);
    cmdClearStore->setEnabled(true);
    if (lvShoppingList->topLevelItemCount() > 0) SetChanged(true);
}

void frmShoppingList::cmdClearStore_Click() {
    fraStore->setTitle(QStringLiteral("Store"));
    if (!listStore_.isEmpty() && lvShoppingList->topLevelItemCount() > 0) SetChanged(true);
    listStore_.clear();
}

// ---------------------------------------------------------------------------
// Loading and saving

void frmShoppingList::LoadShopList(const QString& name) {
    const bool hadLines = lvShoppingList->topLevelItemCount() > 0;
    bool appending = false;
    if (hadLines) {
        const int answer =
            MsgBox(QStringLiteral("This List already contains Items, Do you wish to clear the current list?"),
                   Box::YesNoCancel + Box::Question, QStringLiteral("Clear List"));
        if (answer == Answer::Cancel) return;
        if (answer == Answer::Yes) {
            if (saved_ && !currentListName_.isEmpty() &&
                MsgBox(QStringLiteral("This List has already been saved, Do you wish to delete it?"),
                       Box::YesNo + Box::Question, QStringLiteral("Delete List")) == Answer::Yes) {
                clsShopList().ClearPreviousList(currentListName_);
                Notices().ShoppingListChanged();
            }
            lvShoppingList->clear();
            saved_ = false;
        } else {
            appending = true;
        }
    }
    appendExistingList_ = appending;

    if (name == QLatin1String("Expired")) {
        int added = 0;
        Trap(QStringLiteral("frmShopList.LoadShopList"), [&] {
            // What the pantry has used up: the list the start-up check fills, and
            // the products whose days ran out since.
            QSet<QString> seen;
            auto key = [](const QString& a, const QString& b, const QString& c) {
                return (a + QChar(0x1f) + b + QChar(0x1f) + c).toCaseFolded();
            };
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM Shoplist WHERE [Name] = 'Expired'"), ConnectionMain(),
                    adOpenForwardOnly, adLockReadOnly);
            for (; !rs.IsEOF(); rs.MoveNext()) {
                const QString item = TextOf(rs.Field(QStringLiteral("ItemName")));
                const QString maker = TextOf(rs.Field(QStringLiteral("ItemManufacturer")));
                const QString size = TextOf(rs.Field(QStringLiteral("ItemSize")));
                seen.insert(key(item, maker, size));
                AddLine({item, TextOf(rs.Field(QStringLiteral("ItemQuantity"))), maker, size,
                         TextOf(rs.Field(QStringLiteral("ItemStyle"))), QStringLiteral("No"), QString(),
                         TextOf(rs.Field(QStringLiteral("ItemCost"))), QString()},
                        QString());
                ++added;
            }
            const qint16 days = Registry().InventoryDays();
            const QDateTime today(Clock::Today(), QTime());
            rs.Open(QStringLiteral("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50# ORDER BY [Name]"),
                    ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            for (; !rs.IsEOF(); rs.MoveNext()) {
                const QVariant bought = rs.Field(QStringLiteral("LastPurchasedDate"));
                if (!IsDate(bought)) continue;
                if (DateDiff(QStringLiteral("d"), CDate(bought).addDays(days), today) <= 1) continue;
                const QString item = TextOf(rs.Field(QStringLiteral("Name")));
                const QString maker = TextOf(rs.Field(QStringLiteral("Manufacturer")));
                const QString size = TextOf(rs.Field(QStringLiteral("Size")));
                if (seen.contains(key(item, maker, size))) continue;
                seen.insert(key(item, maker, size));
                const QString last = TextOf(rs.Field(QStringLiteral("lastpurchasedquantity")));
                const QString category = TextOf(rs.Field(QStringLiteral("Category")));
                AddLine({item, Val(last) > 0 ? last : QStringLiteral("1"), maker, size,
                         category.isEmpty() ? QStringLiteral("None") : category, QStringLiteral("No"), QString(),
                         TextOf(rs.Field(QStringLiteral("Cost"))), QString()},
                        QString());
                ++added;
            }
        });
        if (added == 0)
            MsgBox(QStringLiteral("There are no Expired Items to add to List."), Box::Information,
                   QStringLiteral("Notice"));
        else
            SetChanged(true);
        RefreshStatus();
        return;
    }

    Trap(QStringLiteral("frmShopList.LoadShopList"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Shoplist WHERE [Name] = ") + SqlText(name), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        QString dates, recurring;
        QList<QTreeWidgetItem*> lines;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QVariant coupon = rs.Field(QStringLiteral("Coupon"));
            const QString store = TextOf(rs.Field(QStringLiteral("Store")));
            auto* line = new QTreeWidgetItem(
                {TextOf(rs.Field(QStringLiteral("ItemName"))), TextOf(rs.Field(QStringLiteral("ItemQuantity"))),
                 TextOf(rs.Field(QStringLiteral("ItemManufacturer"))), TextOf(rs.Field(QStringLiteral("ItemSize"))),
                 TextOf(rs.Field(QStringLiteral("ItemStyle"))),
                 !IsNull(coupon) && CBool(coupon) ? QStringLiteral("Yes") : QStringLiteral("No"), QString(),
                 TextOf(rs.Field(QStringLiteral("ItemCost"))),
                 // A row's own store comes back with it, so saving again keeps it.
                 store == QLatin1String("Any") || store.trimmed().isEmpty() ? QString() : store});
            line->setData(colItem, TagRole, TextOf(rs.Field(QStringLiteral("CouponID"))));
            const QString rowDates = TextOf(rs.Field(QStringLiteral("Dates")));
            if (DateShown(dates).isEmpty()) dates = rowDates;
            if (recurring.isEmpty()) recurring = TextOf(rs.Field(QStringLiteral("Recurring"))).trimmed();
            lines << line;
        }
        for (QTreeWidgetItem* line : lines) {
            AddLine({line->text(colItem), line->text(colQuantity), line->text(colManufacturer), line->text(colSize),
                     line->text(colCategory), line->text(colCoupon), QString(), line->text(colCost),
                     line->text(colStore)},
                    line->data(colItem, TagRole).toString() == QLatin1String("0")
                        ? QString()
                        : line->data(colItem, TagRole).toString());
            delete line;
        }
        if (appending && !currentListName_.isEmpty()) {
            SetChanged(true);
            return;
        }
        currentListName_ = name;
        currentListDate_ = DateShown(dates);
        if (!recurring.isEmpty()) recurringName_ = recurring;
        saved_ = !lines.isEmpty();
        SetChanged(appending);
    });
    RefreshStatus();
}

bool frmShoppingList::SaveList(bool asRecurring) {
    // Store brands of other stores.
    if (!listStore_.isEmpty()) {
        QSet<QString> asked;
        for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
            const QString maker = lvShoppingList->topLevelItem(i)->text(colManufacturer);
            if (asked.contains(maker)) continue;
            asked.insert(maker);
            if (!IsOtherStoreBrand(maker, listStore_)) continue;
            if (MsgBox(QStringLiteral("There are items on this list that appear to be Store brands but not for this "
                                      "Store. Would you still like to save this List for Store ") +
                           listStore_ + QStringLiteral("?"),
                       Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Save")) == Answer::No) {
                cboStore->setFocus();
                return false;
            }
            break;
        }
    }
    if (asRecurring && recurringName_.isEmpty()) {
        const QString name =
            InputBox(QStringLiteral("What Name would you like to use to identify this Shopping List once saved?"),
                     QStringLiteral("Title"), currentListName_)
                .trimmed();
        if (name.isEmpty()) {
            MsgBox(QStringLiteral("This Shopping List was not saved."), Box::Information, QStringLiteral("Notice"));
            return false;
        }
        recurringName_ = name;
    }
    if (lvShoppingList->topLevelItemCount() == 0) {
        MsgBox(QStringLiteral("There is nothing on the list to save."), Box::Information);
        return false;
    }
    if (currentListName_.isEmpty()) {
        if (asRecurring) {
            currentListName_ = recurringName_;
        } else if (!AskName()) {
            return false;
        }
    }

    WaitCursor hourglass;
    const bool ok = TrapTail(QStringLiteral(" ocurred in SaveList."), false, [&] {
        const QString name = currentListName_;
        const QString dates = currentListDate_.isEmpty() ? QStringLiteral("None") : currentListDate_;
        // Every line is read and converted before the old rows go, so a line
        // that cannot be stored leaves the saved list as it was.
        struct Row {
            QString store, itemName, quantity, manufacturer, size, style;
            Currency cost;
            qint16 couponID;
            bool coupon;
        };
        QList<Row> rows;
        QString note;
        for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* line = lvShoppingList->topLevelItem(i);
            const QString quantity = line->text(colQuantity);
            const QString store = line->text(colStore);
            rows << Row{store.isEmpty() ? listStore_ : store,
                        line->text(colItem),
                        Val(quantity) > 0 ? quantity : QStringLiteral("1"),
                        line->text(colManufacturer),
                        line->text(colSize),
                        line->text(colCategory),
                        CCur(QStringLiteral("0") + WithoutDollar(line->text(colCost))),
                        CInt(QStringLiteral("0") + line->data(colItem, TagRole).toString()),
                        line->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0};
            note += rows.last().quantity + QStringLiteral(" ") + rows.last().size + QStringLiteral(" ") +
                    rows.last().manufacturer + QStringLiteral(" ") + rows.last().itemName + QStringLiteral("\r\n");
        }
        // A list on the Current list stays there when it is written anew.
        const bool current = CountOf(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name) +
                                     QStringLiteral(" AND [IsCurrent] = True")) > 0;
        {
            // One piece of work: a failure on the way leaves the saved list whole.
            WriteBatch batch(ConnectionMain());
            try {
                clsShopList().ClearPreviousList(name);
                const QString recurring = recurringName_.isEmpty() ? QStringLiteral(" ") : recurringName_;
                for (const Row& row : rows) {
                    clsShopList item;
                    item.Name(name);
                    item.Store(row.store);
                    item.Dates(dates);
                    item.ItemName(row.itemName);
                    item.ItemQuantity(row.quantity);
                    item.ItemManufacturer(row.manufacturer);
                    item.ItemSize(row.size);
                    item.ItemStyle(row.style);
                    item.ItemCost(row.cost);
                    item.CouponID(row.couponID);
                    item.ItemCoupon(row.coupon);
                    item.Recurring(recurring);
                    item.IsCurrent(current);
                    // Like items of one list join here.
                    item.AddItem();
                }
                // The coupons that fit each line are reserved for this list.
                const QList<CouponKeys> coupons = ReadCouponKeys();
                QList<qint32> reserve;
                for (const Row& row : rows) {
                    if (HasWildcard(row.manufacturer) || HasWildcard(row.itemName) || HasWildcard(row.size)) {
                        UpdateCoupons(row.manufacturer, row.itemName, row.size, name);
                        continue;
                    }
                    const QString m = AsciiFolded(row.manufacturer), p = AsciiFolded(row.itemName),
                                  z = AsciiFolded(row.size);
                    for (const CouponKeys& c : coupons)
                        if (!c.nullManufacturer && !c.nullProduct && !c.nullSize && c.product.contains(p) &&
                            c.manufacturer.contains(m) && c.size.contains(z))
                            reserve << c.id;
                }
                TrapTail(QStringLiteral(" ocurred in UpdateCoupons."), true, [&] {
                    for (const qint32 id : reserve) {
                        Recordset rs;
                        rs.Open(QStringLiteral("SELECT [OwnerList] FROM Coupons WHERE [ID] = ") + QString::number(id),
                                ConnectionMain(), adOpenKeyset, adLockOptimistic);
                        if (rs.IsEOF()) continue;
                        rs.setField(QStringLiteral("OwnerList"), name);
                        rs.Update();
                    }
                    return true;
                });
            } catch (...) {
                batch.Cancel();
                throw;
            }
        }
        if (Registry().AddListMessageItem()) {
            const QString title = name.left(50);
            const QString date = currentListDate_.isEmpty() ? QStringLiteral("None") : currentListDate_;
            clsMessages messages;
            if (messages.Exists(title)) {
                messages.Body(note);
                messages.UpdateMessage(title);
                Notices().LoadMessages();
            } else if (messages.WriteNew(title, note, date, 2, 4)) {
                Notices().AddMessage(title, note, date, 2);
            }
        }
        if (current || Registry().CurrentShoppingList().compare(name, Qt::CaseInsensitive) == 0)
            Notices().ShoppingListChanged();
        return true;
    });
    if (!ok) return false;
    saved_ = true;
    SetChanged(false);
    return true;
}

void frmShoppingList::UpdateCoupons(const QString& manufacturer, const QString& item, const QString& size,
                                    const QString& owner) {
    TrapTail(QStringLiteral(" ocurred in UpdateCoupons."), true, [&] {
        auto like = [](const QString& text) {
            QString quoted = text;
            return QStringLiteral("'%") + QuoteSql(quoted) + QStringLiteral("%'");
        };
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [Manufacturer] LIKE ") + like(manufacturer) +
                    QStringLiteral(" AND [Product] LIKE ") + like(item) + QStringLiteral(" AND [Size] LIKE ") +
                    like(size),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            rs.setField(QStringLiteral("OwnerList"), owner);
            rs.Update();
        }
        return true;
    });
}

void frmShoppingList::ClearList() {
    if (lvShoppingList->topLevelItemCount() == 0 && !saved_) return;
    if (MsgBox(QStringLiteral("Are you sure that you want to clear this list?"), Box::YesNo + Box::Question,
               QStringLiteral("Clear List?")) != Answer::Yes)
        return;
    if (saved_ && !currentListName_.isEmpty()) {
        if (MsgBox(QStringLiteral("This list has already been saved. Proceeding will completely remove this list. "
                                  "Do you wish to continue?"),
                   Box::YesNo + Box::Question, QStringLiteral("Delete Saved List?")) != Answer::Yes)
            return;
        Trap(QStringLiteral("frmShoppingList.ClearList"), [&] {
            clsShopList().ClearPreviousList(currentListName_);
            Notices().ShoppingListChanged();
        });
        saved_ = false;
    }
    lvShoppingList->clear();
    SetChanged(false);
}

void frmShoppingList::TempListPrint() {
    Trap(QStringLiteral("frmShoppingList.TempListPrint"), [&] {
        if (CountOf(QStringLiteral("SELECT * FROM ShopList WHERE [Name] = ") + SqlText(currentListName_)) == 0) {
            MsgBox(QStringLiteral("The Shopping List ") + currentListName_ + QStringLiteral(" does not exist."),
                   Box::Information);
            return;
        }
        deLarderkeep::cmShoppingList(currentListName_).Print(this, true);
    });
}

// ---------------------------------------------------------------------------
// Line commands

void frmShoppingList::RemoveLines(const QList<QTreeWidgetItem*>& lines, bool releaseCoupons) {
    for (QTreeWidgetItem* line : lines) {
        if (releaseCoupons &&
            line->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0)
            UpdateCoupons(line->text(colManufacturer), line->text(colItem), line->text(colSize), QString());
        delete line;
    }
    SetChanged(true);
}

void frmShoppingList::mnuRemoveItem_Click() {
    const QList<QTreeWidgetItem*> selected = lvShoppingList->selectedItems();
    if (selected.isEmpty()) return;
    if (MsgBox(QStringLiteral("Are you sure you want to remove these Item(s)?"), Box::YesNo + Box::Question,
               QStringLiteral("Remove Item")) != Answer::Yes)
        return;
    RemoveLines(selected, true);
}

void frmShoppingList::mnuFindCoupon_Click() {
    QTreeWidgetItem* line = lvShoppingList->currentItem();
    if (!line) return;
    frmAvailableCoupons coupons(this);
    if (!coupons.GetProductCoupons(line->text(colManufacturer), line->text(colItem))) return;
    TheUi().ShowModal(&coupons);
    AddSelectCoupons(coupons.PickedCouponIDs());
}

void frmShoppingList::AddSelectCoupons(const QList<qint32>& couponIDs) {
    if (couponIDs.isEmpty()) return;
    Trap(QStringLiteral("frmShoppingList.AddSelectCoupons"), [&] {
        for (const qint32 id : couponIDs) {
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = ") + QString::number(id), ConnectionMain(),
                    adOpenForwardOnly, adLockReadOnly);
            if (rs.IsEOF()) continue;
            const QString item = TextOf(rs.Field(QStringLiteral("product")));
            const QString maker = TextOf(rs.Field(QStringLiteral("Manufacturer")));
            const QString size = TextOf(rs.Field(QStringLiteral("Size")));
            // The line the coupon is for takes it rather than standing twice.
            QTreeWidgetItem* same = nullptr;
            for (int i = 0; i < lvShoppingList->topLevelItemCount() && !same; ++i) {
                QTreeWidgetItem* line = lvShoppingList->topLevelItem(i);
                if (line->text(colItem) == item && line->text(colManufacturer) == maker && line->text(colSize) == size)
                    same = line;
            }
            if (same) {
                same->setText(colCoupon, QStringLiteral("Yes"));
                same->setIcon(colItem, PaneIcon(QStringLiteral("Coupon")));
                same->setData(colItem, TagRole, QString::number(id));
                continue;
            }
            const QString category = TextOf(rs.Field(QStringLiteral("Category")));
            AddLine({item, TextOf(rs.Field(QStringLiteral("Quantity"))), maker, size,
                     category.isEmpty() ? QStringLiteral("None") : category, QStringLiteral("Yes"), QString(),
                     QString(), QString()},
                    QString::number(id));
        }
    });
    SetChanged(true);
}

void frmShoppingList::mnuReleaseCoupon_Click() {
    QTreeWidgetItem* line = lvShoppingList->currentItem();
    if (!line) return;
    UpdateCoupons(line->text(colManufacturer), line->text(colItem), line->text(colSize), QString());
    line->setText(colCoupon, QStringLiteral("No"));
    line->setIcon(colItem, PaneIcon(QStringLiteral("Item")));
    line->setData(colItem, TagRole, QString());
    SetChanged(true);
}

void frmShoppingList::mnuEditItem_Click() {
    QTreeWidgetItem* line = lvShoppingList->currentItem();
    if (!line) return;
    cboItem->setEditText(line->text(colItem));
    txtQuantity->setText(line->text(colQuantity));
    cboManufacturer->setEditText(line->text(colManufacturer));
    cboSize->setEditText(line->text(colSize));
    cboItemCategory->setEditText(line->text(colCategory) == QLatin1String("None") ? QString()
                                                                                  : line->text(colCategory));
    txtCost->setText(line->text(colCost));
    const bool coupon = line->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0;
    pendingCoupon_ = coupon ? QStringLiteral("Yes") : QStringLiteral("No");
    pendingTag_ = coupon ? line->data(colItem, TagRole).toString() : QString();
    if (coupon) cmdAddCoupon->setText(QStringLiteral("Coupon: Yes"));
    checkedQuantity_ = line->text(colQuantity).trimmed();
    delete line;
    SetChanged(true);
    txtQuantity->setFocus();
    txtQuantity->selectAll();
}

void frmShoppingList::mnuEditItemCost_Click() {
    QTreeWidgetItem* line = lvShoppingList->currentItem();
    if (!line) return;
    const Currency old = CostOf(line->text(colCost)).value_or(Currency());
    Currency cost;
    if (!frmShoppingListEditCost::GetNewCost(old, cost, this)) return;
    line->setText(colCost, Format(QVariant::fromValue(cost), QStringLiteral("0.00")));
    SetChanged(true);
}

void frmShoppingList::mnuViewPriceHistory_Click() {
    QTreeWidgetItem* line = lvShoppingList->currentItem();
    if (!line) return;
    frmItemPriceHistory history(this);
    if (history.DisplayProduct(line->text(colItem), line->text(colManufacturer))) TheUi().ShowModal(&history);
}

// ---------------------------------------------------------------------------
// State

void frmShoppingList::SetChanged(bool changed) {
    changed_ = changed;
    RefreshStatus();
}

void frmShoppingList::RefreshStatus() {
    const int lines = lvShoppingList->topLevelItemCount();
    Currency total;
    for (int i = 0; i < lines; ++i)
        if (const auto cost = CostOf(lvShoppingList->topLevelItem(i)->text(colCost))) total = total + *cost;
    lblName->setText(QStringLiteral("Name: ") + currentListName_);
    lblDate->setText(QStringLiteral("Date: ") + currentListDate_);
    lblItems->setText(QStringLiteral("Items: ") + QString::number(lines));
    lblStatus->setText(saved_ && !changed_ ? QStringLiteral("Status: Saved") : QStringLiteral("Status: Not Saved"));
    lblCost->setText(QStringLiteral("Cost: ") + Format(QVariant::fromValue(total), QStringLiteral("$#,##0.00")));
    for (const char* key : {"SaveList", "SaveListAs", "Remove", "RecurringSave", "Print", "ClearList"})
        Button(QString::fromLatin1(key))->setEnabled(lines > 0);
    setWindowTitle(currentListName_.isEmpty() ? QStringLiteral("Shopping List")
                                              : QStringLiteral("Shopping List - ") + currentListName_);
}

bool frmShoppingList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (watched == txtQuantity && (key == Qt::Key_Up || key == Qt::Key_Down)) {
            StepQuantity(key == Qt::Key_Up ? 1 : -1);
            return true;
        }
        if (watched == lvShoppingList && key == Qt::Key_Delete) {
            mnuRemoveItem_Click();
            return true;
        }
        if (enter && watched == cboItem->lineEdit()) {
            cboItem_Validate();
            // With the rest filled from the catalogue Enter adds at once;
            // otherwise it goes on to the first box still wanted.
            for (QWidget* box : std::initializer_list<QWidget*>{txtQuantity, cboManufacturer, cboSize}) {
                const QString text = box == txtQuantity ? txtQuantity->text() : static_cast<QComboBox*>(box)->currentText();
                if (text.trimmed().isEmpty() && !cboItem->currentText().trimmed().isEmpty()) {
                    box->setFocus();
                    return true;
                }
            }
            cmdAddItem_Click();
            return true;
        }
        if (enter && (watched == txtQuantity || watched == txtCost || watched == cboManufacturer->lineEdit() ||
                      watched == cboSize->lineEdit() || watched == cboItemCategory->lineEdit())) {
            cmdAddItem_Click();
            return true;
        }
    } else if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // A question box or the box's own list taking the focus is not leaving.
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || adding_) return false;
        if (watched == cboItem->lineEdit()) {
            cboItem_Validate();
        } else if (watched == txtQuantity) {
            QTimer::singleShot(0, this, [this] {
                if (!adding_) txtQuantity_Validate();
            });
        } else if (watched == txtCost) {
            QTimer::singleShot(0, this, [this] {
                if (!adding_) txtCost_Validate();
            });
        }
    }
    return GuardedDialog::eventFilter(watched, event);
}

bool frmShoppingList::MayClose() {
    if (!changed_) return true;
    Response = MsgBox(QStringLiteral("The current list has not been saved, Exit anyway?"), Box::YesNo + Box::Question,
                      QStringLiteral("Exit without save?"));
    return Response == Answer::Yes;
}

void frmShoppingList::Closing() { FormClosing = true; }
