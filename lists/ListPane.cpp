#include "lists/ListPane.h"

#include "core/MainPanes.h"
#include "lists/clsShopList.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"

#include <QStandardItem>

namespace ListPane {

void LoadShoppingList() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItemModel& model = panes.currentList;
    if (model.columnCount() < 4)
        model.setHorizontalHeaderLabels(
            {QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Size"), QStringLiteral("Style")});
    if (model.rowCount() > 0) model.removeRows(0, model.rowCount());

    clsShopList list;
    list.OpenDB(QStringLiteral("SELECT * FROM Shoplist WHERE [IsCurrent] = True"), adOpenKeyset, adLockReadOnly);
    QList<QList<QStandardItem*>> rows;
    // A column left empty (NULL) by an import shows as blank rather than
    // costing the whole list.
    auto text = [&list](QString (clsShopList::*read)() const) {
        try {
            return (list.*read)();
        } catch (const RuntimeError&) {
            return QString();
        }
    };
    while (!list.dbEOF()) {
        if (list.IsCurrent()) {
            const QString maker = text(&clsShopList::ItemManufacturer);
            const QString name = text(&clsShopList::ItemName);
            // An open manufacturer ("Any", or none at all) shows the item alone.
            const QString caption = maker == QLatin1String("Any") || maker.trimmed().isEmpty()
                                        ? name
                                        : maker + QStringLiteral("'s ") + name;
            QStandardItem* item = MainPanes::MakeNode(QString(), caption, QStringLiteral("Item"));
            item->setData(QStringLiteral("Item"), MainPanes::ImageKeyRole);
            item->setData(list.ItemID(), Qt::UserRole + 10);
            auto* quantity = new QStandardItem(text(&clsShopList::ItemQuantity));
            quantity->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            auto* size = new QStandardItem(text(&clsShopList::ItemSize));
            auto* style = new QStandardItem(list.ItemStyle());
            for (QStandardItem* cell : {quantity, size, style}) cell->setEditable(false);
            rows << QList<QStandardItem*>{item, quantity, size, style};
        }
        list.MoveNext();
    }
    list.CloseDB();
    for (const QList<QStandardItem*>& row : rows) model.appendRow(row);
}

}  // namespace ListPane
