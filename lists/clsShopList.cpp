#include "lists/clsShopList.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/TableRows.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "measures/modConvert.h"
#include "platform/Ui.h"
#include "stores/clsIsleMap.h"
#include "stores/clsStore.h"

namespace {

// The main window's list pane shows the Current rows; it reloads on this.
void ListChanged() { Notices().ShoppingListChanged(); }

// The Current row of an item that a save to `list` may merge into. Only rows
// of that list are looked at, so a save never changes another list's row.
QString MergeQuery(const QString& item, const QString& list) {
    return QStringLiteral("SELECT * FROM ShopList WHERE [ItemName] = ") + SqlText(item) +
           QStringLiteral(" AND [IsCurrent] = True AND [Name] = ") + SqlText(list);
}

// A text member as joining it with "" gives it: never Null in the row.
QString Joined(const QString& text) { return text.isNull() ? QStringLiteral("") : text; }

}  // namespace

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
    Trapped(QStringLiteral("ShopList.AdjustRecipeName"), [&] {
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
    ListChanged();
}

void clsShopList::UpdateList() {
    if (!store_.isEmpty()) rs.setField(QStringLiteral("Store"), store_);
    if (couponID_ != 0) rs.setField(QStringLiteral("CouponID"), couponID_);
    if (!itemManufacturer_.isEmpty()) rs.setField(QStringLiteral("ItemManufacturer"), itemManufacturer_);
    rs.Update();
}

bool clsShopList::Exists(QString& name) {
    return Trapped(QStringLiteral("ShopList.Exists"), false, [&] {
        // Doubled here and again by SqlText: a name with an apostrophe never
        // matches, and the caller keeps the doubled text.
        QuoteSql(name);
        OpenDB(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name), adOpenKeyset,
               adLockReadOnly);
        const bool found = !rs.IsEOF();
        CloseDB();
        return found;
    });
}

void clsShopList::LoadList(const QString& column, const QString& value) {
    // The column stands quoted, as a text: the statement compares two texts.
    OpenDB(QStringLiteral("SELECT * FROM ShopList WHERE ") + SqlText(column) + QStringLiteral(" =  '") +
               QuoteSql(value) + QStringLiteral(" '"),
           adOpenKeyset, adLockOptimistic);
}

void clsShopList::MakeCurrent(const QString& listName, const QString& store) {
    Trapped(QStringLiteral("ShopList.MakeCurrent"), [&] {
        const QString columns = QStringLiteral("SELECT [IsCurrent],[ItemStyle],[ShopOrder],[ShopIsle] FROM ShopList ");
        OpenDB(listName.isEmpty() ? columns + QStringLiteral("where IsCurrent = True")
                                  : columns + QStringLiteral("where [Name] = ") + SqlText(listName),
               adOpenKeyset, adLockOptimistic);
        clsIsleMap map;
        while (!rs.IsEOF()) {
            if (!store.isEmpty()) {
                const QString style = ItemStyle();
                rs.setField(QStringLiteral("ShopOrder"), map.GetIsleOrder(store, style));
                const QString isle = map.GetIsle(store, style);
                rs.setField(QStringLiteral("ShopIsle"), isle.isEmpty() ? QStringLiteral("Not Given") : isle);
            }
            if (!listName.isEmpty()) rs.setField(QStringLiteral("IsCurrent"), true);
            rs.Update();
            rs.MoveNext();
        }
        CloseDB();
    });
    ListChanged();
}

void clsShopList::RemoveAllCurrent() {
    Trapped(QStringLiteral("ShopList.RemoveAllCurrent"), [&] {
        OpenDB(QStringLiteral("SELECT [IsCurrent],[ShopOrder],[ShopIsle] FROM ShopList WHERE [IsCurrent] = True"),
               adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.setField(QStringLiteral("IsCurrent"), false);
            rs.setField(QStringLiteral("ShopOrder"), 0);
            rs.setField(QStringLiteral("ShopIsle"), QStringLiteral(""));
            rs.Update();
            rs.MoveNext();
        }
        CloseDB();
    });
    ListChanged();
}

void clsShopList::WriteNewRow(bool secondRow) {
    rs.setField(QStringLiteral("Name"), Joined(name_));
    rs.setField(QStringLiteral("Store"), Joined(store_));
    rs.setField(QStringLiteral("Dates"), Joined(dates_));
    rs.setField(QStringLiteral("ItemName"), Joined(itemName_));
    rs.setField(QStringLiteral("ItemQuantity"), Joined(itemQuantity_));
    rs.setField(QStringLiteral("ItemManufacturer"), Joined(itemManufacturer_));
    rs.setField(QStringLiteral("ItemSize"), Joined(itemSize_));
    rs.setField(QStringLiteral("ItemStyle"), Joined(itemStyle_));
    rs.setField(QStringLiteral("ItemCost"), itemCost_.toString());
    if (secondRow)
        rs.setField(QStringLiteral("Coupon"), itemCoupon_);
    else
        rs.setField(QStringLiteral("Coupon"), CStr(itemCoupon_));
    rs.setField(QStringLiteral("Recurring"), Joined(recurring_));
    rs.setField(QStringLiteral("IsCurrent"), secondRow ? true : isCurrent_);
    rs.setField(QStringLiteral("ItemSource"), Joined(itemSource_));
    if (!secondRow) rs.setField(QStringLiteral("CouponID"), couponID_);
}

