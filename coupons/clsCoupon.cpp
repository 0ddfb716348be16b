#include "coupons/clsCoupon.h"

#include <QColor>
#include <QStandardItem>

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "core/modVerify.h"
#include "messages/clsMessages.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "products/clsManufacturer.h"
#include "stores/clsItemCategory.h"

namespace {

const QString kCrLf = QStringLiteral("\r\n");

bool ExpiredBeforeToday(const QVariant& expiration) { return CDate(expiration).date() < Clock::Today(); }

}  // namespace

qint32 clsCoupon::CouponDBID() const { return CLng(rs.Field(QStringLiteral("ID"))); }
QString clsCoupon::Quantity() const { return TextOf(rs.Field(QStringLiteral("Quantity"))); }
QString clsCoupon::Category() const { return TextOf(rs.Field(QStringLiteral("Category"))); }
bool clsCoupon::MarkForPurge() const { return CBool(rs.Field(QStringLiteral("MarkForPurge"))); }

int clsCoupon::Exists(const QString& manufacturer, const QString& product, const QString& size) {
    // Four looks, each taking the first coupon in table order whose columns equal
    // the arguments exactly (case and blanks count; an empty column matches
    // nothing). The comparison runs inside the engine so that a miss over
    // thousands of coupons costs four index probes rather than four scans; the
    // first, case-blind test lets the index on Product narrow the search.
    QString m = manufacturer, p = product, s = size;
    QuoteSql(m);
    QuoteSql(p);
    QuoteSql(s);
    const QString byProduct =
        QStringLiteral("SELECT [ID] FROM Coupons WHERE [Product] = '%1' AND [Product] = '%1' COLLATE BINARY").arg(p);
    const QString andManufacturer = QStringLiteral(" AND [Manufacturer] = '%1' COLLATE BINARY").arg(m);
    const QString andSize = QStringLiteral(" AND [Size] = '%1' COLLATE BINARY").arg(s);
    const QString inOrder = QStringLiteral(" ORDER BY [ID]");
    struct Pass {
        QString sql;
        int code;
    };
    const Pass passes[] = {
        {byProduct + andManufacturer + andSize + inOrder, 1},
        {byProduct + andManufacturer + inOrder, 4},
        {byProduct + andSize + inOrder, 3},
        {byProduct + inOrder, 4},
    };
    for (int pass = 0; pass < 4; ++pass) {
        OpenDB(passes[pass].sql, adOpenForwardOnly, adLockReadOnly);
        if (!rs.IsEOF()) {
            // The last look selects only the product and still reads the ID: that
            // failure is the caller's to report, and FoundCouponID stays as it was.
            if (pass == 3) {
                CloseDB();
                throw RuntimeError(Err::ItemNotFound);
            }
            FoundCouponID = CLng(rs.Field(QStringLiteral("ID")));
            CloseDB();
            return passes[pass].code;
        }
        CloseDB();
    }
    return 5;
}

void clsCoupon::GetExistingCouponResponse() {
    Trap(QStringLiteral("Coupon.GetExistingCouponResponse"), [&] {
        OpenDB(QStringLiteral("SELECT [Manufacturer],[Product],[Size],[ID] FROM Coupons WHERE [ID]=") +
                   QString::number(FoundCouponID),
               adOpenForwardOnly, adLockReadOnly);
        const QString text = QStringLiteral(
                                 "A coupon was found for that item but it is not an exact match. You you like to use "
                                 "the found Coupon? ") +
                             kCrLf + kCrLf + QStringLiteral("       \u2022 Product: ") +
                             TextOf(rs.Field(QStringLiteral("Product"))).trimmed() + kCrLf +
                             QStringLiteral("       \u2022 Manufacturer: ") +
                             TextOf(rs.Field(QStringLiteral("Manufacturer"))).trimmed() + kCrLf +
                             QStringLiteral("       \u2022 Size: ") +
                             TextOf(rs.Field(QStringLiteral("Size"))).trimmed() + kCrLf +
                             QStringLiteral("             Would you like to use this Coupon?");
        CloseDB();
        if (MsgBox(text, Box::YesNo + Box::Question, QStringLiteral("Coupon Alert")) == Answer::No) FoundCouponID = 0;
    });
}

