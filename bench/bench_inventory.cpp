// The inventory on a big household. Targets: writing the purchases of a
// 300-item Current list in under 1 s; the run-out walk over 2,000 products in
// under 300 ms; the inventory screen over 2,000 products on hand opening in
// under 300 ms.
#include "Fixture.h"
#include "LargeHousehold.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "products/frmProductInventory.h"
#include "products/modInventory.h"

#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

const QDate kToday = LargeHousehold::kNow.date();

// Every product on hand, bought over the last 60 days; with a 30-day period
// about half of them have run out.
void AllOnHand() {
    WriteBatch batch(ConnectionMain());
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ID], [LastPurchasedDate] FROM Product"), ConnectionMain(), adOpenKeyset,
            adLockOptimistic);
    for (int i = 0; !rs.IsEOF(); rs.MoveNext(), ++i) {
        rs.setField(QStringLiteral("LastPurchasedDate"), kToday.addDays(-(i % 60)));
        rs.Update();
    }
}

void OpenHousehold(QTemporaryDir& dir) {
    Fixture::Boxes();
    Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("home")));
    // The household's own Current rows name no products; the runs bring their own.
    WriteBatch batch(ConnectionMain());
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ID], [IsCurrent] FROM ShopList WHERE [IsCurrent] = True"), ConnectionMain(),
            adOpenKeyset, adLockOptimistic);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        rs.setField(QStringLiteral("IsCurrent"), false);
        rs.Update();
    }
}

// 300 Current lines, each naming a product on file, every tenth with a coupon.
void FillCurrentList() {
    WriteBatch batch(ConnectionMain());
    Recordset products;
    products.Open(QStringLiteral("SELECT * FROM Product WHERE [ID] <= 300"), ConnectionMain(), adOpenForwardOnly,
                  adLockReadOnly);
    Recordset coupons;
    coupons.Open(QStringLiteral("SELECT * FROM Coupons"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    Recordset list;
    list.Open(QStringLiteral("SELECT * FROM ShopList"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    for (int i = 0; !products.IsEOF(); products.MoveNext(), ++i) {
        QVariant coupon = 0;
        if (i % 10 == 0) {
            coupons.AddNew();
            coupons.setField(QStringLiteral("Manufacturer"), products.Field(QStringLiteral("Manufacturer")));
            coupons.setField(QStringLiteral("Product"), products.Field(QStringLiteral("Name")));
            coupons.setField(QStringLiteral("Expiration"), QStringLiteral("Never"));
            coupons.setField(QStringLiteral("OwnerList"), QStringLiteral("Bench week"));
            coupons.Update();
            coupon = coupons.Field(QStringLiteral("ID"));
        }
        list.AddNew();
        list.setField(QStringLiteral("Name"), QStringLiteral("Bench week"));
        list.setField(QStringLiteral("ItemName"), products.Field(QStringLiteral("Name")));
        list.setField(QStringLiteral("ItemManufacturer"), products.Field(QStringLiteral("Manufacturer")));
        list.setField(QStringLiteral("ItemQuantity"), QStringLiteral("2"));
        list.setField(QStringLiteral("ItemCost"), 1.5);
        list.setField(QStringLiteral("Dates"), QStringLiteral("None"));
        list.setField(QStringLiteral("IsCurrent"), true);
        list.setField(QStringLiteral("CouponID"), coupon);
        list.Update();
    }
}

void BM_CreateInventory300(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir);
    Fixture::Boxes().clear();
    for (auto _ : state) {
        state.PauseTiming();
        FillCurrentList();
        state.ResumeTiming();
        modInventory::CreateInventory();
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_CreateInventory300)->Unit(benchmark::kMillisecond);

// Both switches off: every run-out item leaves the inventory without a question.
void BM_RemoveExpiredItems2000(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir);
    Registry().ConsiderInventoryEmpty(true);
    Registry().InventoryDays(30);
    Registry().InventoryNotifyEmpty(false);
    Registry().InventoryOnNextList(false);
    Fixture::Boxes().clear();
    for (auto _ : state) {
        state.PauseTiming();
        AllOnHand();
        state.ResumeTiming();
        modInventory::RemoveExpiredItems();
    }
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_RemoveExpiredItems2000)->Unit(benchmark::kMillisecond);

void BM_InventoryScreenOpen2000(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir);
    AllOnHand();
    Fixture::Boxes().clear();
    int lines = 0;
    for (auto _ : state) {
        frmProductInventory screen;
        lines = screen.lvInventory->topLevelItemCount();
    }
    state.counters["lines"] = lines;
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_InventoryScreenOpen2000)->Unit(benchmark::kMillisecond);

}  // namespace
