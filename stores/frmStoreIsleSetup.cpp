#include "stores/frmStoreIsleSetup.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modEffects.h"
#include "core/modVerify.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/frmItemPriceHistory.h"
#include "stores/clsAlterIsleMap.h"
#include "stores/clsIsleMap.h"
#include "stores/clsItemCategory.h"
#include "stores/clsStore.h"

#include <QComboBox>
#include <QDropEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

namespace {

const QString kIsle = QStringLiteral("Isle");
const QString kCategory = QStringLiteral("Category");

QString Lower(const QString& text) { return text.trimmed().toLower(); }

QString Tag(const QTreeWidgetItem* node) {
    return node ? node->data(0, frmStoreIsleSetup::TagRole).toString() : QString();
}

// The aisle tree: drops go to the screen's rules, and the tree scrolls by
// itself while something is dragged near its top or bottom edge.
class IsleTree : public QTreeWidget {
public:
    using Drop = std::function<void(QTreeWidgetItem*, const QString&, QTreeWidgetItem*)>;
    IsleTree(QWidget* parent, QListWidget* categories) : QTreeWidget(parent), categories_(categories) {
        setDragEnabled(true);
        setAcceptDrops(true);
        setDropIndicatorShown(true);
        setDragDropMode(QAbstractItemView::DragDrop);
        setDefaultDropAction(Qt::MoveAction);
        for (QTimer* timer : {&up_, &down_}) timer->setInterval(60);
        QObject::connect(&up_, &QTimer::timeout, this, [this] { Scroll(-1); });
        QObject::connect(&down_, &QTimer::timeout, this, [this] { Scroll(1); });
    }
    Drop onDrop;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }
    void dragMoveEvent(QDragMoveEvent* event) override {
        const int y = event->position().toPoint().y();
        const int edge = 24;
        if (y < edge)
            up_.start();
        else
            up_.stop();
        if (y > viewport()->height() - edge)
            down_.start();
        else
            down_.stop();
        event->acceptProposedAction();
    }
    void dragLeaveEvent(QDragLeaveEvent* event) override {
        up_.stop();
        down_.stop();
        QTreeWidget::dragLeaveEvent(event);
    }
    void dropEvent(QDropEvent* event) override {
        up_.stop();
        down_.stop();
        QTreeWidgetItem* target = itemAt(event->position().toPoint());
        QTreeWidgetItem* source = nullptr;
        QString listCategory;
        if (event->source() == this)
            source = currentItem();
        else if (event->source() == categories_ && categories_->currentItem())
            listCategory = categories_->currentItem()->text();
        // The screen moves the nodes itself; the view must not.
        event->setDropAction(Qt::IgnoreAction);
        event->accept();
        if (target && (source || !listCategory.isEmpty()) && onDrop) onDrop(source, listCategory, target);
    }

private:
    void Scroll(int lines) { verticalScrollBar()->setValue(verticalScrollBar()->value() + lines); }
    QListWidget* categories_;
    QTimer up_, down_;
};

}  // namespace

