#include "lists/clsShopList.h"

#include "core/ErrorReport.h"
#include "core/Values.h"
#include "core/modVerify.h"

QString clsShopList::Name() const { return CStr(rs.Field(QStringLiteral("Name"))); }
QString clsShopList::Store() const { return CStr(rs.Field(QStringLiteral("Store"))); }
QString clsShopList::Dates() const { return CStr(rs.Field(QStringLiteral("Dates"))); }
QString clsShopList::ItemName() const { return CStr(rs.Field(QStringLiteral("ItemName"))); }
QString clsShopList::ItemQuantity() const { return CStr(rs.Field(QStringLiteral("ItemQuantity"))); }
QString clsShopList::ItemManufacturer() const { return CStr(rs.Field(QStringLiteral("ItemManufacturer"))); }
QString clsShopList::ItemSize() const { return CStr(rs.Field(QStringLiteral("ItemSize"))); }
QString clsShopList::ItemStyle() const { return TextOf(rs.Field(QStringLiteral("ItemStyle"))); }
Currency clsShopList::ItemCost() const { return CCur(rs.Field(QStringLiteral("ItemCost"))); }
bool clsShopList::ItemCoupon() const { return CBool(rs.Field(QStringLiteral("Coupon"))); }
QString clsShopList::Recurring() const { return CStr(rs.Field(QStringLiteral("Recurring"))); }
bool clsShopList::IsCurrent() const { return CBool(rs.Field(QStringLiteral("IsCurrent"))); }
QString clsShopList::ItemSource() const { return CStr(rs.Field(QStringLiteral("ItemSource"))); }
qint16 clsShopList::CouponID() const { return CInt(rs.Field(QStringLiteral("CouponID"))); }
qint32 clsShopList::ItemID() const { return CLng(rs.Field(QStringLiteral("ID"))); }

void clsShopList::AdjustRecipeName(const QString& oldTitle, const QString& newTitle) {
    Trap(QStringLiteral("ShopList.AdjustRecipeName"), [&] {
        OpenDB(QStringLiteral("SELECT [ItemStyle] FROM ShopList where [ItemStyle] = ") + SqlText(oldTitle),
               adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.setField(QStringLiteral("ItemStyle"), newTitle);
            rs.Update();
            rs.MoveNext();
        }
        CloseDB();

        OpenDB(QStringLiteral("SELECT [ItemSource] FROM ShopList WHERE [ItemSource] LIKE  '%") + QuoteSql(oldTitle) +
                   QStringLiteral("%'"),
               adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            QString source = TextOf(rs.Field(QStringLiteral("ItemSource")));
            rs.setField(QStringLiteral("ItemSource"), source.replace(oldTitle, newTitle, Qt::CaseInsensitive));
            rs.Update();
            rs.MoveNext();
        }
        CloseDB();
    });
}
