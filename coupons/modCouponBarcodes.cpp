#include "coupons/modCouponBarcodes.h"

#include "core/ErrorReport.h"
#include "core/RecordsetClass.h"
#include "core/modVerify.h"
#include "products/clsManufacturer.h"

#include <utility>

namespace {

QString couponBarcode;
QString couponValueText;
QString couponProductText;
QString couponManufacturerText;

// Tested in this order, first match wins: code 02 appears twice and only its
// first value can ever be given.
const std::pair<const char*, const char*> kValues[] = {{"00", "Checker Intervention"},
                                                       {"01", "Free"},
                                                       {"02", "Buy four or more, get one free"},
                                                       {"03", "1.10"},
                                                       {"04", "1.35"},
                                                       {"06", "1.60"},
                                                       {"10", "0.10"},
                                                       {"11", "1.85"},
                                                       {"12", "0.12"},
                                                       {"14", "Buy one, get one free"},
                                                       {"15", "0.15"},
                                                       {"16", "Buy two, get one free"},
                                                       {"17", "2.10"},
                                                       {"18", "2.60"},
                                                       {"19", "Buy three, get one free"},
                                                       {"20", "0.20"},
                                                       {"21", "Buy 2 or more, Get $0.35 off"},
                                                       {"22", "Buy 2 or more, Get $0.40 off"},
                                                       {"23", "Buy 2 or more, Get $0.45 off"},
                                                       {"24", "Buy 2, Get $0.50 off"},
                                                       {"25", "0.25"},
                                                       {"26", "2.85"},
                                                       {"28", "Buy 2, Get $0.55 off"},
                                                       {"30", "0.30"},
                                                       {"31", "Buy 2 or more, Get $0.60 off"},
                                                       {"32", "Buy 2 or more, Get $0.75 off"},
                                                       {"33", "Buy 2, Get $1.00 off"},
                                                       {"34", "Buy 2 or more, Get $1.25 off"},
                                                       {"35", "0.35"},
                                                       {"36", "Buy 2 or more, Get $1.50 off"},
                                                       {"37", "Buy 3 or more, Get $0.25 off"},
                                                       {"38", "Buy 3 or more, Get $0.30 off"},
                                                       {"40", "0.40"},
                                                       {"41", "Buy 3 or more, Get $0.50 off"},
                                                       {"42", "Buy 3 or more, Get $1.00 off"},
                                                       {"43", "Buy 2 or more, Get $1.10 off"},
                                                       {"44", "Buy 2 or more, Get $1.35 off"},
                                                       {"45", "0.45"},
                                                       {"46", "Buy 2 or more, Get $1.60 off"},
                                                       {"47", "Buy 2 or more, Get $1.75 off"},
                                                       {"48", "Buy 2 or more, Get $1.85 off"},
                                                       {"49", "0.49"},
                                                       {"50", "0.50"},
                                                       {"51", "Buy 2 or more, Get $2.00 off"},
                                                       {"52", "Buy 3 or more, Get $0.55 off"},
                                                       {"53", "Buy 2 or more, Get $0.10 off"},
                                                       {"54", "Buy 2 or more, Get $0.15 off"},
                                                       {"55", "0.55"},
                                                       {"56", "Buy 2 or more, Get $0.20 off"},
                                                       {"57", "Buy 2, Get $0.25 off"},
                                                       {"58", "Buy 2, Get $0.30 off"},
                                                       {"59", "0.59"},
                                                       {"60", "0.60"},
                                                       {"61", "10.00"},
                                                       {"62", "9.50"},
                                                       {"63", "9.00"},
                                                       {"64", "8.50"},
                                                       {"65", "0.65"},
                                                       {"66", "8.00"},
                                                       {"67", "7.50"},
                                                       {"68", "7.00"},
                                                       {"69", "0.69"},
                                                       {"70", "0.70"},
                                                       {"71", "6.50"},
                                                       {"72", "6.00"},
                                                       {"73", "5.50"},
                                                       {"74", "5.00"},
                                                       {"75", "0.75"},
                                                       {"76", "1.00"},
                                                       {"77", "1.25"},
                                                       {"78", "1.50"},
                                                       {"79", "0.79"},
                                                       {"80", "0.80"},
                                                       {"81", "1.75"},
                                                       {"82", "2.00"},
                                                       {"83", "2.25"},
                                                       {"84", "2.50"},
                                                       {"85", "0.85"},
                                                       {"86", "2.75"},
                                                       {"87", "3.00"},
                                                       {"88", "3.25"},
                                                       {"89", "0.89"},
                                                       {"90", "0.90"},
                                                       {"91", "3.50"},
                                                       {"92", "3.75"},
                                                       {"93", "4.00"},
                                                       {"94", "4.25"},
                                                       {"96", "4.50"},
                                                       {"95", "0.95"},
                                                       {"97", "4.75"},
                                                       {"98", "Buy 2 or more, Get $0.65 off"},
                                                       {"99", "0.99"},
                                                       {"02", "Buy 4 or more, Get $1.00 off"}};

}  // namespace

void SetCouponBarcode(const QString& barcode) { couponBarcode = barcode; }
QString GetCouponValueText() { return couponValueText; }
QString GetCouponProductText() { return couponProductText; }
QString GetCouponManufacturerText() { return couponManufacturerText; }

void CouponValue() {
    Trap(QStringLiteral("Module CouponBarcodes.CouponValue"), [] {
        const QString code = couponBarcode.mid(9, 2);
        couponValueText = QStringLiteral("Unknown");
        for (const auto& [key, value] : kValues) {
            if (code == QLatin1String(key)) {
                couponValueText = QString::fromLatin1(value);
                return;
            }
        }
    });
}

QString CouponManufacturer() {
    return Trap(QStringLiteral("Module CouponBarcodes.CouponManufacturer"), QStringLiteral("Unknown"), [] {
        clsManufacturer maker;
        maker.OpenDB(QStringLiteral("SELECT [Name] FROM Manufacturer WHERE [UPC_Number] LIKE ") +
                         SqlText(QStringLiteral("%") + couponBarcode.mid(0, 5) + QStringLiteral("%")),
                     adOpenKeyset, adLockReadOnly);
        const QString name = maker.dbEOF() ? QStringLiteral("Unknown") : maker.Name();
        maker.CloseDB();
        return name;
    });
}

QString CouponProduct() { return QString(); }

bool DecodeCoupon() {
    CouponValue();
    CouponManufacturer();
    CouponProduct();
    return true;
}