frmStoreIsleSetup::frmStoreIsleSetup(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmStoreIsleSetup"));
    setWindowTitle(QStringLiteral("Store Isle Setup"));

    lvCategories = new QListWidget(this);
    lvCategories->setObjectName(QStringLiteral("lvCategories"));
    lvCategories->setDragEnabled(true);
    lvCategories->setSelectionMode(QAbstractItemView::SingleSelection);
    auto* tree = new IsleTree(this, lvCategories);
    tvIsleMap = tree;
    tvIsleMap->setObjectName(QStringLiteral("tvIsleMap"));
    tvIsleMap->setColumnCount(2);
    tvIsleMap->setHeaderLabels({QStringLiteral("Isles, categories and products"), QStringLiteral("Order")});
    tvIsleMap->header()->setStretchLastSection(false);
    tvIsleMap->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tvIsleMap->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    tvIsleMap->setContextMenuPolicy(Qt::CustomContextMenu);
    tree->onDrop = [this](QTreeWidgetItem* source, const QString& category, QTreeWidgetItem* target) {
        tvIsleMap_DragDrop(source, category, target);
    };
    connect(tvIsleMap, &QWidget::customContextMenuRequested, this, &frmStoreIsleSetup::ShowPopup);
    connect(tvIsleMap, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* node) {
        if (Tag(node) != kIsle) return;
        cboIsle->setCurrentText(node->text(0));
        txtIsleOrder->setText(node->data(0, OrderRole).toString());
    });

    cboIsle = new QComboBox(this);
    cboIsle->setObjectName(QStringLiteral("cboIsle"));
    cboIsle->setEditable(true);
    txtIsleOrder = new QLineEdit(this);
    txtIsleOrder->setObjectName(QStringLiteral("txtIsleOrder"));
    txtIsleOrder->setPlaceholderText(QStringLiteral("Isle shopping order"));
    cboItemCategory = new QComboBox(this);
    cboItemCategory->setObjectName(QStringLiteral("cboItemCategory"));
    cboItemCategory->setEditable(true);
    cmdAddIsle = new QPushButton(QStringLiteral("Add &Isle"), this);
    cmdAddCategory = new QPushButton(QStringLiteral("Add &Category"), this);
    txtIsleCount = new QLineEdit(this);
    txtIsleCount->setObjectName(QStringLiteral("txtIsleCount"));
    txtIsleCount->setPlaceholderText(QStringLiteral("Enter number of 'Standard' Isles"));
    cmdStandardIsles = new QPushButton(QStringLiteral("Add S&tandard Isles"), this);
    cmdApply = new QPushButton(QStringLiteral("&Apply"), this);
    cmdSave = new QPushButton(QStringLiteral("&Save"), this);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    cmdSave->setDefault(true);

    auto* isleBox = new QGroupBox(QStringLiteral("New Isle"), this);
    auto* isleForm = new QFormLayout(isleBox);
    isleForm->addRow(QStringLiteral("Isle:"), cboIsle);
    isleForm->addRow(QStringLiteral("Isle shopping order:"), txtIsleOrder);
    isleForm->addRow(QStringLiteral("Category:"), cboItemCategory);
    auto* isleButtons = new QHBoxLayout;
    isleButtons->addWidget(cmdAddIsle);
    isleButtons->addWidget(cmdAddCategory);
    isleForm->addRow(isleButtons);
    auto* standardBox = new QGroupBox(QStringLiteral("Standard Isles"), this);
    auto* standardRow = new QHBoxLayout(standardBox);
    standardRow->addWidget(txtIsleCount, 1);
    standardRow->addWidget(cmdStandardIsles);

    auto* side = new QVBoxLayout;
    side->addWidget(new QLabel(QStringLiteral("Categories not yet placed (drag onto an Isle):"), this));
    side->addWidget(lvCategories, 1);
    side->addWidget(isleBox);
    side->addWidget(standardBox);

    auto* body = new QHBoxLayout;
    body->addWidget(tvIsleMap, 3);
    body->addLayout(side, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdApply, cmdSave, cmdCancel}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);
    setTabOrder(tvIsleMap, lvCategories);
    setTabOrder(lvCategories, cboIsle);
    setTabOrder(cboIsle, txtIsleOrder);
    setTabOrder(txtIsleOrder, cboItemCategory);
    setTabOrder(cboItemCategory, cmdAddIsle);
    resize(860, 600);

    connect(cmdAddIsle, &QPushButton::clicked, this, &frmStoreIsleSetup::cmdAddIsle_Click);
    connect(cmdAddCategory, &QPushButton::clicked, this, &frmStoreIsleSetup::cmdAddCategory_Click);
    connect(cmdStandardIsles, &QPushButton::clicked, this, &frmStoreIsleSetup::cmdStandardIsles_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmStoreIsleSetup::cmdApply_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmStoreIsleSetup::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
}

QTreeWidgetItem* frmStoreIsleSetup::Root() const { return tvIsleMap->topLevelItem(0); }

QTreeWidgetItem* frmStoreIsleSetup::FindIsle(const QString& isle) const {
    QTreeWidgetItem* root = Root();
    for (int i = 0; root && i < root->childCount(); ++i)
        if (Lower(root->child(i)->text(0)) == Lower(isle)) return root->child(i);
    return nullptr;
}

QTreeWidgetItem* frmStoreIsleSetup::FindCategory(const QString& category) const {
    QTreeWidgetItem* root = Root();
    for (int i = 0; root && i < root->childCount(); ++i)
        for (int j = 0; j < root->child(i)->childCount(); ++j) {
            QTreeWidgetItem* node = root->child(i)->child(j);
            if (Tag(node) == kCategory && Lower(node->text(0)) == Lower(category)) return node;
        }
    return nullptr;
}

