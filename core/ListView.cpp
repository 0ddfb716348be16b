#include "core/ListView.h"

#include <QAbstractItemModel>
#include <QHeaderView>

ListView::ListView(QWidget* parent) : QTreeView(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    header()->setStretchLastSection(true);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::ColumnClick);
    View(lvwReport);
}

void ListView::View(int kind) {
    if (kind < lvwIcon || kind > lvwReport) kind = lvwReport;
    view_ = kind;
    const bool report = kind == lvwReport;
    setHeaderHidden(!report);
    const int columns = model() ? model()->columnCount() : 0;
    for (int c = 1; c < columns; ++c) setColumnHidden(c, !report);
    const int icon = kind == lvwIcon ? 32 : 16;
    setIconSize(QSize(icon, icon));
}

void ListView::setModel(QAbstractItemModel* m) {
    QTreeView::setModel(m);
    // Columns added later (a pane fills its header when it first loads) take
    // the view already chosen.
    if (m) connect(m, &QAbstractItemModel::columnsInserted, this, [this] { View(view_); });
    View(view_);
}

void ListView::Sorted(bool on) {
    sorted_ = on;
    if (on) ApplySort();
}

void ListView::ColumnClick(int column) {
    sortKey_ = column;
    sortOrder_ = sortOrder_ == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    Sorted(true);
}

void ListView::Resort() {
    if (sorted_) ApplySort();
}

void ListView::ApplySort() {
    if (!model() || sortKey_ < 0 || sortKey_ >= qMax(1, model()->columnCount())) return;
    model()->sort(sortKey_, sortOrder_);
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(sortKey_, sortOrder_);
}

void ListView::SetColumnShares(const QList<int>& percents) {
    const int width = qMax(100, viewport()->width());
    for (int c = 0; c < percents.size(); ++c) header()->resizeSection(c, width * percents[c] / 100);
}

void ListView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    Q_EMIT becameActive();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    Q_EMIT becameActive();
    QTreeView::mousePressEvent(event);
}