bool clsShopList::AddItem() {
    const bool added = Trapped(QStringLiteral("ShopList.AddItem"), false, [&] {
        if (ListItemExists(itemName_, name_)) {
            OpenDB(MergeQuery(itemName_, name_), adOpenKeyset, adLockOptimistic);
            if (!ClacQuantity(itemName_, itemQuantity_, itemSize_).isEmpty()) {
                const QString merged = ClacQuantity(itemName_, itemQuantity_, itemSize_);
                // A merged quantity carries ", " and the new entry's source; every
                // other column stays that of the first entry.
                rs.setField(QStringLiteral("ItemQuantity"), merged);
                rs.setField(QStringLiteral("ItemQuantity"),
                            TextOf(rs.Field(QStringLiteral("ItemQuantity"))) + QStringLiteral(", ") + itemSource_);
                rs.Update();
                CloseDB();
                return false;
            }
            // Quantities that cannot be joined stand as a second row of the item.
            rs.AddNew();
            WriteNewRow(true);
            rs.Update();
            CloseDB();
            return true;
        }
        OpenDB(QStringLiteral("SELECT * FROM Shoplist"), adOpenKeyset, adLockOptimistic);
        rs.AddNew();
        WriteNewRow(false);
        rs.Update();
        CloseDB();
        return true;
    });
    ListChanged();
    return added;
}

