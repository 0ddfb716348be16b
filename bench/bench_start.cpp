// The whole start sequence, from an empty main window to every pane loaded.
// Target: the large household is up, every pane filled, in under 1.5 s.
#include "LargeHousehold.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "platform/Database.h"
#include "platform/ScriptedUi.h"

#include <QStandardItem>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// What the panes hold after a start, for the counters and the check that the
// start really filled them.
struct Filled {
    int recipes = 0, coupons = 0, listRows = 0, meals = 0, shortcuts = 0;
    bool all() const { return recipes > 0 && coupons > 0 && listRows > 0 && meals > 0 && shortcuts > 0; }
};

Filled Count() {
    MainPanes& panes = MainPanes::Instance();
    Filled f;
    auto children = [&](QStandardItemModel& model) {
        int n = 0;
        QStandardItem* root = panes.FindByKey(model, "Root");
        for (int c = 0; root && c < root->rowCount(); ++c) n += root->child(c)->rowCount();
        return n;
    };
    f.recipes = children(panes.recipes);
    f.coupons = children(panes.coupons);
    f.listRows = panes.currentList.rowCount();
    f.meals = panes.meals.rowCount();
    f.shortcuts = panes.quickStart.rowCount();
    return f;
}

void RunStart(benchmark::State& state, bool expectFull) {
    ScriptedUi ui;
    ui.strict(false);
    SetUi(&ui);
    // Every recipe of every cookbook and a few shortcuts: the fullest window.
    Registry().StartupCookbook(QString());
    Registry().QuickViewOptions("Coupon::Inventory::RecurringLists::Nutrition");
    Registry().SetValue("Settings", "Show Tips at Startup", "0");
    Filled filled;
    for (auto _ : state) {
        frmMain w;
        w.resize(1280, 900);
        w.show();
        w.Form_Load();
        state.PauseTiming();
        filled = Count();
        ConnectionMain().Close();
        state.ResumeTiming();
    }
    state.counters["recipe_nodes"] = filled.recipes;
    state.counters["coupons"] = filled.coupons;
    state.counters["list_rows"] = filled.listRows;
    state.counters["meals"] = filled.meals;
    if (expectFull && !filled.all()) state.SkipWithError("a pane stayed empty");
    if (ui.count() > 0) state.SkipWithError(ui.lastBox().prompt.toStdString().c_str());
    SetUi(nullptr);
}

void BM_StartSequenceOnTemplate(benchmark::State& state) {
    QTemporaryDir dir;
    LargeHousehold::PrepareStarting(dir.filePath("home"));
    RunStart(state, false);
}
BENCHMARK(BM_StartSequenceOnTemplate)->Unit(benchmark::kMillisecond);

void BM_StartSequenceOnLargeHousehold(benchmark::State& state) {
    QTemporaryDir dir;
    LargeHousehold::Prepare(dir.filePath("home"));
    RunStart(state, true);
}
BENCHMARK(BM_StartSequenceOnLargeHousehold)->Unit(benchmark::kMillisecond);

}  // namespace
