#include "core/MainPanes.h"

#include <QFont>

MainPanes& MainPanes::Instance() {
    static MainPanes panes;
    return panes;
}

MainPanes::MainPanes() {
    for (QStandardItemModel* m : {&messages, &quickStart, &coupons, &recipes, &currentList, &meals}) Watch(*m);
}

void MainPanes::Watch(QStandardItemModel& model) {
    index_.insert(&model, KeyIndex());
    QStandardItemModel* m = &model;
    connect(m, &QAbstractItemModel::rowsInserted, this, [this, m](const QModelIndex& parent, int first, int last) {
        KeyIndex& index = index_[m];
        QStandardItem* owner = parent.isValid() ? m->itemFromIndex(parent) : m->invisibleRootItem();
        if (!owner || parent.column() > 0) return;
        for (int r = first; r <= last; ++r)
            if (QStandardItem* item = owner->child(r, 0)) IndexSubtree(index, item);
    });
    connect(m, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, m](const QModelIndex& parent, int first, int last) {
                KeyIndex& index = index_[m];
                QStandardItem* owner = parent.isValid() ? m->itemFromIndex(parent) : m->invisibleRootItem();
                if (!owner || parent.column() > 0) return;
                for (int r = first; r <= last; ++r)
                    if (QStandardItem* item = owner->child(r, 0)) UnindexSubtree(index, item);
            });
    connect(m, &QAbstractItemModel::modelAboutToBeReset, this, [this, m] { index_[m] = KeyIndex(); });
    connect(m, &QStandardItemModel::itemChanged, this, [this, m](QStandardItem* item) {
        if (item->column() != 0) return;
        KeyIndex& index = index_[m];
        const QString now = Fold(item->data(KeyRole).toString());
        const auto it = index.keyOf.constFind(item);
        const QString before = it == index.keyOf.constEnd() ? QString() : *it;
        if (now == before) return;
        UnindexItem(index, item);
        IndexItem(index, item);
    });
}

void MainPanes::IndexItem(KeyIndex& index, QStandardItem* item) {
    const QString key = Fold(item->data(KeyRole).toString());
    if (key.isEmpty()) return;
    index.byKey.insert(key, item);
    index.keyOf.insert(item, key);
    index.order.insert(item, index.next++);
}

void MainPanes::UnindexItem(KeyIndex& index, QStandardItem* item) {
    const auto it = index.keyOf.find(item);
    if (it == index.keyOf.end()) return;
    index.byKey.remove(*it, item);
    index.keyOf.erase(it);
    index.order.remove(item);
}

void MainPanes::IndexSubtree(KeyIndex& index, QStandardItem* item) {
    QList<QStandardItem*> pending{item};
    while (!pending.isEmpty()) {
        QStandardItem* node = pending.takeLast();
        IndexItem(index, node);
        for (int r = 0; r < node->rowCount(); ++r)
            if (QStandardItem* child = node->child(r, 0)) pending << child;
    }
}

void MainPanes::UnindexSubtree(KeyIndex& index, QStandardItem* item) {
    if (index.keyOf.isEmpty()) return;
    QList<QStandardItem*> pending{item};
    while (!pending.isEmpty()) {
        QStandardItem* node = pending.takeLast();
        UnindexItem(index, node);
        for (int r = 0; r < node->rowCount(); ++r)
            if (QStandardItem* child = node->child(r, 0)) pending << child;
    }
}

QStandardItem* MainPanes::MakeNode(const QString& key, const QString& text, const QString& tag) {
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    item->setData(key, KeyRole);
    item->setData(tag, TagRole);
    return item;
}

QStandardItem* MainPanes::AddNode(QStandardItemModel& model, const QString& parentKey, const QString& key,
                                  const QString& text, const QString& tag) {
    QStandardItem* item = MakeNode(key, text, tag);
    QStandardItem* parent = parentKey.isEmpty() ? nullptr : FindByKey(model, parentKey);
    if (parent)
        parent->appendRow(item);
    else
        model.appendRow(item);
    return item;
}

