#pragma once

#include <QStringList>
#include <QTreeWidget>

namespace views {

// Each top-level line of a list view as its cells joined by "|".
inline QStringList Lines(const QTreeWidget* view) {
    QStringList out;
    for (int i = 0; i < view->topLevelItemCount(); ++i) {
        QStringList cells;
        for (int c = 0; c < view->columnCount(); ++c) cells << view->topLevelItem(i)->text(c);
        out << cells.join("|");
    }
    return out;
}

}  // namespace views
