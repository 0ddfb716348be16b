#pragma once

#include <QColor>
#include <QDate>
#include <QHash>
#include <QItemSelectionModel>
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
// Keys compare without regard to case, so "Acme" and "ACME" are one maker.
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

    // What is selected in each pane. The window's views share these, so the
    // commands that act on "the selected node" read it without a window.
    QItemSelectionModel messageSelection{&messages};
    QItemSelectionModel couponSelection{&coupons};
    QItemSelectionModel recipeSelection{&recipes};
    QItemSelectionModel currentListSelection{&currentList};
    QItemSelectionModel mealSelection{&meals};
    QItemSelectionModel* SelectionOf(const QStandardItemModel& model);
    // The current node (first column) of `model`'s pane, nullptr for none.
    QStandardItem* CurrentNode(QStandardItemModel& model);

    // One builder per kind of node, so a node looks the same whoever adds it.
    // The top node of a tree ("Root"), made bold with its picture if missing.
    QStandardItem* Root(QStandardItemModel& model, const QString& text, const QString& image);
    static QStandardItem* CategoryNode(const QString& name);
    static QStandardItem* RecipeNode(const QString& title, bool favourite);
    static QStandardItem* ManufacturerNode(const QString& name);
    static QStandardItem* CouponNode(const QString& id, const QString& quantity, const QString& size,
                                     const QString& product);
    // A row of the message centre: subject, the date as shown, the start of the text.
    static QList<QStandardItem*> MessageRow(const QString& title, const QString& body, const QString& shownDate,
                                            bool reminder);
    static QStandardItem* MealNode(const QString& name);
    // The recipe tree's category node of that (trimmed) name, made bold under
    // the root when missing.
    QStandardItem* AddCategory(const QString& name);
    // A recipe node of the recipe tree (plain, favourite or a title node).
    static bool IsRecipeNode(const QStandardItem* node);
    static bool IsCategoryNode(const QStandardItem* node);
    // A manufacturer entered while the program runs: bold, under the coupon
    // root, the makers kept in order. An existing node is returned as it is.
    QStandardItem* AddManufacturer(const QString& name);
    // A coupon entered while the program runs, under its manufacturer (made
    // when missing) or the root when it has none.
    QStandardItem* AddCoupon(const QString& manufacturer, const QString& id, const QString& quantity,
                             const QString& size, const QString& product);
    static QStandardItem* DishNode(const QString& key, const QString& title);

    // Adds a node under the node keyed `parentKey` ("" for the top level).
    QStandardItem* AddNode(QStandardItemModel& model, const QString& parentKey, const QString& key, const QString& text,
                           const QString& tag = QString());
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
        QHash<QStandardItem*, quint64> order;  // insertion order, for duplicates
    };

    void Watch(QStandardItemModel& model);
    void IndexSubtree(KeyIndex& index, QStandardItem* item);
    void UnindexSubtree(KeyIndex& index, QStandardItem* item);
    void IndexItem(KeyIndex& index, QStandardItem* item);
    void UnindexItem(KeyIndex& index, QStandardItem* item);
    static QString Fold(const QString& key) { return key.toCaseFolded(); }

    QHash<const QStandardItemModel*, KeyIndex> index_;
};
