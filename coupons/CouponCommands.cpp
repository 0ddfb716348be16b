#include "coupons/CouponCommands.h"

#include "core/CommandRegistry.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmDelivery.h"
#include "platform/Ui.h"

#include <QStandardItem>
#include <memory>

namespace CouponCommands {

void mnuPOPDeleteCoupon_Click() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.coupons);
    if (!node || !node->data(MainPanes::KeyRole).toString().startsWith(QLatin1Char('C')) || !node->parent()) return;
    const QString maker = node->parent()->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer")
                              ? node->parent()->text()
                              : QString();
    if (MsgBox(QStringLiteral("Do you want to delete ") + maker + QStringLiteral("'s ") + node->text() +
                   QStringLiteral(" ?"),
               Box::YesNo + Box::Question, QStringLiteral("Delete Coupon")) != Answer::Yes)
        return;
    clsCoupon().DeleteCoupon(node->data(MainPanes::TagRole).toInt(), 1);
    panes.Remove(panes.coupons, node);
}

void mnuDelivery_Click() {
    std::unique_ptr<QDialog> form(new frmDelivery(MainWindow()));
    TheUi().ShowModal(form.get());
}

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuPOPDeleteCoupon"), mnuPOPDeleteCoupon_Click);
    commands.Add(QStringLiteral("mnuDelivery"), mnuDelivery_Click);
}

}  // namespace CouponCommands