QString clsShopList::ClacQuantity(const QString& itemName, QString& quantity, const QString& size) {
    return Trap(QStringLiteral("ShopList.ClacQuantity"), QString(), [&] {
        Recordset row;
        row.Open(MergeQuery(itemName.trimmed(), name_), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (row.RecordCount() == 0) return QString();
        const QVariant rowQuantity = row.Field(QStringLiteral("ItemQuantity"));
        const QString rowSize = TextOf(row.Field(QStringLiteral("ItemSize")));
        if (quantity.contains(QLatin1Char('/'))) quantity = FractionToDecimal(quantity).toString();
        // Loose add: a numeric quantity stays text and joins the row's text
        // ("2" and "3" give "23"); only "3 cans" becomes a number and adds.
        QVariant total;
        if (rowSize == size) {
            const QVariant addend = IsNumeric(quantity) ? QVariant(quantity) : QVariant(Val(quantity));
            total = LooseAdd(rowQuantity, addend);
        } else {
            // A chart cell of 0 means no conversion is known; a missing cell
            // gives "", which leaves the row's quantity as it is.
            const QString converted = ConvertUnit(size, quantity, rowSize);
            if (converted == QLatin1String("0")) return QString();
            total = LooseAdd(converted, rowQuantity);
        }
        return CStr(total);
    });
}

bool clsShopList::ItemExists(const QString& itemName) {
    return Trapped(QStringLiteral("ShopList.ItemExists"), false, [&] {
        OpenDB(QStringLiteral("SELECT [ItemName] FROM ShopList WHERE [ItemName] = ") + SqlText(itemName) +
                   QStringLiteral(" AND [IsCurrent] = True"),
               adOpenKeyset, adLockReadOnly);
        const bool found = !rs.IsEOF();
        CloseDB();
        return found;
    });
}

bool clsShopList::ListItemExists(const QString& itemName, const QString& listName) {
    return Trap(QStringLiteral("ShopList.:istItemExists"), false, [&] {
        Recordset found;
        found.Open(QStringLiteral("SELECT [ItemName],[Name] FROM ShopList WHERE ([ItemName] = ") + SqlText(itemName) +
                       QStringLiteral(") AND ([Name] = ") + SqlText(listName) + QLatin1Char(')'),
                   ConnectionMain(), adOpenKeyset, adLockReadOnly);
        return !found.IsEOF();
    });
}

void clsShopList::ClearPreviousList(const QString& listName) {
    Trap(QStringLiteral("ShopList.ClearPreviousList"),
         [&] { DeleteEveryRow(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(listName)); });
    ListChanged();
}

bool clsShopList::DeleteList() {
    const bool done = Trap(QStringLiteral("ShopList.DeleteList"), false, [&] {
        DeleteEveryRow(QStringLiteral("SELECT * FROM Shoplist WHERE [Name] = ") + SqlText(name_));
        if (Registry().CurrentShoppingList() == name_) Registry().CurrentShoppingList(QString());
        return true;
    });
    ListChanged();
    return done;
}

bool clsShopList::RenameList(const QString& oldName, const QString& newName) {
    const bool done = Trap(QStringLiteral("ShopList.RenameList"), false, [&] {
        SetEveryRow(QStringLiteral("SELECT * FROM Shoplist WHERE [Name] = ") + SqlText(oldName), QStringLiteral("Name"),
                    newName);
        return true;
    });
    ListChanged();
    return done;
}

QString clsShopList::AllCategoriesNotMapped(const QString& /*store*/) {
    // The aisle looked for is the one of the store each row names.
    QString missing;
    Recordset current;
    current.Open(QStringLiteral("SELECT * FROM ShopList WHERE [IsCurrent] = True"), ConnectionMain(), adOpenKeyset,
                 adLockOptimistic);
    for (; !current.IsEOF(); current.MoveNext()) {
        const QString style = TextOf(current.Field(QStringLiteral("ItemStyle")));
        Recordset mapped;
        mapped.Open(QStringLiteral("SELECT * FROM IsleMap WHERE [ItemCategory] = ") + SqlText(style) +
                        QStringLiteral(" AND [Store] = ") + SqlText(TextOf(current.Field(QStringLiteral("Store")))),
                    ConnectionMain(), adOpenKeyset, adLockReadOnly);
        // An empty text contains nothing, not even an empty style.
        const bool named = !missing.isEmpty() && missing.contains(style);
        if (mapped.RecordCount() == 0 && !named) missing += style + QStringLiteral("//");
    }
    if (missing.endsWith(QStringLiteral("//"))) missing.chop(2);
    return missing;
}

bool clsShopList::ContainsMultipleStores(const QString& listName, const QString& store) {
    return Trapped(QStringLiteral("ShopList.ContainsMultipleStores"), false, [&] {
        QString sql;
        if (listName.isEmpty())
            sql = QStringLiteral("SELECT [IsCurrent],[Store] FROM Shoplist WHERE [IsCurrent] = True ORDER BY [Name]");
        else if (store.isEmpty())
            sql = QStringLiteral("SELECT [Store] FROM Shoplist WHERE [Store] = ") + SqlText(store) +
                  QStringLiteral(" ORDER BY [Name]");
        else
            return false;
        OpenDB(sql, adOpenKeyset, adLockReadOnly);
        const QString first = rs.IsEOF() ? QString() : TextOf(rs.Field(QStringLiteral("Store")));
        bool multiple = false;
        for (; !rs.IsEOF() && !multiple; rs.MoveNext()) multiple = TextOf(rs.Field(QStringLiteral("Store"))) != first;
        CloseDB();
        return multiple;
    });
}

bool clsShopList::MarkListForStore(const QString& store, const QString& /*flag*/) {
    const bool done = Trapped(QStringLiteral("Shoplist.MarkListForStore"), false, [&] {
        clsStore stores;
        const bool targetIsBrand = stores.IsPossibleManufacturer(store);
        OpenDB(QStringLiteral("SELECT * FROM ShopList WHERE [IsCurrent] = True ORDER BY [ItemName]"), adOpenKeyset,
               adLockOptimistic);
        while (!rs.IsEOF()) {
            const QString rowStore = TextOf(rs.Field(QStringLiteral("Store")));
            const QString rowMaker = TextOf(rs.Field(QStringLiteral("ItemManufacturer")));
            const QString item = TextOf(rs.Field(QStringLiteral("ItemName")));
            // The cheap half of the test first: most rows name no maker of their store.
            if (rowMaker == rowStore && stores.IsPossibleManufacturer(rowStore)) {
                const QString intro = QStringLiteral("The manufacturer of ") + item + QStringLiteral(" is ") +
                                      rowMaker + QStringLiteral(" which appears to be a Store brand. ");
                const QString question =
                    targetIsBrand
                        ? intro + store + QStringLiteral("is not a Store brand. Would you like to convert it anyway? ")
                        : intro + QStringLiteral("Would you like to convert it to ") + store +
                              QStringLiteral("'s brand? ");
                Response = MsgBox(question, Box::YesNo + Box::Question, QStringLiteral("Convert Item"));
                if (Response == Answer::Yes) {
                    Store(store);
                    ItemManufacturer(store);
                }
            } else {
                Store(store);
            }

            // A coupon of the row's own store is given up; the row keeps its
            // CouponID, since UpdateList writes only a CouponID that is not 0.
            // A row added as a second entry has no CouponID at all.
            const QVariant rowCoupon = rs.Field(QStringLiteral("CouponID"));
            clsCoupon coupon;
            coupon.OpenDB(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = ") +
                              QString::number(IsNull(rowCoupon) ? 0 : CLng(rowCoupon)) +
                              QStringLiteral(" AND [Manufacturer] = ") + SqlText(rowStore),
                          adOpenKeyset, adLockReadOnly);
            if (!coupon.dbEOF()) {
                MsgBox(
                    rowMaker + QStringLiteral("'s ") + item +
                    QStringLiteral(" has a Store Coupon that will be released to be used by another Shopping List."));
                couponID_ = 0;
            }
            coupon.CloseDB();

            UpdateList();
            store_.clear();
            itemManufacturer_.clear();
            couponID_ = 0;
            rs.MoveNext();
        }
        CloseDB();
        return true;
    });
    ListChanged();
    return done;
}