QList<QStandardItem*> MainPanes::AllNodes(const QStandardItemModel& model) const {
    QList<QStandardItem*> out;
    for (int r = 0; r < model.rowCount(); ++r) out << model.item(r);
    // `out` doubles as the queue: each node's children are appended after it.
    for (qsizetype i = 0; i < out.size(); ++i) {
        QStandardItem* item = out[i];
        for (int r = 0; r < item->rowCount(); ++r)
            if (QStandardItem* child = item->child(r, 0)) out << child;
    }
    return out;
}

QStandardItem* MainPanes::FindByKey(const QStandardItemModel& model, const QString& key) const {
    if (key.isEmpty()) return nullptr;
    const auto found = index_.constFind(&model);
    if (found == index_.constEnd()) {
        // A model that is not one of the panes: walk it.
        for (QStandardItem* item : AllNodes(model))
            if (Fold(item->data(KeyRole).toString()) == Fold(key)) return item;
        return nullptr;
    }
    const KeyIndex& index = *found;
    QStandardItem* best = nullptr;
    quint64 bestOrder = 0;
    for (auto it = index.byKey.constFind(Fold(key)); it != index.byKey.cend() && it.key() == Fold(key); ++it) {
        const quint64 order = index.order.value(it.value());
        if (!best || order < bestOrder) {
            best = it.value();
            bestOrder = order;
        }
    }
    return best;
}

QList<QStandardItem*> MainPanes::FindByTag(const QStandardItemModel& model, const QString& tag) const {
    QList<QStandardItem*> out;
    for (QStandardItem* item : AllNodes(model))
        if (item->data(TagRole).toString() == tag) out << item;
    return out;
}

int MainPanes::IndexedKeys(const QStandardItemModel& model) const { return int(index_.value(&model).keyOf.size()); }

void MainPanes::Remove(QStandardItemModel& model, QStandardItem* item) {
    if (!item) return;
    if (QStandardItem* parent = item->parent())
        parent->removeRow(item->row());
    else
        model.removeRow(item->row());
}

void MainPanes::SetBold(QStandardItem* item, bool bold) {
    if (!item) return;
    QFont f = item->font();
    f.setBold(bold);
    item->setFont(f);
}

void MainPanes::SetColour(QStandardItem* item, const QColor& colour) {
    if (item) item->setForeground(colour);
}

void MainPanes::SetImageKey(QStandardItem* item, const QString& key) {
    if (item) item->setData(key, ImageKeyRole);
}

void MainPanes::Clear(QStandardItemModel& model) { model.removeRows(0, model.rowCount()); }

void MainPanes::ClearAll() {
    for (QStandardItemModel* m : {&messages, &quickStart, &coupons, &recipes, &currentList, &meals}) Clear(*m);
    boldMealDates.clear();
    Q_EMIT mealDatesChanged();
}

QItemSelectionModel* MainPanes::SelectionOf(const QStandardItemModel& model) {
    if (&model == &messages) return &messageSelection;
    if (&model == &coupons) return &couponSelection;
    if (&model == &recipes) return &recipeSelection;
    if (&model == &currentList) return &currentListSelection;
    if (&model == &meals) return &mealSelection;
    return nullptr;
}

QStandardItem* MainPanes::CurrentNode(QStandardItemModel& model) {
    QItemSelectionModel* selection = SelectionOf(model);
    if (!selection) return nullptr;
    const QModelIndex current = selection->currentIndex();
    if (!current.isValid()) return nullptr;
    return model.itemFromIndex(current.siblingAtColumn(0));
}

// --- node builders ------------------------------------------------------------------

namespace {
const QColor kGrey(100, 100, 100);
}  // namespace

QStandardItem* MainPanes::Root(QStandardItemModel& model, const QString& text, const QString& image) {
    QStandardItem* root = FindByKey(model, QStringLiteral("Root"));
    if (!root) {
        root = AddNode(model, QString(), QStringLiteral("Root"), text);
        SetBold(root);
        SetImageKey(root, image);
    }
    return root;
}

QStandardItem* MainPanes::CategoryNode(const QString& name) {
    QStandardItem* node = MakeNode(name, name, QStringLiteral("RecipeCategory"));
    QFont bold = node->font();
    bold.setBold(true);
    node->setFont(bold);
    return node;
}

