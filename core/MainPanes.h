#pragma once

#include <QColor>
#include <QDate>
#include <QHash>
#include <QMultiHash>
#include <QObject>
#include <QSet>
#include <QStandardItemModel>

// The contents of the main window's panes, kept apart from the widgets so the
// classes that change them (and the tests that check them) need no window.
// Tree nodes carry a key, a tag (the node's kind) and an image key.
//
// Keys are looked up through an index that follows every change to a model,
// whoever makes it (AddNode, appendRow on an item, removeRow, setData on the
// key, clear), so a tree of many thousand nodes is searched by key at once.
// As in the tree control of old, keys compare without regard to case.
class MainPanes : public QObject {
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole + 1, TagRole, ImageKeyRole };

    static MainPanes& Instance();

    QStandardItemModel messages;     // lvMessageCenter
    QStandardItemModel quickStart;   // lvQuickStart
    QStandardItemModel coupons;      // tvCoupons
    QStandardItemModel recipes;      // tvRecipes
    QStandardItemModel currentList;  // lvCurrentList
    QStandardItemModel meals;        // tvMealList
    QSet<QDate> boldMealDates;       // calMeals

    // Adds a node under the node keyed `parentKey` ("" for the top level).
    QStandardItem* AddNode(QStandardItemModel& model, const QString& parentKey, const QString& key,
                           const QString& text, const QString& tag = QString());
    // A node that is not in a model yet, for callers that build many and insert
    // them at once with appendRows.
    static QStandardItem* MakeNode(const QString& key, const QString& text, const QString& tag = QString());
    // The first node added with that key that is still in the model.
    QStandardItem* FindByKey(const QStandardItemModel& model, const QString& key) const;
    QList<QStandardItem*> FindByTag(const QStandardItemModel& model, const QString& tag) const;
    // Every node (first column), parents before children, level by level.
    QList<QStandardItem*> AllNodes(const QStandardItemModel& model) const;
    void Remove(QStandardItemModel& model, QStandardItem* item);
    void SetBold(QStandardItem* item, bool bold = true);
    void SetColour(QStandardItem* item, const QColor& colour);
    void SetImageKey(QStandardItem* item, const QString& key);
    void Clear(QStandardItemModel& model);
    void ClearAll();

    // How many keyed nodes the index holds for `model` (for checks).
    int IndexedKeys(const QStandardItemModel& model) const;

Q_SIGNALS:
    void mealDatesChanged();

private:
    MainPanes();

    struct KeyIndex {
        QMultiHash<QString, QStandardItem*> byKey;  // folded key -> nodes
        QHash<QStandardItem*, QString> keyOf;       // node -> folded key
        quint64 next = 0;
        QHash<QStandardItem*, quint64> order;       // insertion order, for duplicates
    };

    void Watch(QStandardItemModel& model);
    void IndexSubtree(KeyIndex& index, QStandardItem* item);
    void UnindexSubtree(KeyIndex& index, QStandardItem* item);
    void IndexItem(KeyIndex& index, QStandardItem* item);
    void UnindexItem(KeyIndex& index, QStandardItem* item);
    static QString Fold(const QString& key) { return key.toCaseFolded(); }

    QHash<const QStandardItemModel*, KeyIndex> index_;
};
