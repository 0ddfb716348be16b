// The recipe store under a big household: showing a recipe from the tree
// (the object is made and walks its snapshot to the title), and the single-row
// lookups that every drag and menu command makes.
#include "Fixture.h"
#include "platform/Recordset.h"
#include "recipes/clsRecipies.h"

#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;

// The title ten from the end in the store's own title order: Display walks
// almost the whole snapshot to reach it.
QString TitleNearTheEnd() {
    Recordset rs;
    rs.Open("SELECT [Title] FROM Recipie ORDER BY [Title] DESC", Fixture::Household(), adOpenKeyset, adLockReadOnly);
    for (int i = 0; i < 10; ++i) rs.MoveNext();
    return rs.Field("Title").toString();
}

void BM_RecipiesMakeAndDisplayNearTheEnd(benchmark::State& state) {
    const QString title = TitleNearTheEnd();
    for (auto _ : state) {
        clsRecipies recipes;
        const QString text = recipes.Display(title);
        if (text.isEmpty()) state.SkipWithError("title not found");
        benchmark::DoNotOptimize(text);
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipiesMakeAndDisplayNearTheEnd)->Unit(benchmark::kMillisecond);

void BM_RecipiesExists(benchmark::State& state) {
    const QString title = TitleNearTheEnd();
    clsRecipies recipes;
    for (auto _ : state) {
        QString t = title;
        if (!recipes.Exists(t)) state.SkipWithError("not found");
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipiesExists)->Unit(benchmark::kMicrosecond);

void BM_RecipiesGetCookbookName(benchmark::State& state) {
    const QString title = TitleNearTheEnd();
    clsRecipies recipes;
    for (auto _ : state) {
        if (recipes.GetCookbookName(title).isEmpty()) state.SkipWithError("not found");
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipiesGetCookbookName)->Unit(benchmark::kMicrosecond);

void BM_RecipiesUpdateTimesUsed(benchmark::State& state) {
    const QString title = TitleNearTheEnd();
    clsRecipies recipes;
    for (auto _ : state) {
        QString t = title;
        recipes.UpdateTimesUsed(t);
    }
    CheckQuiet(state);
}
BENCHMARK(BM_RecipiesUpdateTimesUsed)->Unit(benchmark::kMicrosecond);

}  // namespace
