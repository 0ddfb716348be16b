// The message centre of a big household: the list the user sees at every
// start and after every new note. Target: 2,000 messages load in under 50 ms.
#include "Fixture.h"
#include "app/frmMain.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"

#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;
using Fixture::Window;

void BM_LoadMessages(benchmark::State& state) {
    frmMain& w = Window();
    for (auto _ : state) w.LoadMessages();
    const int rows = MainPanes::Instance().messages.rowCount();
    state.counters["messages"] = rows;
    if (rows != 2000) state.SkipWithError("the message centre did not fill");
    CheckQuiet(state);
}
BENCHMARK(BM_LoadMessages)->Unit(benchmark::kMillisecond);

// The same list with the user's long date form, the slowest display choice.
void BM_LoadMessagesLongDates(benchmark::State& state) {
    frmMain& w = Window();
    Registry().DateDisplayFormatWrite("dddd, mmm d yyyy");
    for (auto _ : state) w.LoadMessages();
    Registry().DateDisplayFormatWrite("mm/dd/yyyy");
    state.counters["messages"] = MainPanes::Instance().messages.rowCount();
    CheckQuiet(state);
}
BENCHMARK(BM_LoadMessagesLongDates)->Unit(benchmark::kMillisecond);

}  // namespace