void frmStoreIsleSetup::LoadStore(const QString& store) {
    store_ = store;
    setWindowTitle(QStringLiteral("Store Isle Setup - ") + store);
    Progress progress(QStringLiteral("Load ") + store + QStringLiteral("'s Isles!!"), 4, false);
    tvIsleMap->setUpdatesEnabled(false);
    tvIsleMap->clear();
    isleKeys_ = 0;
    auto* root = new QTreeWidgetItem(tvIsleMap, {QStringLiteral(" Store: ") + store});
    root->setData(0, KeyRole, QStringLiteral("Root"));
    QFont bold = root->font(0);
    bold.setBold(true);
    root->setFont(0, bold);
    LoadItemCategories();
    progress.Step(1);
    LoadAlternates();
    progress.Step(2);
    LoadStoreIsles();
    progress.Step(3);
    LoadNonMappedIsles();
    clsStore stores;
    stores.OpenDB(QStringLiteral("SELECT * FROM Store"), adOpenKeyset, adLockReadOnly);
    txtIsleCount->setText(QString::number(stores.FindCount(store)));
    stores.CloseDB();
    root->setExpanded(true);
    tvIsleMap->setUpdatesEnabled(true);
    changed_ = false;
}

void frmStoreIsleSetup::LoadItemCategories() {
    Trap(QStringLiteral("frmStoreIsleSetup.LoadItemCategories"), [&] {
        lvCategories->clear();
        cboItemCategory->clear();
        categoryIDs_.clear();
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM ItemCategory ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
               adLockOptimistic);
        QString previous;
        QStringList names;
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString name = TextOf(r.Field(QStringLiteral("Name")));
            if (!names.isEmpty() && Lower(name) == Lower(previous)) {
                // Only the duplicate row goes: products and maps keep the name.
                if (MsgBox(name + QStringLiteral(" appears to be a duplicate of another Category, ") + previous +
                               QStringLiteral(". Do you want to delete the duplicate entry?"),
                           Box::YesNo + Box::Question, QStringLiteral("Delete Duplicate")) == Answer::Yes)
                    r.Delete();
                continue;
            }
            previous = name;
            names << name;
            categoryIDs_.insert(Lower(name), CLng(r.Field(QStringLiteral("ID"))));
        }
        lvCategories->addItems(names);
        cboItemCategory->addItems(names);
        cboItemCategory->setCurrentIndex(-1);
    });
}

void frmStoreIsleSetup::LoadAlternates() {
    alternates_.clear();
    products_.clear();
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] =") + SqlText(store_), ConnectionMain(),
           adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext())
        alternates_.insert(Lower(TextOf(r.Field(QStringLiteral("ItemName")))) + QChar(0x1F) +
                           Lower(TextOf(r.Field(QStringLiteral("ItemManufacturer")))));
    // One read of the catalogue serves every category node.
    Recordset p;
    p.Open(QStringLiteral("SELECT [ID],[Name],[Category],[Manufacturer] FROM Product ORDER BY [Name]"),
           ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !p.IsEOF(); p.MoveNext())
        products_[Lower(TextOf(p.Field(QStringLiteral("Category"))))]
            << QStringList{TextOf(p.Field(QStringLiteral("ID"))), TextOf(p.Field(QStringLiteral("Name"))),
                           TextOf(p.Field(QStringLiteral("Manufacturer")))};
}

QTreeWidgetItem* frmStoreIsleSetup::AddIsleNode(const QString& isle, qint16 order) {
    auto* node = new QTreeWidgetItem(Root(), {isle, QString::number(order)});
    node->setData(0, KeyRole, QStringLiteral("Isle::") + QString::number(++isleKeys_));
    node->setData(0, TagRole, kIsle);
    node->setData(0, OrderRole, order);
    node->setTextAlignment(1, Qt::AlignRight);
    QFont bold = node->font(0);
    bold.setBold(true);
    node->setFont(0, bold);
    node->setExpanded(true);
    return node;
}

QTreeWidgetItem* frmStoreIsleSetup::AddCategoryNode(QTreeWidgetItem* isle, const QString& category,
                                                    const QString& savedIsle) {
    auto* node = new QTreeWidgetItem(isle, {category});
    node->setData(0, KeyRole, QStringLiteral("CAT_") + QString::number(categoryIDs_.value(Lower(category))));
    node->setData(0, TagRole, kCategory);
    node->setData(0, SavedIsleRole, savedIsle);
    LoadCategoryItems(node);
    return node;
}

