#pragma once

#include <QString>

// The decoder of the UPC coupon code. Its values are program-wide: a scan sets
// the barcode, DecodeCoupon reads it, and the coupon screen takes the texts.
void SetCouponBarcode(const QString& barcode);
QString GetCouponValueText();
QString GetCouponProductText();
QString GetCouponManufacturerText();

// The value text of digits 10 and 11, or "Unknown".
void CouponValue();
// The name of a manufacturer whose UPC number holds digits 1 to 5, or "Unknown".
QString CouponManufacturer();
QString CouponProduct();
// Fills only the value text: the manufacturer and product found are dropped,
// so their texts stay empty. Always true.
bool DecodeCoupon();
