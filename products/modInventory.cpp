#include "products/modInventory.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "coupons/clsCoupon.h"
#include "lists/clsShopList.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/ProgramFolder.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "products/clsSpendHistory.h"

#include <QFile>
#include <QTextStream>

namespace modInventory {
namespace {

const QString kCrLf = QStringLiteral("\r\n");

// The generic items, one a line; empty when the file is missing.
QStringList GenericLines() {
    QFile file(ProgramFolder::File(QStringLiteral("TrivialItem.lis")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    QStringList lines;
    QTextStream in(&file);
    while (!in.atEnd()) lines << in.readLine();
    return lines;
}

// The item's name is looked for inside each line, not the other way round:
// "water" is generic because of the line "Cold water".
bool IsGenericIn(const QStringList& lines, const QString& itemName) {
    for (const QString& line : lines)
        if (line.contains(itemName, Qt::CaseInsensitive)) return true;
    return false;
}

// Date zero: at or below the sentinel, so the item is not on hand.
QDateTime DateZero() { return QDateTime(QDate(1899, 12, 30), QTime(0, 0)); }

// The list's own date when it has one; an undated list was bought today.
QDateTime ListDate(const QString& dates) {
    const QString text = dates.trimmed();
    if (!text.isEmpty() && text != QLatin1String("None") && IsDate(text)) return CDate(text);
    return QDateTime(Clock::Today(), QTime());
}

// The quantity column holds a whole number; "2 cans" or "1 1/2" keep their
// leading number, so one such line cannot stop every later purchase.
QVariant WholeQuantity(const QString& quantity) {
    if (IsNumeric(quantity)) return quantity;
    return qint32(Val(quantity));
}

// Puts the product's item on the list "Expired", kept current so it is bought again.
void AddToExpiredList(const Recordset& product) {
    clsShopList list;
    list.Name(QStringLiteral("Expired"));
    list.IsCurrent(true);
    list.ItemManufacturer(TextOf(product.Field(QStringLiteral("Manufacturer"))));
    list.ItemName(TextOf(product.Field(QStringLiteral("Name"))));
    list.ItemQuantity(TextOf(product.Field(QStringLiteral("lastpurchasedquantity"))));
    list.ItemSize(TextOf(product.Field(QStringLiteral("Size"))));
    list.ItemStyle(TextOf(product.Field(QStringLiteral("Category"))));
    const QVariant cost = product.Field(QStringLiteral("Cost"));
    list.ItemCost(IsNull(cost) ? Currency() : CCur(cost));
    list.AddItem();
}

}  // namespace

bool Generic(const QString& itemName) {
    return Trap(QStringLiteral("Inventory.Generic"), false, [&] { return IsGenericIn(GenericLines(), itemName); });
}

bool RemoveFromInventory(qint32 productID) {
    return Trap(QStringLiteral("Inventory.RemoveFromInventory"), false, [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [LastPurchasedDate],[ID] FROM Product where [ID] = ") +
                   QString::number(productID),
               ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (r.IsEOF()) return false;
        r.setField(QStringLiteral("LastPurchasedDate"), QStringLiteral("01/01/50"));
        r.Update();
        Q_EMIT Notices().SetCurrentInventory();
        return true;
    });
}

void RemoveExpiredItems() {
    clsRegistry& settings = Registry();
    if (!settings.ConsiderInventoryEmpty()) return;
    bool changed = false;
    Trap(QStringLiteral("Inventory.RemoveExpiredItems"), [&] {
        const qint64 days = settings.InventoryDays();
        const bool notify = settings.InventoryNotifyEmpty();
        const bool nextList = settings.InventoryOnNextList();
        const QDateTime today(Clock::Today(), QTime());
        // With both switches on nothing ever leaves, so there is nothing to walk for.
        if (notify && nextList) return;
        Recordset r;
        r.Open(QStringLiteral("SELECT * FROM Product WHERE [LastPurchasedDate] > #1/1/50#"), ConnectionMain(),
               adOpenKeyset, adLockOptimistic);
        WriteBatch batch(ConnectionMain());
        for (; !r.IsEOF(); r.MoveNext()) {
            const QVariant bought = r.Field(QStringLiteral("LastPurchasedDate"));
            // A word in the column is no purchase date to count from.
            if (!IsDate(bought)) continue;
            // The second day after the period ends is the first on which it has run out.
            if (DateDiff(QStringLiteral("d"), DateAdd(QStringLiteral("d"), days, CDate(bought)), today) <= 1) continue;
            if (notify) {
                const QString question =
                    QStringLiteral("Inventory for ") + TextOf(r.Field(QStringLiteral("Manufacturer"))) +
                    QStringLiteral("'s ") + TextOf(r.Field(QStringLiteral("Name"))) +
                    QStringLiteral(" is about to be removed.") + kCrLf +
                    QStringLiteral("Do you want to move it to the next Shopping List or delete it?") + kCrLf + kCrLf +
                    QStringLiteral("Press 'Yes' to move it to the next Shopping List, 'No' to delete it.");
                if (MsgBox(question, Box::YesNo + Box::Question + Box::HelpButton, QStringLiteral("Move Item"),
                           settings.HelpFile(), 1099) == Answer::Yes)
                    AddToExpiredList(r);
                r.setField(QStringLiteral("LastPurchasedDate"), DateZero());
                r.Update();
            } else if (nextList) {
                AddToExpiredList(r);
                changed = true;
                // The column is misspelled and does not exist: the error box
                // ends the walk, and the item stays on hand.
                r.setField(QStringLiteral("lastdatepurchased"), 0);
                r.Update();
            } else {
                // The catalogue row stays; only the stock is gone.
                r.setField(QStringLiteral("LastPurchasedDate"), DateZero());
                r.Update();
            }
            changed = true;
        }
    });
    if (changed) {
        Q_EMIT Notices().SetCurrentInventory();
        Notices().ShoppingListChanged();
    }
}

void CreateInventory() {
    QString context;
    NoticeBatch notices;
    const QStringList generic = GenericLines();
    const QDateTime today(Clock::Today(), QTime());
    bool couponsChanged = false;
    try {
        WriteBatch batch(ConnectionMain());
        Recordset list;
        list.Open(QStringLiteral("SELECT * FROM ShopList WHERE [IsCurrent] = True"), ConnectionMain(), adOpenKeyset,
                  adLockOptimistic);
        for (; !list.IsEOF(); list.MoveNext()) {
            const QString itemName = TextOf(list.Field(QStringLiteral("ItemName")));
            context = QStringLiteral(" while updating Product purchase information for ") + itemName;
            const QString quotedName = QuoteSql(itemName);
            const QString quotedMaker = QuoteSql(TextOf(list.Field(QStringLiteral("ItemManufacturer"))));

            Recordset product;
            product.Open(QStringLiteral("SELECT * FROM Product where ([Name]= '") + quotedName +
                             QStringLiteral("') AND ([Manufacturer] = '") + quotedMaker + QStringLiteral("')"),
                         ConnectionMain(), adOpenKeyset, adLockOptimistic);
            bool found = false;
            for (; !product.IsEOF(); product.MoveNext()) {
                const QString name = TextOf(product.Field(QStringLiteral("Name")));
                if (!IsGenericIn(generic, name)) {
                    found = true;
                    break;
                }
                MsgBox(name + QStringLiteral(" is marked as a 'Generic Item' and will not be added."), Box::Information,
                       QStringLiteral("Notice"));
            }
            if (found) {
                const QVariant times = product.Field(QStringLiteral("TimesPurchased"));
                product.setField(QStringLiteral("TimesPurchased"), (IsNull(times) ? 0 : CLng(times)) + 1);
                product.setField(QStringLiteral("LastPurchasedDate"), today);
                product.setField(QStringLiteral("lastpurchasedquantity"),
                                 WholeQuantity(TextOf(list.Field(QStringLiteral("ItemQuantity")))));
                product.Update();

                context = QStringLiteral(" while updating Cost History information for ") + itemName;
                clsSpendHistory history;
                history.ItemID(CInt(product.Field(QStringLiteral("ID"))));
                const QVariant cost = list.Field(QStringLiteral("ItemCost"));
                history.ItemListCost(IsNull(cost) ? Currency() : CCur(cost));
                history.ItemListDate(ListDate(TextOf(list.Field(QStringLiteral("Dates")))));
                history.ItemListName(TextOf(list.Field(QStringLiteral("Name"))));
                const QVariant couponID = list.Field(QStringLiteral("CouponID"));
                history.CouponID(IsNull(couponID) ? 0 : CInt(couponID));
                history.AddRecord();
            }
            product.Close();

            // The coupon reserved for this line has been used; another line's
            // coupon on the same list is left alone.
            context = QStringLiteral(" while deleting Coupon information for ") + itemName;
            const QVariant couponID = list.Field(QStringLiteral("CouponID"));
            const qint32 coupon = IsNull(couponID) ? 0 : CLng(couponID);
            if (coupon != 0) {
                Recordset exists;
                exists.Open(QStringLiteral("SELECT [ID] FROM Coupons WHERE [ID] = ") + QString::number(coupon),
                            ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
                const bool there = !exists.IsEOF();
                exists.Close();
                if (there) {
                    clsCoupon().DeleteCoupon(coupon, 1);
                    couponsChanged = true;
                }
            }
            // A processed line goes, so a second print never counts it again.
            list.Delete();
        }
    } catch (const std::exception& e) {
        ReportErrorText(QStringLiteral("Error: ") + ErrorDescription(e) +
                        QStringLiteral(" (Occurred in Inventory.CreateInventory ") + context + QLatin1Char(')'));
    }
    Q_EMIT Notices().SetCurrentInventory();
    Notices().ShoppingListChanged();
    if (couponsChanged) Q_EMIT Notices().LoadAllCoupons();
}

}  // namespace modInventory
