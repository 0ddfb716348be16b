#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

// The pictures of the main window's panes, drawn rather than loaded so that
// they scale and need no files: one per image key ("Recipe", "RecipeFavorite",
// "CouponExpire", "Meal", "Reminder", the quick-start keys ...). An unknown
// key gives a null icon.
QIcon PaneIcon(const QString& key);

// Shows each node's picture from its image key, or from its tag when it has
// no key of its own (a category node looks like a folder).
class PaneIconDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
