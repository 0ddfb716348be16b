#include "coupons/clsDelivery.h"

#include "core/Values.h"

QString clsDelivery::FoodType() const { return TextOf(rs.Field(QStringLiteral("FoodType"))); }
QString clsDelivery::Restaurant() const { return TextOf(rs.Field(QStringLiteral("Restaurant"))); }
bool clsDelivery::CarryOutOnly() const { return CBool(rs.Field(QStringLiteral("CarryOutOnly"))); }
QString clsDelivery::Item() const { return TextOf(rs.Field(QStringLiteral("Item"))); }
QVariant clsDelivery::Value() const { return rs.Field(QStringLiteral("Value")); }
QVariant clsDelivery::ActualValue() const { return rs.Field(QStringLiteral("ActualValue")); }
QString clsDelivery::ItemExpiration() const { return TextOf(rs.Field(QStringLiteral("Expiration"))); }

bool clsDelivery::AddNew() {
    return Trapped(QStringLiteral("Delivery.AddNew"), false, [&] {
        OpenDB(QStringLiteral("SELECT * From Delivery"), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField(QStringLiteral("FoodType"), foodType_);
        rs.setField(QStringLiteral("Restaurant"), restaurant_);
        rs.setField(QStringLiteral("CarryOutOnly"), carryOutOnly_);
        rs.setField(QStringLiteral("Item"), item_);
        rs.setField(QStringLiteral("Value"), value_);
        rs.setField(QStringLiteral("ActualValue"), actualValue_);
        rs.setField(QStringLiteral("Expiration"), expiration_);
        rs.Update();
        CloseDB();
        return true;
    });
}

bool clsDelivery::Exists() {
    return Trap(QStringLiteral("clsDelivery.Exists"), false, [] { return true; });
}

bool clsDelivery::DeleteCoupon() {
    return Trap(QStringLiteral("clsDelivery.DeleteCoupon"), false, [] { return true; });
}
