#include "products/clsSpendHistory.h"

#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Ui.h"

namespace {

// These procedures report with a leading ". " and "Occurring", unlike the rest.
template <class F>
void Handled(const QString& operation, F&& body) {
    TrapTail(QStringLiteral(". (Occurring in SpendHistory.") + operation + QLatin1Char(')'), true, [&] {
        body();
        return true;
    });
}

QString ByID(qint32 spendID) {
    return QStringLiteral("SELECT * FROM SpendHistory WHERE [SpendID] = ") + QString::number(spendID);
}

void SetOn(qint32 spendID, const QString& column, const QVariant& value) {
    Recordset r;
    r.Open(ByID(spendID), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    if (r.IsEOF()) return;
    r.setField(column, value);
    r.Update();
}

}  // namespace

qint32 clsSpendHistory::SpendID() { return CLng(rs.Field(QStringLiteral("SpendID"))); }
qint16 clsSpendHistory::ItemID() { return CInt(rs.Field(QStringLiteral("ItemID"))); }
QDateTime clsSpendHistory::ItemListDate() { return CDate(rs.Field(QStringLiteral("ItemListDate"))); }
QString clsSpendHistory::ItemListName() { return TextOf(rs.Field(QStringLiteral("ItemListName"))); }
Currency clsSpendHistory::ItemListCost() { return CCur(rs.Field(QStringLiteral("ItemListCost"))); }
QString clsSpendHistory::ItemStore() { return TextOf(rs.Field(QStringLiteral("ItemStore"))); }
qint16 clsSpendHistory::CouponID() { return CInt(rs.Field(QStringLiteral("ItemCouponID"))); }

void clsSpendHistory::PurgeExpired(int mode, qint32 itemID, bool& result) {
    result = false;
    Handled(QStringLiteral("PurgeExpired"), [&] {
        const QDateTime today(Clock::Today(), QTime());
        const QDateTime cutOff = DateAdd(QStringLiteral("m"), -Registry().CostHistoryMonths(), today);
        QString sql = QStringLiteral("SELECT * from SpendHistory WHERE [ItemListDate] <#") +
                      cutOff.date().toString(QStringLiteral("M/d/yyyy")) + QLatin1Char('#');
        if (itemID > 0) sql += QStringLiteral(" AND ([ItemID] = ") + QString::number(itemID) + QLatin1Char(')');
        Recordset r;
        r.Open(sql, ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (mode == 1 && !r.IsEOF() &&
            MsgBox(QStringLiteral("That Product has a Cost History, are you certain that you wish to delete it?"),
                   Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Delete Product")) == Answer::No)
            return;
        // One batch: a cancelled purge keeps every row.
        Progress progress(QStringLiteral("Removing old cost history ..."), r.RecordCount(), true);
        WriteBatch batch(ConnectionMain());
        int done = 0;
        while (!r.IsEOF()) {
            if (!progress.Step(done++)) {
                batch.Cancel();
                return;
            }
            r.Delete();
            r.MoveNext();
        }
        result = true;
    });
}

void clsSpendHistory::AddRecord() {
    Handled(QStringLiteral("AddRecord"), [&] {
        OpenForAdd(QStringLiteral("SpendHistory"));
        rs.setField(QStringLiteral("ItemID"), itemID_);
        rs.setField(QStringLiteral("ItemListDate"), itemListDate_);
        rs.setField(QStringLiteral("ItemListName"), itemListName_);
        rs.setField(QStringLiteral("ItemListCost"), QVariant::fromValue(itemListCost_));
        rs.setField(QStringLiteral("ItemStore"), itemStore_);
        rs.Update();
    });
}

bool clsSpendHistory::ListExists(const QString& listName) {
    bool found = false;
    Handled(QStringLiteral("ListExists"), [&] {
        Recordset r;
        r.Open(QStringLiteral("SELECT [ItemListname] FROM SpendHistory WHERE [ItemListName] = ") + SqlText(listName),
               ConnectionMain(), adOpenKeyset, adLockReadOnly);
        found = !r.IsEOF();
    });
    return found;
}

void clsSpendHistory::DeleteID(qint32 spendID) {
    Handled(QStringLiteral("DeleteID"), [&] {
        Recordset r;
        r.Open(ByID(spendID), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (!r.IsEOF()) r.Delete();
    });
}

void clsSpendHistory::UpdateItemCost(qint32 spendID, Currency cost) {
    Handled(QStringLiteral("UpdateItemCost"), [&] {
        Recordset r;
        r.Open(ByID(spendID), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (r.IsEOF()) return;
        r.setField(QStringLiteral("ItemListCost"), QVariant::fromValue(cost));
        if (itemListDate_.isValid()) r.setField(QStringLiteral("ItemListDate"), itemListDate_);
        r.Update();
    });
}

void clsSpendHistory::UpdateItemStore(qint32 spendID, const QString& store) {
    Handled(QStringLiteral("UpdateItemStore"), [&] { SetOn(spendID, QStringLiteral("ItemStore"), store); });
}

void clsSpendHistory::FinalizeUpdate(qint32 spendID, const QString& listName) {
    Handled(QStringLiteral("FinalizeUpdate"), [&] { SetOn(spendID, QStringLiteral("ItemListName"), listName); });
}
