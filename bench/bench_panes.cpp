// Filling the main window's panes from a big household: what the user waits
// on at every start and after every screen that changes recipes, coupons,
// the list or the meals. Target: the recipe tree of 10,000 recipes in 40
// categories loads in under 150 ms.
#include "Fixture.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"

#include <QStandardItem>
#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;

// The shared window, with the recipe and coupon trees given their roots.
frmMain& Window() {
    static bool rooted = false;
    frmMain& window = Fixture::Window();
    if (!rooted) {
        MainPanes& panes = MainPanes::Instance();
        panes.Clear(panes.recipes);
        panes.SetBold(panes.AddNode(panes.recipes, QString(), "Root", "Recipies"));
        panes.Clear(panes.coupons);
        panes.SetBold(panes.AddNode(panes.coupons, QString(), "Root", "Coupons"));
        rooted = true;
    }
    return window;
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
