// The shopping-list store on a big household: adding to a Current list of 500
// rows among 100,000, and the store pass over those 500 rows.
#include "Fixture.h"
#include "core/Globals.h"
#include "lists/clsShopList.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "platform/Ui.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// The household's last list is current; the four before it join it, so that
// 500 rows are current. Every tenth of them is an Aldi item of the Aldi brand
// (a manufacturer is named after the store), and every fiftieth holds an Aldi
// coupon: the store pass asks 50 questions and shows 10 notices.
void OpenHousehold(const QString& folder) {
    Fixture::OpenFreshHousehold(folder);
    WriteBatch batch(ConnectionMain());
    Recordset rs;
    rs.Open("SELECT * FROM Manufacturer", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Name", "Aldi Fresh");
    rs.Update();
    rs.Open("SELECT * FROM Coupons", ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    rs.setField("Manufacturer", "Aldi");
    rs.setField("Product", "Bench beans");
    rs.Update();
    const int coupon = rs.Field("ID").toInt();
    rs.Open("SELECT * FROM ShopList WHERE [ID] > 99500", ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (int i = 0; !rs.IsEOF(); rs.MoveNext(), ++i) {
        rs.setField("IsCurrent", true);
        if (i % 10 == 0) {
            rs.setField("Store", "Aldi");
            rs.setField("ItemManufacturer", "Aldi");
        }
        if (i % 50 == 0) rs.setField("CouponID", coupon);
        rs.Update();
    }
}

// The first current row of the household's last list, whose quantity each
// run puts back to "2" so that every merge joins the same texts.
struct Target {
    QString list, item, size;
    qint64 id = 0;
};

Target FirstOfLastList() {
    Recordset rs;
    rs.Open("SELECT * FROM ShopList WHERE [ID] = 99901", ConnectionMain(), adOpenStatic, adLockReadOnly);
    return {rs.Field("Name").toString(), rs.Field("ItemName").toString(), rs.Field("ItemSize").toString(), 99901};
}

void ResetQuantity(const Target& t) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT [ItemQuantity] FROM ShopList WHERE [ID] = %1").arg(t.id), ConnectionMain(),
            adOpenKeyset, adLockOptimistic);
    rs.setField("ItemQuantity", "2");
    rs.Update();
}

void Fill(clsShopList& shop, const QString& list, const QString& item, const QString& size, bool current) {
    shop.Name(list);
    shop.ItemName(item);
    shop.ItemQuantity("3");
    shop.ItemSize(size);
    shop.Store("Any");
    shop.ItemManufacturer("Any");
    shop.IsCurrent(current);
}

void BM_AddItemMerge(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    const Target t = FirstOfLastList();
    Fixture::Boxes().clear();
    for (auto _ : state) {
        state.PauseTiming();
        ResetQuantity(t);
        clsShopList shop;
        Fill(shop, t.list, t.item, t.size, true);
        state.ResumeTiming();
        if (shop.AddItem()) state.SkipWithError("the item was added, not merged");
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_AddItemMerge)->Unit(benchmark::kMillisecond);

void BM_AddItemNewRow(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    const Target t = FirstOfLastList();
    Fixture::Boxes().clear();
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        clsShopList shop;
        // Saved but not current, so that the Current list stays at 500 rows.
        Fill(shop, t.list, QStringLiteral("Bench item %1").arg(n++), "can", false);
        state.ResumeTiming();
        if (!shop.AddItem()) state.SkipWithError("no row was added");
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_AddItemNewRow)->Unit(benchmark::kMillisecond);

// The questions are answered No, so every run asks them again.
void BM_MarkListForStore500(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenHousehold(dir.filePath("home"));
    ScriptedUi& ui = Fixture::Boxes();
    for (auto _ : state) {
        state.PauseTiming();
        ui.clear();
        for (int i = 0; i < 60; ++i) ui.answer(Answer::No);  // the notices take one each
        state.ResumeTiming();
        clsShopList().MarkListForStore("Kroger", "");
        state.PauseTiming();
        state.counters["boxes"] = ui.count();
        state.ResumeTiming();
    }
    state.counters["current_rows"] = Fixture::CurrentListRows();
    ui.clear();
}
BENCHMARK(BM_MarkListForStore500)->Unit(benchmark::kMillisecond);

}  // namespace
