#include "core/MainPanes.h"

#include <QFont>

MainPanes& MainPanes::Instance() {
    static MainPanes panes;
    return panes;
}

MainPanes::MainPanes() = default;

QStandardItem* MainPanes::AddNode(QStandardItemModel& model, const QString& parentKey, const QString& key,
                                  const QString& text, const QString& tag) {
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    item->setData(key, KeyRole);
    item->setData(tag, TagRole);
    QStandardItem* parent = parentKey.isEmpty() ? nullptr : FindByKey(model, parentKey);
    if (parent) parent->appendRow(item);
    else model.appendRow(item);
    return item;
}

QList<QStandardItem*> MainPanes::AllNodes(const QStandardItemModel& model) const {
    QList<QStandardItem*> out;
    QList<QStandardItem*> pending;
    for (int r = 0; r < model.rowCount(); ++r) pending << model.item(r);
    while (!pending.isEmpty()) {
        QStandardItem* item = pending.takeFirst();
        out << item;
        for (int r = 0; r < item->rowCount(); ++r) pending << item->child(r);
    }
    return out;
}

QStandardItem* MainPanes::FindByKey(const QStandardItemModel& model, const QString& key) const {
    for (QStandardItem* item : AllNodes(model))
        if (item->data(KeyRole).toString() == key) return item;
    return nullptr;
}

QList<QStandardItem*> MainPanes::FindByTag(const QStandardItemModel& model, const QString& tag) const {
    QList<QStandardItem*> out;
    for (QStandardItem* item : AllNodes(model))
        if (item->data(TagRole).toString() == tag) out << item;
    return out;
}

void MainPanes::Remove(QStandardItemModel& model, QStandardItem* item) {
    if (!item) return;
    if (QStandardItem* parent = item->parent()) parent->removeRow(item->row());
    else model.removeRow(item->row());
}

void MainPanes::SetBold(QStandardItem* item, bool bold) {
    QFont f = item->font();
    f.setBold(bold);
    item->setFont(f);
}

void MainPanes::SetColour(QStandardItem* item, const QColor& colour) { item->setForeground(colour); }

void MainPanes::SetImageKey(QStandardItem* item, const QString& key) { item->setData(key, ImageKeyRole); }

void MainPanes::Clear(QStandardItemModel& model) { model.removeRows(0, model.rowCount()); }

void MainPanes::ClearAll() {
    for (QStandardItemModel* m : {&messages, &quickStart, &coupons, &recipes, &currentList, &meals}) Clear(*m);
    boldMealDates.clear();
    Q_EMIT mealDatesChanged();
}