QStandardItem* MainPanes::RecipeNode(const QString& title, bool favourite) {
    const QString kind = favourite ? QStringLiteral("RecipeFavorite") : QStringLiteral("Recipe");
    QStandardItem* node = MakeNode(QString(), title, kind);
    node->setData(kind, ImageKeyRole);
    // Favourites stand out in black; the rest are greyed.
    if (!favourite) node->setForeground(kGrey);
    return node;
}

QStandardItem* MainPanes::ManufacturerNode(const QString& name) {
    QStandardItem* node = MakeNode(name, name, QStringLiteral("Manufacturer"));
    node->setData(QStringLiteral("Manufacturer"), ImageKeyRole);
    return node;
}

QStandardItem* MainPanes::CouponNode(const QString& id, const QString& quantity, const QString& size,
                                     const QString& product) {
    QStandardItem* node =
        MakeNode(QStringLiteral("C") + id, quantity + QStringLiteral("-") + size + QStringLiteral(" ") + product, id);
    node->setData(QStringLiteral("Coupon"), ImageKeyRole);
    node->setForeground(kGrey);
    return node;
}

QList<QStandardItem*> MainPanes::MessageRow(const QString& title, const QString& body, const QString& shownDate,
                                            bool reminder) {
    QStandardItem* item = MakeNode(body.left(20), title);
    item->setData(reminder ? QStringLiteral("Reminder") : QStringLiteral("Message"), ImageKeyRole);
    auto* when = new QStandardItem(shownDate);
    when->setEditable(false);
    // The list shows the start of the text on one line.
    QString line = body;
    line.replace(QLatin1String("\r\n"), QLatin1String(";"));
    line.replace(QLatin1Char('\r'), QLatin1Char(';'));
    line.replace(QLatin1Char('\n'), QLatin1Char(';'));
    auto* text = new QStandardItem(line.left(40));
    text->setEditable(false);
    return {item, when, text};
}

QStandardItem* MainPanes::MealNode(const QString& name) {
    QStandardItem* meal = MakeNode(QStringLiteral("Meal::") + name, name, QStringLiteral("Meal"));
    meal->setData(QStringLiteral("Meal"), ImageKeyRole);
    return meal;
}

QStandardItem* MainPanes::DishNode(const QString& key, const QString& title) {
    QStandardItem* dish = MakeNode(key, title, QStringLiteral("Recipie"));
    dish->setData(QStringLiteral("Recipie"), ImageKeyRole);
    return dish;
}

QStandardItem* MainPanes::AddManufacturer(const QString& name) {
    QStandardItem* root = Root(coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    QStandardItem* node = FindByKey(coupons, name);
    if (node) return node;
    node = ManufacturerNode(name);
    node->setData(QStringLiteral("Root"), ImageKeyRole);
    SetBold(node);
    root->appendRow(node);
    root->sortChildren(0);
    return node;
}

QStandardItem* MainPanes::AddCoupon(const QString& manufacturer, const QString& id, const QString& quantity,
                                    const QString& size, const QString& product) {
    QStandardItem* root = Root(coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    QStandardItem* parent = manufacturer.isEmpty() ? root : FindByKey(coupons, manufacturer);
    if (!parent) {
        parent = ManufacturerNode(manufacturer);
        root->appendRow(parent);
    }
    QStandardItem* node = CouponNode(id, quantity, size, product);
    parent->appendRow(node);
    return node;
}

bool MainPanes::IsRecipeNode(const QStandardItem* node) {
    if (!node) return false;
    const QString tag = node->data(TagRole).toString();
    return tag == QLatin1String("Recipe") || tag == QLatin1String("RecipeFavorite") ||
           tag == QLatin1String("Recipe Title");
}

bool MainPanes::IsCategoryNode(const QStandardItem* node) {
    return node && node->data(TagRole).toString() == QLatin1String("RecipeCategory");
}

QStandardItem* MainPanes::AddCategory(const QString& name) {
    const QString key = name.trimmed();
    if (QStandardItem* node = FindByKey(recipes, key)) return node;
    QStandardItem* node = CategoryNode(key);
    if (QStandardItem* root = FindByKey(recipes, QStringLiteral("Root")))
        root->appendRow(node);
    else
        recipes.appendRow(node);
    return node;
}