void frmStoreIsleSetup::LoadStoreIsles() {
    Recordset r;
    r.Open(
        QStringLiteral("SELECT * FROM IsleMap WHERE [Store] =") + SqlText(store_) + QStringLiteral(" ORDER BY [Isle]"),
        ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !r.IsEOF(); r.MoveNext()) {
        const QString isle = TextOf(r.Field(QStringLiteral("Isle")));
        QTreeWidgetItem* node = FindIsle(isle);
        if (!node) node = AddIsleNode(isle, CInt(r.Field(QStringLiteral("IsleOrder"))));
        const QString category = TextOf(r.Field(QStringLiteral("ItemCategory")));
        AddCategoryNode(node, category, isle);
        TakeFromList(category);
    }
    // Products kept away from their category stand under their own aisle.
    Recordset alt;
    alt.Open(QStringLiteral("SELECT * FROM AlternateIsleMap WHERE [StoreName] =") + SqlText(store_), ConnectionMain(),
             adOpenForwardOnly, adLockReadOnly);
    for (; !alt.IsEOF(); alt.MoveNext()) {
        const QString isle = TextOf(alt.Field(QStringLiteral("StoreIsle")));
        QTreeWidgetItem* node = FindIsle(isle);
        if (!node) node = AddIsleNode(isle, CInt(alt.Field(QStringLiteral("StoreIsleOrder"))));
        const QString name = TextOf(alt.Field(QStringLiteral("ItemName")));
        const QString maker = TextOf(alt.Field(QStringLiteral("ItemManufacturer")));
        auto* product = new QTreeWidgetItem(node, {maker + QStringLiteral("'s ") + name});
        product->setData(0, KeyRole, QStringLiteral("ALT_") + TextOf(alt.Field(QStringLiteral("ID"))));
        product->setData(0, TagRole, QStringLiteral("Product::") + name + QStringLiteral("::") + maker);
    }
    // The tree walks the store in order; aisles of one order stay by name.
    QTreeWidgetItem* root = Root();
    QList<QTreeWidgetItem*> isles = root->takeChildren();
    std::stable_sort(isles.begin(), isles.end(), [](QTreeWidgetItem* a, QTreeWidgetItem* b) {
        return a->data(0, OrderRole).toInt() < b->data(0, OrderRole).toInt();
    });
    root->addChildren(isles);
    for (QTreeWidgetItem* isle : isles) isle->setExpanded(true);
}

void frmStoreIsleSetup::LoadNonMappedIsles() {
    Trap(QStringLiteral("frmStoreIsleSetup.LoadNonMappedIsles"), [&] {
        cboIsle->clear();
        QStringList names;
        QSet<QString> seen;
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM IsleMap"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !r.IsEOF(); r.MoveNext()) {
            const QString isle = TextOf(r.Field(QStringLiteral("Isle")));
            if (!seen.contains(Lower(isle)) && !FindIsle(isle)) names << isle;
            seen.insert(Lower(isle));
        }
        names.sort(Qt::CaseInsensitive);
        cboIsle->addItems(names);
        cboIsle->setCurrentIndex(-1);
    });
}

void frmStoreIsleSetup::LoadCategoryItems(QTreeWidgetItem* categoryNode) {
    Trap(QStringLiteral("frmStoreIsleSetup.LoadCategoryItems"), [&] {
        qDeleteAll(categoryNode->takeChildren());
        const QBrush grey(QColor(100, 100, 100));
        for (const QStringList& product : products_.value(Lower(categoryNode->text(0)))) {
            if (alternates_.contains(Lower(product[1]) + QChar(0x1F) + Lower(product[2]))) continue;
            auto* node = new QTreeWidgetItem(categoryNode, {product[1]});
            node->setData(0, KeyRole, QStringLiteral("PRO") + product[0] + QStringLiteral("ID"));
            node->setData(0, TagRole, QStringLiteral("Product::") + product[1] + QStringLiteral("::") + product[2]);
            node->setForeground(0, grey);
        }
    });
}

void frmStoreIsleSetup::TakeFromList(const QString& category) {
    for (QListWidgetItem* item : lvCategories->findItems(category, Qt::MatchFixedString)) delete item;
}

