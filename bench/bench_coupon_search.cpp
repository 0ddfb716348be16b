// Crossing the big household's 10,000 recipes with its 5,000 coupons: every
// recipe's ingredients against every coupon's product, with the results
// window showing progress and painting as it goes.
#include "Fixture.h"
#include "core/Globals.h"
#include "coupons/frmAvailableCoupons.h"
#include "coupons/frmRecipeCouponSearchResults.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

void Cross(benchmark::State& state, const QString& sql) {
    Fixture::Household();
    for (auto _ : state) {
        frmRecipeCouponSearchResults results;
        results.show();
        results.GetSearchResults(sql, 0);
        QCoreApplication::processEvents();  // the first lines painted
        state.counters["lines"] = double(results.LineCount());
    }
    Fixture::CheckQuiet(state);
}

void BM_RecipeCouponSearchAllRecipes(benchmark::State& state) {
    Cross(state, QStringLiteral("SELECT * FROM Recipie ORDER BY [Title]"));
}
BENCHMARK(BM_RecipeCouponSearchAllRecipes)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_RecipeCouponSearchFavorites(benchmark::State& state) {
    Cross(state, QStringLiteral("SELECT * FROM Recipie WHERE [Favorite] = True ORDER BY [Title]"));
}
BENCHMARK(BM_RecipeCouponSearchFavorites)->Unit(benchmark::kMillisecond)->Iterations(5);

// One recipe's pick list, a query per word of each ingredient.
void BM_RecipeCouponPickList(benchmark::State& state) {
    Fixture::Household();
    Recordset rs;
    rs.Open("SELECT [Title] FROM Recipie WHERE [ID] = 5000", ConnectionMain(), adOpenStatic, adLockReadOnly);
    const QString title = rs.Field("Title").toString();
    rs.Close();
    for (auto _ : state) {
        frmAvailableCoupons pick;
        benchmark::DoNotOptimize(pick.GetRecipeCoupons(title));
    }
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_RecipeCouponPickList)->Unit(benchmark::kMillisecond);

}  // namespace
