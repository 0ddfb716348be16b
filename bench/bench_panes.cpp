// Filling the main window's panes from a big household: what the user waits
// on at every start and after every screen that changes recipes, coupons,
// the list or the meals. Target: the recipe tree of 10,000 recipes in 40
// categories loads in under 150 ms.
#include "LargeHousehold.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "platform/Database.h"
#include "platform/ScriptedUi.h"

#include <QCoreApplication>
#include <QStandardItem>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// A box during a run would be an error report: record it instead of waiting.
ScriptedUi& Boxes() {
    static ScriptedUi ui;
    static bool set = false;
    if (!set) {
        ui.strict(false);
        SetUi(&ui);
        set = true;
    }
    return ui;
}

frmMain* window = nullptr;

// The window goes with the application, before the panes it shows.
void CloseWindow() {
    delete window;
    window = nullptr;
}

// One household and one window for the whole program, shown as the user sees it.
frmMain& Window() {
    static QTemporaryDir dir;
    if (!window) {
        qAddPostRoutine(CloseWindow);
        ConnectionMain().Open(LargeHousehold::Prepare(dir.filePath("home")));
        Boxes();
        window = new frmMain;
        window->resize(1280, 900);
        window->show();
        MainPanes& panes = MainPanes::Instance();
        panes.Clear(panes.recipes);
        panes.SetBold(panes.AddNode(panes.recipes, QString(), "Root", "Recipies"));
        panes.Clear(panes.coupons);
        panes.SetBold(panes.AddNode(panes.coupons, QString(), "Root", "Coupons"));
    }
    return *window;
}

void CheckQuiet(benchmark::State& state) {
    if (Boxes().count() > 0) state.SkipWithError(Boxes().lastBox().prompt.toStdString().c_str());
}

int RecipeNodes() {
    MainPanes& panes = MainPanes::Instance();
    QStandardItem* root = panes.FindByKey(panes.recipes, "Root");
    int n = 0;
    for (int c = 0; root && c < root->rowCount(); ++c) n += root->child(c)->rowCount();
    return n;
}

void BM_LoadRecipiesAllCookbooks(benchmark::State& state) {
    frmMain& w = Window();
    CurrentCookbook.clear();
    for (auto _ : state) w.LoadRecipies();
    state.counters["nodes"] = RecipeNodes();
    if (RecipeNodes() < 10000) state.SkipWithError("the tree is not full");
    CheckQuiet(state);
}
BENCHMARK(BM_LoadRecipiesAllCookbooks)->Unit(benchmark::kMillisecond);

void BM_LoadRecipiesExpanded(benchmark::State& state) {
    frmMain& w = Window();
    CurrentCookbook.clear();
    Registry().ExpandRecipeList(true);
    for (auto _ : state) w.LoadRecipies();
    Registry().ExpandRecipeList(false);
    state.counters["nodes"] = RecipeNodes();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadRecipiesExpanded)->Unit(benchmark::kMillisecond);

void BM_LoadRecipiesOneCookbook(benchmark::State& state) {
    frmMain& w = Window();
    CurrentCookbook = "Apple's Cookbook";
    for (auto _ : state) w.LoadRecipies();
    state.counters["nodes"] = RecipeNodes();
    CurrentCookbook.clear();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadRecipiesOneCookbook)->Unit(benchmark::kMillisecond);

void BM_LoadCoupons(benchmark::State& state) {
    frmMain& w = Window();
    for (auto _ : state) w.LoadCoupons();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadCoupons)->Unit(benchmark::kMillisecond);

void BM_LoadShoppingList(benchmark::State& state) {
    frmMain& w = Window();
    for (auto _ : state) w.LoadShoppingList();
    state.counters["rows"] = MainPanes::Instance().currentList.rowCount();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadShoppingList)->Unit(benchmark::kMillisecond);

void BM_LoadMealList(benchmark::State& state) {
    frmMain& w = Window();
    for (auto _ : state) w.LoadMealList();
    state.counters["meals"] = MainPanes::Instance().meals.rowCount();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadMealList)->Unit(benchmark::kMillisecond);

// A category by key in the full tree, as every drop and every new recipe does.
void BM_FindCategoryByKey(benchmark::State& state) {
    frmMain& w = Window();
    CurrentCookbook.clear();
    w.LoadRecipies();
    MainPanes& panes = MainPanes::Instance();
    const QString key = panes.FindByKey(panes.recipes, "Root")->child(39)->text().toUpper();
    for (auto _ : state) benchmark::DoNotOptimize(panes.FindByKey(panes.recipes, key));
    CheckQuiet(state);
}
BENCHMARK(BM_FindCategoryByKey);

}  // namespace
