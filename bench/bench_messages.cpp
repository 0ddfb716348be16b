// The message centre of a big household: the list the user sees at every
// start and after every new note. Target: 2,000 messages load in under 50 ms.
#include "LargeHousehold.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/clsRegistry.h"
#include "app/frmMain.h"
#include "platform/Database.h"
#include "platform/ScriptedUi.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

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

frmMain& Window() {
    static QTemporaryDir dir;
    static frmMain* window = nullptr;
    if (!window) {
        ConnectionMain().Open(LargeHousehold::Prepare(dir.filePath("home")));
        Boxes();
        window = new frmMain;
        window->resize(1280, 900);
        window->show();
    }
    return *window;
}

void BM_LoadMessages(benchmark::State& state) {
    frmMain& w = Window();
    for (auto _ : state) w.LoadMessages();
    const int rows = MainPanes::Instance().messages.rowCount();
    state.counters["messages"] = rows;
    if (rows != 2000) state.SkipWithError("the message centre did not fill");
    if (Boxes().count() > 0) state.SkipWithError(Boxes().lastBox().prompt.toStdString().c_str());
}
BENCHMARK(BM_LoadMessages)->Unit(benchmark::kMillisecond);

// The same list with the user's long date form, the slowest display choice.
void BM_LoadMessagesLongDates(benchmark::State& state) {
    frmMain& w = Window();
    Registry().DateDisplayFormatWrite("dddd, mmm d yyyy");
    for (auto _ : state) w.LoadMessages();
    Registry().DateDisplayFormatWrite("mm/dd/yyyy");
    state.counters["messages"] = MainPanes::Instance().messages.rowCount();
    if (Boxes().count() > 0) state.SkipWithError(Boxes().lastBox().prompt.toStdString().c_str());
}
BENCHMARK(BM_LoadMessagesLongDates)->Unit(benchmark::kMillisecond);

}  // namespace
