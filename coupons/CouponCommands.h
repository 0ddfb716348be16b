#pragma once

class CommandRegistry;

// The main window's coupon commands.
namespace CouponCommands {
void Register(CommandRegistry& commands);

void mnuEnterCoupon_Click();
void mnuViewAllCoupons_Click();
void mnuCouponPendingExpirations_Click();
void mnuPrintCouponList_Click();
void mnuCrossRecWithCoupons_Click();
void mnuFindRecipeCoupon_Click();
void mnuPOPDisplayCoupon_Click();
void mnuPOPEditCoupon_Click();
void mnuPOPDeleteCoupon_Click();
void mnuFindCouponsFor_Click();
void mnuDelivery_Click();
}  // namespace CouponCommands