void clsCoupon::CheckForExistingList(const QString& productName) {
    Trap(QStringLiteral("Coupon.CheckForExistingList"), [&] {
        QString quoted = productName;
        QuoteSql(quoted);
        // Marks the list row and reserves the coupon whose number is that row's
        // own ID: the coupon being entered has no row yet.
        auto useFor = [&](const QString& sql, const QString& before) {
            OpenDB(sql, adOpenKeyset, adLockOptimistic);
            if (rs.IsEOF()) {
                CloseDB();
                return false;
            }
            const QString listName = TextOf(rs.Field(QStringLiteral("Name")));
            const QString question = before + productName + QStringLiteral(" is already on ") + listName +
                                     QStringLiteral(", do you want to use this coupon?");
            if (MsgBox(question, Box::YesNo, QStringLiteral("Use Coupon?")) != Answer::Yes) {
                CloseDB();
                return false;
            }
            rs.setField(QStringLiteral("Coupon"), true);
            rs.Update();
            const qint32 rowID = CLng(rs.Field(QStringLiteral("ID")));
            CloseDB();
            MarkCouponList(rowID, listName);
            return true;
        };
        if (useFor(QStringLiteral("SELECT * FROM Shoplist WHERE [ItemName] = '%1' AND [IsCurrent] = True").arg(quoted),
                   QString()))
            return;
        // The second look ignores whether the list is current.
        useFor(QStringLiteral("SELECT * FROM Shoplist WHERE [ItemName] LIKE '%%1%'").arg(quoted),
               QStringLiteral("A product similar to "));
    });
}

void clsCoupon::MarkCouponList(qint32 id, const QString& listName) {
    Trap(QStringLiteral("Coupon.MarkCouponList"), [&] {
        // The number goes through a 16-bit integer: past 32767 it overflows.
        const qint16 narrow = CInt(id);
        OpenDB(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = ") + QString::number(narrow), adOpenKeyset,
               adLockOptimistic);
        if (!rs.IsEOF()) {
            rs.setField(QStringLiteral("OwnerList"), listName);
            rs.Update();
        }
        CloseDB();
    });
}

bool clsCoupon::ReleaseCouponList(qint32 id, const QString& listName) {
    return Trap(QStringLiteral("Coupon.ReleaseCouponList"), false, [&] {
        const qint16 narrow = CInt(id);
        OpenDB(QStringLiteral("SELECT * FROM Coupons WHERE [ID] = '%1' AND [OwnerList] = '%2'")
                   .arg(QString::number(narrow), QuoteSql(listName)),
               adOpenKeyset, adLockOptimistic);
        if (!rs.IsEOF()) {
            rs.setField(QStringLiteral("OwnerList"), QString());
            rs.Update();
        }
        CloseDB();
        return true;
    });
}

bool clsCoupon::AddNew() {
    // New vocabulary first, outside the handler: a failure here is the caller's.
    clsManufacturer manufacturer;
    manufacturer.Name(manufacturer_);
    manufacturer.WriteNew();  // a name on file is left alone
    clsItemCategory().AddIfNew(category_);

    return Trap(QStringLiteral("Coupon.Addnew"), false, [&] {
        OpenForAdd(QStringLiteral("Coupons"));
        rs.setField(QStringLiteral("Manufacturer"), manufacturer_);
        rs.setField(QStringLiteral("product"), product_);
        rs.setField(QStringLiteral("Size"), size_);
        rs.setField(QStringLiteral("Value"), discount_);
        rs.setField(QStringLiteral("DiscountDouble"), discountDbl_);
        rs.setField(QStringLiteral("Expiration"), expiration_);
        rs.setField(QStringLiteral("Quantity"), quantity_);
        rs.setField(QStringLiteral("Category"), category_);
        rs.setField(QStringLiteral("Store"), store_);
        rs.Update();
        const QString id = TextOf(rs.Field(QStringLiteral("ID")));
        CloseDB();

        Q_EMIT Notices().ShowNode(MainPanes::Instance().AddCoupon(manufacturer_, id, quantity_, size_, product_));
        return true;
    });
}

void clsCoupon::DeleteCoupon(qint32 id, int mode) {
    Trap(QStringLiteral("Coupon.DeleteCoupon"), [&] {
        OpenDB(QStringLiteral("SELECT * From Coupons WHERE [ID] = ") + QString::number(id), adOpenKeyset,
               adLockOptimistic);
        if (mode == 1 && Registry().CouponAddReminder()) {
            // A reminder to take the paper coupon out of the wallet.
            const QString note = QStringLiteral("Discard Coupon for ") +
                                 TextOf(rs.Field(QStringLiteral("Manufacturer"))) + QStringLiteral("'s ") +
                                 TextOf(rs.Field(QStringLiteral("product")));
            const QString today = Format(QVariant(Clock::Today()), QStringLiteral("mm/dd/yyyy"));
            Q_EMIT Notices().AddMessage(note, note, today, 1);
            clsMessages messages;
            QString body = note;
            messages.WriteNew(note, body, today, 1, 4);
        }
        rs.Delete();
        CloseDB();
    });
}