void frmStoreIsleSetup::ReturnToList(const QString& category) {
    if (lvCategories->findItems(category, Qt::MatchFixedString).isEmpty()) lvCategories->addItem(category);
    lvCategories->sortItems();
}

bool frmStoreIsleSetup::ReadOrder(qint16& order) {
    const QString text = txtIsleOrder->text().trimmed();
    if (text.isEmpty()) {
        order = 0;
        return true;
    }
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < -32768 || value > 32767) {
        MsgBox(QStringLiteral("The Isle Order must be a numeric value, Please re-enter."), Box::OKOnly,
               QStringLiteral("Notice"));
        txtIsleOrder->selectAll();
        txtIsleOrder->setFocus();
        return false;
    }
    order = qint16(value);
    return true;
}

void frmStoreIsleSetup::cmdAddIsle_Click() {
    Trap(QStringLiteral("frmStoreIsleSetup.cmdAddIsle_Click"), [&] {
        const QString isle = cboIsle->currentText().trimmed();
        if (isle.isEmpty()) return;
        if (FindIsle(isle)) {
            MsgBox(QStringLiteral("That Isle has already been added."), Box::OKOnly, QStringLiteral("Notice"));
            return;
        }
        qint16 order = 0;
        if (!ReadOrder(order)) return;
        QTreeWidgetItem* node = AddIsleNode(isle, order);
        const QString category = cboItemCategory->currentText().trimmed();
        if (!category.isEmpty() && !FindCategory(category)) {
            clsItemCategory categories;
            if (!categories.Exists(category)) {
                categoryIDs_.insert(Lower(category), categories.WriteNew(category));
                cboItemCategory->addItem(category);
            }
            AddCategoryNode(node, category, QString());
            TakeFromList(category);
        }
        changed_ = true;
        tvIsleMap->setCurrentItem(node);
        cboIsle->setCurrentText(QString());
        txtIsleOrder->setText(QString::number(order + 1));
    });
}

void frmStoreIsleSetup::cmdStandardIsles_Click() {
    bool ok = false;
    const int count = txtIsleCount->text().trimmed().toInt(&ok);
    if (!ok || count < 0) {
        MsgBox(QStringLiteral("This Count must be a numeric value!"), Box::OKOnly, QStringLiteral("Notice"));
        txtIsleCount->selectAll();
        txtIsleCount->setFocus();
        return;
    }
    for (int i = 1; i <= count && i <= 500; ++i) {
        const QString name = QStringLiteral("Isle ") + QString::number(i);
        if (FindIsle(name)) continue;
        AddIsleNode(name, qint16(i));
        changed_ = true;
    }
}

void frmStoreIsleSetup::cmdAddCategory_Click() {
    const QString name = cboItemCategory->currentText().trimmed();
    if (name.isEmpty()) return;
    clsItemCategory categories;
    if (categories.Exists(name)) {
        MsgBox(QStringLiteral("The Category, ") + name + QStringLiteral(", already exists."), Box::OKOnly,
               QStringLiteral("Notice"));
        return;
    }
    if (MsgBox(QStringLiteral("Would to like to add ") + name + QStringLiteral(" to the list of Categories?"),
               Box::YesNo + Box::Question, QStringLiteral("Add to Categories")) != Answer::Yes)
        return;
    categoryIDs_.insert(Lower(name), categories.WriteNew(name));
    cboItemCategory->addItem(name);
    ReturnToList(name);
}

void frmStoreIsleSetup::mnuAddCategory_Click() {
    const QString name =
        InputBox(QStringLiteral("What Category would you like to add?"), QStringLiteral("Category Name")).trimmed();
    if (name.isEmpty()) return;
    clsItemCategory categories;
    if (categories.Exists(name)) {
        MsgBox(name + QStringLiteral(" already exists."), Box::OKOnly, QStringLiteral("Duplicate"));
        return;
    }
    categoryIDs_.insert(Lower(name), categories.WriteNew(name));
    cboItemCategory->addItem(name);
    ReturnToList(name);
}

