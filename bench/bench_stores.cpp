// Stores on a big household: importing a 2,000-line store map, printing a
// 300-item Current list in the walk of a store with 30 aisles, and opening the
// aisle setup of a store with 30 aisles and 200 categories.
#include "Fixture.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "core/deLarderkeep.h"
#include "lists/clsShopList.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"
#include "platform/Ui.h"
#include "stores/clsStore.h"
#include "stores/frmStoreIsleSetup.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

// Settings of their own, so a run never touches the person's.
const QTemporaryDir& SettingsFolder() {
    static QTemporaryDir dir;
    return dir;
}
const bool kOwnSettings = [] {
    qputenv("LARDERKEEP_CONFIG", SettingsFolder().filePath(QStringLiteral("bench.ini")).toUtf8());
    return true;
}();

// 2,000 mappings over ten new stores and 200 categories, each pair at one
// place in every store so that none is refused.
QString MapFile(const QString& folder) {
    const QString path = QDir(folder).filePath(QStringLiteral("big.gil"));
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    for (int i = 0; i < 2000; ++i)
        f.write(QStringLiteral("Bench Store %1,Bench Category %2,Isle %3\r\n")
                    .arg(i / 200)
                    .arg(i % 200)
                    .arg(i % 200 / 10)
                    .toUtf8());
    return path;
}

void BM_ImportStoreMap2000Lines(benchmark::State& state) {
    ScriptedUi ui;
    ui.strict(false);
    SetUi(&ui);
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("home%1").arg(run++)));
        const QString path = MapFile(dir.path());
        state.ResumeTiming();
        clsStore().ImportStoreFile(path);
        state.PauseTiming();
        state.counters["boxes"] = ui.count();
        ConnectionMain().Close();
        state.ResumeTiming();
    }
    SetUi(nullptr);
}
BENCHMARK(BM_ImportStoreMap2000Lines)->Unit(benchmark::kMillisecond)->Iterations(3);

// The household with "Bench Market": 30 aisles holding 200 categories, the
// catalogue spread over them, and 300 Current items marked for its walk.
const QString& Market() {
    static const QString store = QStringLiteral("Bench Market");
    static bool ready = false;
    if (ready) return store;
    static QTemporaryDir dir;
    Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("market")));
    Registry().DatabasePath(ConnectionMain().Path());
    Recordset add;
    add.Open(QStringLiteral("SELECT * FROM Store"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    add.AddNew();
    add.setField(QStringLiteral("Name"), store);
    add.setField(QStringLiteral("isles"), 30);
    add.Update();
    Recordset map;
    map.Open(QStringLiteral("SELECT * FROM IsleMap"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    Recordset categories;
    categories.Open(QStringLiteral("SELECT * FROM ItemCategory"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (int c = 0; c < 200; ++c) {
        const QString category = QStringLiteral("Bench Category %1").arg(c);
        categories.AddNew();
        categories.setField(QStringLiteral("Name"), category);
        categories.Update();
        map.AddNew();
        map.setField(QStringLiteral("Store"), store);
        map.setField(QStringLiteral("ItemCategory"), category);
        map.setField(QStringLiteral("Isle"), QStringLiteral("Bench Isle %1").arg(c % 30 + 1));
        map.setField(QStringLiteral("IsleOrder"), c % 30 + 1);
        map.Update();
    }
    Recordset products;
    products.Open(QStringLiteral("SELECT [Category] FROM Product"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (int i = 0; !products.IsEOF(); products.MoveNext(), ++i) {
        products.setField(QStringLiteral("Category"), QStringLiteral("Bench Category %1").arg(i % 200));
        products.Update();
    }
    clsShopList().RemoveAllCurrent();
    Recordset list;
    list.Open(QStringLiteral("SELECT * FROM ShopList"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
    for (int i = 0; i < 300; ++i) {
        list.AddNew();
        list.setField(QStringLiteral("Name"), QStringLiteral("Bench week"));
        list.setField(QStringLiteral("Store"), store);
        list.setField(QStringLiteral("ItemName"), QStringLiteral("Bench item number %1 of the week").arg(i));
        list.setField(QStringLiteral("ItemQuantity"), QStringLiteral("%1").arg(1 + i % 4));
        list.setField(QStringLiteral("ItemManufacturer"), i % 3 ? QStringLiteral("Any") : QStringLiteral("Acme"));
        list.setField(QStringLiteral("ItemSize"), QStringLiteral("%1 oz").arg(8 + i % 24));
        list.setField(QStringLiteral("ItemStyle"), QStringLiteral("Bench Category %1").arg(i * 7 % 200));
        list.setField(QStringLiteral("ItemCost"), 1.0 + (i % 90) / 10.0);
        list.setField(QStringLiteral("IsCurrent"), true);
        list.Update();
    }
    clsShopList().MakeCurrent(QString(), store);
    ready = true;
    return store;
}

void BM_PrintListByIsle300Items30Aisles(benchmark::State& state) {
    const QString store = Market();
    QTemporaryDir out;
    const QString pdf = out.filePath(QStringLiteral("walk.pdf"));
    for (auto _ : state) {
        const Report report = deLarderkeep::cmShoplistByIsle(store);
        if (report.RowCount() != 300 || !report.SavePdf(pdf)) state.SkipWithError("the list did not print");
    }
}
BENCHMARK(BM_PrintListByIsle300Items30Aisles)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_OpenIsleSetup30Aisles200Categories(benchmark::State& state) {
    const QString store = Market();
    Fixture::Boxes();
    for (auto _ : state) {
        frmStoreIsleSetup form;
        form.LoadStore(store);
        if (form.Root()->childCount() != 30) state.SkipWithError("the aisles did not load");
    }
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_OpenIsleSetup30Aisles200Categories)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
