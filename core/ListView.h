#pragma once

#include <QListView>
#include <QTreeView>

// A list pane with four views: large icons, small icons, a plain list, and
// the report view with a column per sub-item under a clickable header. Sorting
// is a sort key (the column), an order, and a "sorted" switch; a click on a
// column header makes that column the key and turns the order around.
class ListView : public QTreeView {
    Q_OBJECT
public:
    enum ViewKind { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2, lvwReport = 3 };

    explicit ListView(QWidget* parent = nullptr);

    // Any other number counts as the report view.
    void View(int kind);
    int View() const { return view_; }
    // The same switch for callers that think of it as a list view's mode.
    void setViewMode(QListView::ViewMode mode) { View(mode == QListView::IconMode ? lvwIcon : lvwList); }

    int SortKey() const { return sortKey_; }
    void SortKey(int column) { sortKey_ = column; }
    Qt::SortOrder SortOrder() const { return sortOrder_; }
    void SortOrder(Qt::SortOrder order) { sortOrder_ = order; }
    bool Sorted() const { return sorted_; }
    // Switching it on sorts at once by the key and order set.
    void Sorted(bool on);

    // A header click on `column` (counted from 0).
    void ColumnClick(int column);
    // Sorts again by the current key and order when the list is sorted; for
    // callers that have refilled the list.
    void Resort();

    // Sets each column's width as a share (in percent) of the control's width.
    void SetColumnShares(const QList<int>& percents);

    void setModel(QAbstractItemModel* model) override;

Q_SIGNALS:
    // The view was clicked or got the focus: it is the active list.
    void becameActive();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void ApplySort();

    int view_ = lvwReport;
    int sortKey_ = 0;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    bool sorted_ = false;
};