void frmStoreIsleSetup::tvIsleMap_DragDrop(QTreeWidgetItem* source, const QString& listCategory,
                                           QTreeWidgetItem* target) {
    Trap(QStringLiteral("tvIsleMap.DragDrop"), [&] {
        const QString targetTag = Tag(target);
        const QString sourceTag = source ? Tag(source) : kCategory;
        const QString category = source ? source->text(0) : listCategory;
        if (sourceTag == kCategory) {
            if (targetTag == kCategory) {
                MsgBox(QStringLiteral("The Category, ") + category +
                           QStringLiteral(", can only be added to an Isle, not another Category."),
                       Box::OKOnly, QStringLiteral("Notice"));
                return;
            }
            if (targetTag != kIsle) return;
            if (source) {
                if (source->parent() == target) return;
                source->parent()->removeChild(source);
                target->addChild(source);
            } else {
                if (FindCategory(category)) return;
                AddCategoryNode(target, category, QString());
                TakeFromList(category);
            }
            target->setExpanded(true);
            changed_ = true;
            return;
        }
        if (!sourceTag.startsWith(QStringLiteral("Product::")) || targetTag != kIsle) return;
        const QStringList parts = sourceTag.split(QStringLiteral("::"));
        const QString item = parts.value(1);
        const QString maker = parts.value(2);
        if (MsgBox(QStringLiteral("Do you wish to create a Alternate Isle mapping for ") + maker +
                       QStringLiteral("'s ") + item + QStringLiteral("?"),
                   Box::YesNo + Box::Question + Box::HelpButton, QStringLiteral("Create Alternate Mapping"),
                   Registry().HelpFile()) != Answer::Yes)
            return;
        clsAlterIsleMap alter;
        alter.StoreName(store_);
        alter.ItemName(item);
        alter.ItemManufacturer(maker);
        alter.StoreIsle(target->text(0));
        alter.StoreIsleOrder(qint16(target->data(0, OrderRole).toInt()));
        if (alter.AlternateMapExists()) {
            if (MsgBox(QStringLiteral("That Alternate mapping already exists. Do you wish to change it?"),
                       Box::YesNo + Box::Question, QStringLiteral("Change")) != Answer::Yes)
                return;
            alter.DeleteAlterMap();
        }
        if (!alter.WriteNew()) return;
        alternates_.insert(Lower(item) + QChar(0x1F) + Lower(maker));
        QTreeWidgetItem* from = source->parent();
        if (Tag(from) == kCategory)
            LoadCategoryItems(from);
        else
            delete source;  // an alternate moved from one aisle to another
        auto* moved = new QTreeWidgetItem(target, {maker + QStringLiteral("'s ") + item});
        Recordset written;
        written.Open(QStringLiteral("SELECT [ID] FROM AlternateIsleMap WHERE [StoreName] = ") + SqlText(store_) +
                         QStringLiteral(" AND [ItemName] = ") + SqlText(item) +
                         QStringLiteral(" AND [ItemManufacturer] = ") + SqlText(maker),
                     ConnectionMain(), adOpenKeyset, adLockReadOnly);
        moved->setData(
            0, KeyRole,
            QStringLiteral("ALT_") + (written.IsEOF() ? QString() : TextOf(written.Field(QStringLiteral("ID")))));
        moved->setData(0, TagRole, sourceTag);
        target->setExpanded(true);
    });
}

void frmStoreIsleSetup::mnuResetItemCategory_Click() {
    QTreeWidgetItem* node = tvIsleMap->currentItem();
    if (Tag(node) != kCategory) return;
    const QString category = node->text(0);
    const QString saved = node->data(0, SavedIsleRole).toString();
    if (!saved.isEmpty()) {
        if (MsgBox(QStringLiteral("That Isle Mapping has already been saved. Do you wish to delete it?"),
                   Box::YesNo + Box::Question, QStringLiteral("Delete?")) != Answer::Yes)
            return;
        clsIsleMap().RemoveMapping(store_, category, saved);
    }
    delete node;
    ReturnToList(category);
}

void frmStoreIsleSetup::mnuCheckItemCoupons_Click() {
    const QStringList parts = Tag(tvIsleMap->currentItem()).split(QStringLiteral("::"));
    if (parts.size() < 3 || parts[0] != QLatin1String("Product")) return;
    Recordset r;
    r.Open(QStringLiteral("SELECT * FROM Coupons WHERE [Product] = ") + SqlText(parts[1]) +
               QStringLiteral(" AND [Manufacturer] = ") + SqlText(parts[2]),
           ConnectionMain(), adOpenKeyset, adLockReadOnly);
    if (r.IsEOF()) {
        MsgBox(QStringLiteral("No Coupons were found for ") + parts[2] + QStringLiteral("'s ") + parts[1] +
                   QStringLiteral("."),
               Box::OKOnly, QStringLiteral("Coupons"));
        return;
    }
    QStringList found;
    for (; !r.IsEOF(); r.MoveNext())
        found << QStringLiteral("%1 off, expires %2")
                     .arg(TextOf(r.Field(QStringLiteral("Value"))), TextOf(r.Field(QStringLiteral("Expiration"))));
    MsgBox(parts[2] + QStringLiteral("'s ") + parts[1] + QStringLiteral(":\n") + found.join(QLatin1Char('\n')),
           Box::OKOnly + Box::Information, QStringLiteral("Coupons"));
}