void clsCoupon::AutoPurge(bool printReport, bool /*reserved*/) {
    Trap(QStringLiteral("Coupon.AutoPurge"), [&] {
        // 1. Delivery coupons that have expired go; the walk passes every row,
        // so a coupon still good is kept and never holds the purge.
        OpenDB(QStringLiteral("SELECT * FROM Delivery"), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            if (ExpiredBeforeToday(rs.Field(QStringLiteral("Expiration")))) {
                rs.Delete();
                rs.Update();
            }
            rs.MoveNext();
        }
        CloseDB();

        // 2. Mark what has expired; a coupon due today has not.
        OpenDB(QStringLiteral("SELECT * FROM Coupons"), adOpenKeyset, adLockOptimistic);
        {
            // Marking is undone by nothing, so there is no Cancel here.
            Progress progress(QStringLiteral("Looking for expired coupons ..."), rs.RecordCount(), false);
            int done = 0;
            while (!rs.IsEOF()) {
                progress.Step(done++);
                const QVariant expiration = rs.Field(QStringLiteral("Expiration"));
                if (TextOf(expiration) != QLatin1String("Never") && ExpiredBeforeToday(expiration)) {
                    rs.setField(QStringLiteral("MarkForPurge"), true);
                    rs.Update();
                }
                rs.MoveNext();
            }
        }
        CloseDB();

        // 3. The user sees what goes before it goes.
        if (printReport) deLarderkeep::cmExpiredCoupons().Preview(MainWindow());

        // 4. Remove the marked rows and their tree nodes.
        MainPanes& panes = MainPanes::Instance();
        OpenDB(QStringLiteral("SELECT * FROM Coupons WHERE [MarkForPurge] = True"), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            const QString id = TextOf(rs.Field(QStringLiteral("ID")));
            if (QStandardItem* node = panes.FindByKey(panes.coupons, QStringLiteral("C") + id))
                panes.Remove(panes.coupons, node);
            rs.Delete();
            rs.MoveNext();
        }
        CloseDB();
    });
}

QString clsCoupon::IngredientCheck(const QString& ingredient) {
    return Trap(QStringLiteral("Coupon.IngredientCheck"), QString(), [&] {
        qint32 count = 0;
        QString names;
        Currency total;
        if (ingredient != QLatin1String(",")) {
            OpenDB(QStringLiteral("SELECT * FROM Coupons "), adOpenForwardOnly, adLockReadOnly);
            while (!rs.IsEOF()) {
                const QString productName = TextOf(rs.Field(QStringLiteral("Product")));
                // Every matching word counts, so a product can count twice.
                for (const QString& word : productName.split(QLatin1Char(' '))) {
                    if (ingredient.contains(word, Qt::CaseInsensitive)) {
                        ++count;
                        names += productName + QLatin1Char(',');
                        total = total + CCur(rs.Field(QStringLiteral("Value")));
                    }
                }
                rs.MoveNext();
            }
            CloseDB();
        }
        if (names.endsWith(QLatin1Char(','))) names.chop(1);
        return QString::number(count) + QStringLiteral("%%") + names + QStringLiteral("%%") + total.toString();
    });
}

void clsCoupon::PossibleCoupon(const QString& item, qint32& foundID) {
    Trap(QStringLiteral("Coupon.PossibleCoupon"), [&] {
        QString quoted = item;
        QuoteSql(quoted);
        // The blanks inside the pattern make only a whole word match.
        OpenDB(QStringLiteral("SELECT * FROM Coupons where [Product] LIKE ' %%1% '").arg(quoted), adOpenKeyset,
               adLockOptimistic);
        if (rs.IsEOF()) {
            CloseDB();
            return;
        }
        const QString text = QStringLiteral("Possible Coupon Found : ") + kCrLf + QString(15, QLatin1Char(' ')) +
                             QString(15, QLatin1Char(' ')) + QString(10, QLatin1Char(' ')) + kCrLf + kCrLf +
                             QStringLiteral("Do you want to use this coupon?");
        if (MsgBox(text, Box::YesNo, QStringLiteral("Coupon found")) == Answer::Yes)
            foundID = CLng(rs.Field(QStringLiteral("ID")));
        CloseDB();
    });
}

