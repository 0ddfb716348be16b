// Quantities turned to numbers and back, as every merge of a shopping list and
// every conversion does. Target: under 20 us a call for the two fraction
// routines, whatever the value. The chart and abbreviation screens are measured
// on a big household's data as the person opening them would wait.
#include "Fixture.h"
#include "measures/frmConversions.h"
#include "measures/frmMeasureAbbreviations.h"
#include "measures/modConvert.h"
#include "platform/Currency.h"

#include <QTableWidget>
#include <benchmark/benchmark.h>

namespace {

using Fixture::Boxes;
using Fixture::CheckQuiet;
using Fixture::Household;

// The value is changed by each call, so every iteration starts from a copy.
void BM_DecimalToFraction(benchmark::State& state, const char* text, const char* expected) {
    Boxes();
    const Currency start = *Currency::parse(QString::fromLatin1(text));
    for (auto _ : state) {
        Currency value = start;
        benchmark::DoNotOptimize(DecimalToFraction(value));
    }
    Currency value = start;
    if (DecimalToFraction(value) != QString::fromLatin1(expected)) state.SkipWithError("wrong fraction");
    CheckQuiet(state);
}
// Found with the first numerator.
BENCHMARK_CAPTURE(BM_DecimalToFraction, quarter, "1.25", "1 1/4")->Unit(benchmark::kMicrosecond);
// Found only at numerator 63: nearly the whole search.
BENCHMARK_CAPTURE(BM_DecimalToFraction, late_match, "0.9844", " 63/64")->Unit(benchmark::kMicrosecond);
// No fraction fits: every numerator is tried.
BENCHMARK_CAPTURE(BM_DecimalToFraction, no_match, "0.01", "")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_DecimalToFraction, whole_above_64, "100", "")->Unit(benchmark::kMicrosecond);

void BM_FractionToDecimal(benchmark::State& state, const char* text, const char* expected) {
    Boxes();
    const QString quantity = QString::fromLatin1(text);
    for (auto _ : state) benchmark::DoNotOptimize(FractionToDecimal(quantity));
    if (FractionToDecimal(quantity).toString() != QString::fromLatin1(expected)) state.SkipWithError("wrong value");
    CheckQuiet(state);
}
BENCHMARK_CAPTURE(BM_FractionToDecimal, mixed, "1 1/2", "1.5")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_FractionToDecimal, padded_thirds, "  12 2/3 ", "12.6667")->Unit(benchmark::kMicrosecond);

// One cell of the 841-cell chart, found by its two names.
void BM_ConvertUnit(benchmark::State& state) {
    Household();
    for (auto _ : state)
        benchmark::DoNotOptimize(ConvertUnit(QStringLiteral("cup"), QStringLiteral("1 1/2"), QStringLiteral("tbsp")));
    if (ConvertUnit(QStringLiteral("cup"), QStringLiteral("1 1/2"), QStringLiteral("tbsp")) != QStringLiteral("24"))
        state.SkipWithError("wrong conversion");
    CheckQuiet(state);
}
BENCHMARK(BM_ConvertUnit)->Unit(benchmark::kMicrosecond);

// Opening the chart screen: every cell read and laid out.
void BM_OpenConversionChart(benchmark::State& state) {
    Household();
    int measures = 0;
    for (auto _ : state) {
        frmConversions chart;
        measures = chart.Measures();
    }
    state.counters["measures"] = measures;
    CheckQuiet(state);
}
BENCHMARK(BM_OpenConversionChart)->Unit(benchmark::kMillisecond);

// Saving the chart: the stored cells deleted, every cell written again.
void BM_SaveConversionChart(benchmark::State& state) {
    Household();
    frmConversions chart;
    for (auto _ : state) chart.mnuSaveGrid_Click();
    state.counters["cells"] = chart.Measures() * chart.Measures();
    CheckQuiet(state);
}
BENCHMARK(BM_SaveConversionChart)->Unit(benchmark::kMillisecond);

// Gathering the units of 10,000 recipes that the abbreviation list lacks.
void BM_FindUnlistedAbbreviations(benchmark::State& state) {
    Household();
    int rows = 0;
    for (auto _ : state) {
        frmMeasureAbbreviations form;
        form.mnuFindUnlistedAbbr_Click();
        rows = form.flxAbbreviation->rowCount();
    }
    state.counters["grid_rows"] = rows;
    CheckQuiet(state);
}
BENCHMARK(BM_FindUnlistedAbbreviations)->Unit(benchmark::kMillisecond);

}  // namespace