void frmStoreIsleSetup::mnuItemPriceHistory_Click() {
    const QStringList parts = Tag(tvIsleMap->currentItem()).split(QStringLiteral("::"));
    if (parts.size() < 3 || parts[0] != QLatin1String("Product")) return;
    frmItemPriceHistory history(this);
    if (history.DisplayProduct(parts[1], parts[2])) TheUi().ShowModal(&history);
}

void frmStoreIsleSetup::ShowPopup(const QPoint& at) {
    QTreeWidgetItem* node = tvIsleMap->itemAt(at);
    if (node) tvIsleMap->setCurrentItem(node);
    QMenu menu(this);
    const QString tag = Tag(node);
    if (tag == kCategory)
        menu.addAction(QStringLiteral("Reset Item Category"), this, &frmStoreIsleSetup::mnuResetItemCategory_Click);
    if (tag.startsWith(QStringLiteral("Product::"))) {
        menu.addAction(QStringLiteral("Check Item Coupons"), this, &frmStoreIsleSetup::mnuCheckItemCoupons_Click);
        menu.addAction(QStringLiteral("Item Price History"), this, &frmStoreIsleSetup::mnuItemPriceHistory_Click);
    }
    menu.addAction(QStringLiteral("Add Category..."), this, &frmStoreIsleSetup::mnuAddCategory_Click);
    menu.exec(tvIsleMap->viewport()->mapToGlobal(at));
}

bool frmStoreIsleSetup::SaveMapping() {
    bool all = true;
    QTreeWidgetItem* root = Root();
    for (int i = 0; root && i < root->childCount(); ++i) {
        QTreeWidgetItem* isle = root->child(i);
        for (int j = 0; j < isle->childCount(); ++j) {
            QTreeWidgetItem* node = isle->child(j);
            if (Tag(node) != kCategory) continue;
            const QString saved = node->data(0, SavedIsleRole).toString();
            if (Lower(saved) == Lower(isle->text(0))) continue;
            clsIsleMap map;
            // A category dragged to another aisle leaves its old place.
            if (!saved.isEmpty()) map.RemoveMapping(store_, node->text(0), saved);
            map.Store(store_);
            map.ItemCategory(node->text(0));
            map.Isle(isle->text(0));
            map.IsleOrder(qint16(isle->data(0, OrderRole).toInt()));
            if (map.WriteNew())
                node->setData(0, SavedIsleRole, isle->text(0));
            else {
                node->setData(0, SavedIsleRole, QString());
                all = false;
            }
        }
    }
    clsStore store;
    store.OpenDB(QStringLiteral("SELECT * FROM Store WHERE [Name] = ") + SqlText(store_), adOpenKeyset, adLockReadOnly);
    if (!store.dbEOF()) {
        store.StoreFaxNumber(store.StoreFaxNumber());
        store.Name(store_);
        store.IsleCount(qint16(root ? root->childCount() : 0));
        store.CloseDB();
        store.UpdateStore();
    }
    changed_ = false;
    return all;
}

void frmStoreIsleSetup::cmdApply_Click() { SaveMapping(); }

void frmStoreIsleSetup::cmdSave_Click() {
    if (lvCategories->count() > 0 &&
        MsgBox(QStringLiteral("Do you wish to exit before all of the Categories have been mapped for ") + store_ +
                   QStringLiteral("?"),
               Box::YesNo + Box::Question, QStringLiteral("Quit?")) != Answer::Yes)
        return;
    SaveMapping();
    CloseUnchecked();
}

bool frmStoreIsleSetup::MayClose() {
    if (!changed_) return true;
    return MsgBox(QStringLiteral("The Current mapping has not been Saved. Do you want to exit?"),
                  Box::YesNo + Box::Question, QStringLiteral("Exit")) == Answer::Yes;
}