void clsCoupon::UpdateCoupons(const QString& manufacturer, const QString& productName, const QString& size,
                              const QString& listName) {
    Trap(QStringLiteral("Coupon.UpdateCoupons"), [&] {
        QString m = manufacturer, s = size;
        QuoteSql(m);
        QuoteSql(s);
        // The product is not quoted here; an apostrophe in it breaks the query
        // and lands in the handler.
        OpenDB(QStringLiteral("SELECT [OwnerList] FROM Coupons WHERE [Manufacturer] LIKE '%%1%' AND [Product] LIKE "
                              "'%%2%' AND [Size] LIKE '%%3%'")
                   .arg(m, productName, s),
               adOpenKeyset, adLockOptimistic);
        if (!rs.IsEOF()) {
            rs.setField(QStringLiteral("OwnerList"), listName);
            rs.Update();
        }
        CloseDB();
    });
}

qint32 clsCoupon::GetPendingExpirations() { return 0; }

clsCoupon::Expiry clsCoupon::CheckExpiry(const QString& expiration, bool& pending) {
    return CheckExpiry(expiration, Registry().CouponExpireNofication(), Registry().CouponExpireDays(), pending);
}

clsCoupon::Expiry clsCoupon::CheckExpiry(const QString& expiration, bool notify, qint16 days, bool& pending) {
    Expiry result{QStringLiteral("Coupon"), false};
    if (expiration == QLatin1String("Never")) return result;
    const qint64 d = DateDiff(QStringLiteral("d"), QDateTime(Clock::Today(), QTime()), CDate(expiration));
    if (notify && d < days) {
        result.imageKey = QStringLiteral("CouponExpire");
        pending = true;
    }
    result.expired = d < 0;
    return result;
}

bool clsCoupon::ExpireAction(bool pending) {
    if (!pending) return false;
    switch (Registry().CouponExpiredAction()) {
    case 1: {
        clsCoupon coupon;
        coupon.AutoPurge(Registry().DisplayExpiredReport(), true);
        return false;
    }
    case 2:
        return true;
    case 3:
        MsgBox(QStringLiteral("There are Coupons that are going to expire in the next ") +
                   QString::number(Registry().CouponExpireDays()) + QStringLiteral(" days."),
               Box::Information, QStringLiteral("Pending Expiration"));
        return false;
    default:
        return false;
    }
}

const QStringList& clsCoupon::ValueList() {
    static const QStringList values = {
        "Free",
        "Buy one, get one free",
        "Buy two, get one free",
        "Buy three, get one free",
        "Buy four or more, get one free",
        "0.10",
        "0.12",
        "0.15",
        "0.20",
        "0.25",
        "0.30",
        "0.35",
        "0.40",
        "0.45",
        "0.49",
        "0.50",
        "0.55",
        "0.59",
        "0.60",
        "0.65",
        "0.69",
        "0.70",
        "0.75",
        "0.79",
        "0.80",
        "0.85",
        "0.89",
        "0.90",
        "0.95",
        "0.99",
        "1.00",
        "1.10",
        "1.25",
        "1.35",
        "1.50",
        "1.60",
        "1.75",
        "1.85",
        "2.00",
        "2.10",
        "2.25",
        "2.50",
        "2.60",
        "2.75",
        "2.85",
        "3.00",
        "3.25",
        "3.50",
        "3.75",
        "4.00",
        "4.25",
        "4.50",
        "4.75",
        "5.00",
        "5.50",
        "6.00",
        "6.50",
        "7.00",
        "7.50",
        "8.00",
        "8.50",
        "9.00",
        "9.50",
        "10.00",
        "Buy 2, Get $0.25 off",
        "Buy 2, Get $0.30 off",
        "Buy 2, Get $0.50 off",
        "Buy 2, Get $0.55 off",
        "Buy 2, Get $1.00 off",
        "Buy 2 or more, Get $0.10 off",
        "Buy 2 or more, Get $0.15 off",
        "Buy 2 or more, Get $0.20 off",
        "Buy 2 or more, Get $0.35 off",
        "Buy 2 or more, Get $0.40 off",
        "Buy 2 or more, Get $0.45 off",
        "Buy 2 or more, Get $0.60 off",
        "Buy 2 or more, Get $0.65 off",
        "Buy 2 or more, Get $0.75 off",
        "Buy 2 or more, Get $1.10 off",
        "Buy 2 or more, Get $1.25 off",
        "Buy 2 or more, Get $1.35 off",
        "Buy 2 or more, Get $1.50 off",
        "Buy 2 or more, Get $1.60 off",
        "Buy 2 or more, Get $1.75 off",
        "Buy 2 or more, Get $1.85 off",
        "Buy 2 or more, Get $2.00 off",
        "Buy 3 or more, Get $0.25 off",
        "Buy 3 or more, Get $0.30 off",
        "Buy 3 or more, Get $0.50 off",
        "Buy 3 or more, Get $0.55 off",
        "Buy 3 or more, Get $1.00 off",
        "Buy 4 or more, Get $1.00 off",
        "Checker Intervention",
    };
    return values;
}
