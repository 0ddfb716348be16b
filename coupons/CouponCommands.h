#pragma once

class CommandRegistry;

// The main window's coupon commands.
namespace CouponCommands {
void Register(CommandRegistry& commands);

void mnuPOPDeleteCoupon_Click();
void mnuDelivery_Click();
}  // namespace CouponCommands
