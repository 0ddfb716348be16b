// The whole start sequence, from an empty main window to every pane loaded.
#include "LargeHousehold.h"
#include "core/Globals.h"
#include "core/frmMain.h"
#include "platform/Database.h"
#include "platform/FirstStart.h"
#include "platform/ScriptedUi.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void RunStart(benchmark::State& state) {
    ScriptedUi ui;
    ui.strict(false);
    SetUi(&ui);
    for (auto _ : state) {
        frmMain w;
        w.Form_Load();
        benchmark::DoNotOptimize(w.StartStatusTexts());
        state.PauseTiming();
        ConnectionMain().Close();
        state.ResumeTiming();
    }
    SetUi(nullptr);
}

void BM_StartSequenceOnTemplate(benchmark::State& state) {
    QTemporaryDir dir;
    const QString home = dir.filePath("home");
    QDir().mkpath(home);
    FirstStart::CreateTemplateDatabase(home + "/Larderkeep.mdb");
    FirstStart::WriteDictionary(home + "/dictionary.dic");
    qputenv("LARDERKEEP_HOME", QFile::encodeName(home));
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(home + "/Larderkeep.ini"));
    RunStart(state);
}
BENCHMARK(BM_StartSequenceOnTemplate)->Unit(benchmark::kMillisecond);

void BM_StartSequenceOnLargeHousehold(benchmark::State& state) {
    QTemporaryDir dir;
    LargeHousehold::Prepare(dir.filePath("home"));
    RunStart(state);
}
BENCHMARK(BM_StartSequenceOnLargeHousehold)->Unit(benchmark::kMillisecond);

}  // namespace
