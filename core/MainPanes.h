#pragma once

#include <QColor>
#include <QDate>
#include <QObject>
#include <QSet>
#include <QStandardItemModel>

// The contents of the main window's panes, kept apart from the widgets so the
// classes that change them (and the tests that check them) need no window.
// Tree nodes carry a key, a tag (the node's kind) and an image key.
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
    QStandardItem* FindByKey(const QStandardItemModel& model, const QString& key) const;
    QList<QStandardItem*> FindByTag(const QStandardItemModel& model, const QString& tag) const;
    QList<QStandardItem*> AllNodes(const QStandardItemModel& model) const;
    void Remove(QStandardItemModel& model, QStandardItem* item);
    void SetBold(QStandardItem* item, bool bold = true);
    void SetColour(QStandardItem* item, const QColor& colour);
    void SetImageKey(QStandardItem* item, const QString& key);
    void Clear(QStandardItemModel& model);
    void ClearAll();

Q_SIGNALS:
    void mealDatesChanged();

private:
    MainPanes();
};
