// The meal planner and the recipe searches under a big household: opening the
// planner (its recipe tree holds every recipe), a title search, and a
// suggestion run against a history of 100,000 rows. Targets: under 500 ms,
// 50 ms and 1 s.
#include "Fixture.h"
#include "core/Globals.h"
#include "meals/frmNewMeal.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "recipes/frmRecipeList.h"
#include "recipes/frmRecipeSearch.h"
#include "recipes/modSuggest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;

void BM_OpenPlanner(benchmark::State& state) {
    Fixture::Household();
    for (auto _ : state) {
        frmNewMeal planner;
        benchmark::DoNotOptimize(planner.tvRecipes->topLevelItemCount());
    }
    CheckQuiet(state);
}
BENCHMARK(BM_OpenPlanner)->Unit(benchmark::kMillisecond);

void BM_TitleSearch(benchmark::State& state) {
    Fixture::Household();
    frmRecipeSearch search;
    search.cboField[0]->setCurrentText(QStringLiteral("Title"));
    search.cboOption[0]->setCurrentText(QStringLiteral("can contain"));
    search.txtSearch[0]->setText(QStringLiteral("Soup"));
    frmRecipeList list;
    for (auto _ : state) {
        if (list.LoadRecipes(search.SearchText()) <= 0) state.SkipWithError("nothing found");
    }
    CheckQuiet(state);
}
BENCHMARK(BM_TitleSearch)->Unit(benchmark::kMillisecond);

// A history of many years: 100,000 rows, the household's own categories only
// among the last, so that every first match is a long walk.
void AddHistory() {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM History"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    WriteBatch batch(ConnectionMain());
    for (int i = 0; i < 100000; ++i) {
        rs.AddNew();
        rs.setField(QStringLiteral("Category"), QStringLiteral("Old Style %1").arg(i));
        rs.setField(QStringLiteral("TimesUsed"), 1 + i % 5);
        rs.Update();
    }
    Recordset categories;
    categories.Open(QStringLiteral("SELECT [Name] FROM RecipieCategory"), ConnectionMain(), adOpenForwardOnly,
                    adLockReadOnly);
    for (; !categories.IsEOF(); categories.MoveNext()) {
        rs.AddNew();
        rs.setField(QStringLiteral("Category"), categories.Field(QStringLiteral("Name")));
        rs.setField(QStringLiteral("TimesUsed"), 3);
        rs.Update();
    }
}

void BM_Suggestions(benchmark::State& state) {
    static QTemporaryDir dir;
    static bool made = false;
    if (!made) {
        Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("home")));
        AddHistory();
        made = true;
    }
    for (auto _ : state) {
        QTreeWidget list;
        bool found = false;
        GetSuggestions(&list, QStringLiteral("chicken,rice"), {}, false, false, false, 50, found);
        if (!found) state.SkipWithError("nothing suggested");
        benchmark::DoNotOptimize(list.topLevelItemCount());
    }
    CheckQuiet(state);
}
BENCHMARK(BM_Suggestions)->Unit(benchmark::kMillisecond);

}  // namespace
