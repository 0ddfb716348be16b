// The store-map exchange file on a big household: importing 2,000 lines.
#include "Fixture.h"
#include "core/Globals.h"
#include "platform/Database.h"
#include "platform/ScriptedUi.h"
#include "platform/Ui.h"
#include "stores/clsStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

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

}  // namespace
