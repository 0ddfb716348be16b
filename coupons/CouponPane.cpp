#include "coupons/CouponPane.h"

#include "core/Dates.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "coupons/clsCoupon.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "products/clsManufacturer.h"

#include <QSet>
#include <QStandardItem>

namespace CouponPane {

Loaded LoadCoupons() {
    Loaded loaded;
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.Root(panes.coupons, QStringLiteral("Coupons"), QStringLiteral("Coupons"));
    root->removeRows(0, root->rowCount());

    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Manufacturer ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
            adLockReadOnly);
    QList<QStandardItem*> makers;
    QSet<QString> seen;
    while (!rs.IsEOF()) {
        const QString name = TextOf(rs.Field(QStringLiteral("Name")));
        if (!name.isEmpty() && !seen.contains(name.toCaseFolded())) {
            seen.insert(name.toCaseFolded());
            makers << MainPanes::ManufacturerNode(name);
        }
        rs.MoveNext();
    }
    rs.Close();
    root->appendRows(makers);

    // The coupons are gathered per manufacturer and put in at once: a drawer
    // full of them would otherwise redraw the tree for each.
    QList<QStandardItem*> parents;
    QHash<QStandardItem*, QList<QStandardItem*>> children;
    QSet<QStandardItem*> expired;
    bool pending = false;
    const bool notify = Registry().CouponExpireNofication();
    const qint16 warnDays = Registry().CouponExpireDays();
    rs.Open(QStringLiteral("SELECT * FROM COUPONS"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
    while (!rs.IsEOF()) {
        const QString maker = TextOf(rs.Field(QStringLiteral("Manufacturer")));
        QStandardItem* parent = maker.isEmpty() ? root : panes.FindByKey(panes.coupons, maker);
        if (!parent) {
            // A coupon of a manufacturer nobody entered: the manufacturer is
            // added so that the tree and the table agree from now on.
            clsManufacturer manufacturer;
            manufacturer.Name(maker);
            manufacturer.WriteNew();
            parent = panes.FindByKey(panes.coupons, maker);
            if (!parent) {
                parent = MainPanes::ManufacturerNode(maker);
                root->appendRow(parent);
            }
        }
        QStandardItem* node = MainPanes::CouponNode(
            TextOf(rs.Field(QStringLiteral("ID"))), TextOf(rs.Field(QStringLiteral("Quantity"))),
            TextOf(rs.Field(QStringLiteral("Size"))), TextOf(rs.Field(QStringLiteral("Product"))));
        // An expiration that is no date cannot be judged; the coupon shows as
        // an ordinary one rather than stopping the pane.
        const QString expiration = TextOf(rs.Field(QStringLiteral("Expiration")));
        if (expiration == QLatin1String("Never") || IsDate(expiration)) {
            const clsCoupon::Expiry expiry = clsCoupon::CheckExpiry(expiration, notify, warnDays, pending);
            node->setData(expiry.imageKey, MainPanes::ImageKeyRole);
            if (expiry.expired) {
                node->setText(node->text() + QStringLiteral(" (Expired)"));
                node->setForeground(QColor(255, 0, 0));
                expired << parent;
            }
        }
        if (!children.contains(parent)) parents << parent;
        children[parent] << node;
        rs.MoveNext();
    }
    rs.Close();
    for (QStandardItem* parent : parents) {
        loaded.coupons += int(children.value(parent).size());
        parent->appendRows(children.value(parent));
    }
    loaded.withExpired = expired.values();
    loaded.purge = clsCoupon::ExpireAction(pending);
    return loaded;
}

}  // namespace CouponPane
