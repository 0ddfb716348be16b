#include "coupons/CouponCommands.h"

#include "core/CommandRegistry.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/PrintReport.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmAllCoupons.h"
#include "coupons/frmAvailableCoupons.h"
#include "coupons/frmCouponQuickView.h"
#include "coupons/frmDelivery.h"
#include "coupons/frmNewCoupon.h"
#include "coupons/frmRecipeCouponSearch.h"
#include "platform/Clock.h"
#include "core/Values.h"
#include "platform/Ui.h"

#include <QStandardItem>
#include <memory>

namespace {

void ShowModal(QDialog* dialog) {
    std::unique_ptr<QDialog> owned(dialog);
    TheUi().ShowModal(owned.get());
}

// The coupon node selected in the coupon pane, or nullptr when the selection
// is a manufacturer, the root or nothing.
QStandardItem* SelectedCoupon() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.coupons);
    if (!node || !node->parent() || !node->data(MainPanes::KeyRole).toString().startsWith(QLatin1Char('C')))
        return nullptr;
    return node;
}

QString ManufacturerOf(QStandardItem* node) {
    if (node && node->data(MainPanes::TagRole).toString() != QLatin1String("Manufacturer")) node = node->parent();
    return node && node->data(MainPanes::TagRole).toString() == QLatin1String("Manufacturer") ? node->text()
                                                                                              : QString();
}

// The full coupon list stands beside the main window, so the person can go
// on working while it is open.
void ShowAllCoupons(int filterKind, const QString& value) {
    auto* form = new frmAllCoupons(MainWindow());
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->LoadCoupons(filterKind, value);
    TheUi().ShowModeless(form, MainWindow());
}

}  // namespace

namespace CouponCommands {

void mnuEnterCoupon_Click() { ShowModal(new frmNewCoupon(MainWindow())); }

void mnuViewAllCoupons_Click() { ShowAllCoupons(0, QString()); }

// The coupons that run out within the warning days of the settings.
void mnuCouponPendingExpirations_Click() {
    const QDate before = Clock::Today().addDays(Registry().CouponExpireDays() + 1);
    ShowAllCoupons(3, Format(QVariant(before), QStringLiteral("mm/dd/yyyy")));
}

void mnuPrintCouponList_Click() {
    Trap(QStringLiteral("frmMain.mnuPrintCouponList"),
         [&] { PrintReport(deLarderkeep::cmCoupons(), QStringLiteral("Coupons.htm"), true); });
}

void mnuCrossRecWithCoupons_Click() { ShowModal(new frmRecipeCouponSearch(MainWindow())); }

void mnuFindRecipeCoupon_Click() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = panes.CurrentNode(panes.recipes);
    if (!MainPanes::IsRecipeNode(node)) return;
    std::unique_ptr<frmAvailableCoupons> form(new frmAvailableCoupons(MainWindow()));
    if (form->GetRecipeCoupons(node->text()))
        TheUi().ShowModal(form.get());
    else
        MsgBox(QStringLiteral("No coupons were found for ") + node->text() + QStringLiteral("."), Box::Information,
               QStringLiteral("Possible Coupons"));
}

void mnuPOPDisplayCoupon_Click() {
    QStandardItem* node = SelectedCoupon();
    if (!node) return;
    std::unique_ptr<frmCouponQuickView> form(new frmCouponQuickView(MainWindow()));
    form->ShowCoupon(node->data(MainPanes::TagRole).toInt());
    TheUi().ShowModal(form.get());
}

void mnuPOPEditCoupon_Click() {
    QStandardItem* node = SelectedCoupon();
    if (!node) return;
    std::unique_ptr<frmNewCoupon> form(new frmNewCoupon(MainWindow()));
    form->EditCoupon(node->data(MainPanes::TagRole).toInt());
    TheUi().ShowModal(form.get());
}

void mnuPOPDeleteCoupon_Click() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* node = SelectedCoupon();
    if (!node) return;
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

void mnuFindCouponsFor_Click() {
    MainPanes& panes = MainPanes::Instance();
    const QString maker = ManufacturerOf(panes.CurrentNode(panes.coupons));
    if (maker.isEmpty())
        ShowAllCoupons(0, QString());
    else
        ShowAllCoupons(1, maker);
}

void mnuDelivery_Click() { ShowModal(new frmDelivery(MainWindow())); }

void Register(CommandRegistry& commands) {
    commands.Add(QStringLiteral("mnuEnterCoupon"), mnuEnterCoupon_Click);
    commands.Add(QStringLiteral("mnuPOPEnterNew"), mnuEnterCoupon_Click);
    commands.Add(QStringLiteral("mnuViewAllCoupons"), mnuViewAllCoupons_Click);
    commands.Add(QStringLiteral("mnuCouponPendingExpirations"), mnuCouponPendingExpirations_Click);
    commands.Add(QStringLiteral("mnuPrintCouponList"), mnuPrintCouponList_Click);
    commands.Add(QStringLiteral("mnuCrossRecWithCoupons"), mnuCrossRecWithCoupons_Click);
    commands.Add(QStringLiteral("mnuFindRecipeCoupon"), mnuFindRecipeCoupon_Click);
    commands.Add(QStringLiteral("mnuPOPDisplayCoupon"), mnuPOPDisplayCoupon_Click);
    commands.Add(QStringLiteral("mnuPOPEditCoupon"), mnuPOPEditCoupon_Click);
    commands.Add(QStringLiteral("mnuPOPDeleteCoupon"), mnuPOPDeleteCoupon_Click);
    commands.Add(QStringLiteral("mnuFindCouponsFor"), mnuFindCouponsFor_Click);
    commands.Add(QStringLiteral("mnuDelivery"), mnuDelivery_Click);
}

}  // namespace CouponCommands
