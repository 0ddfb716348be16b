#pragma once

#include <QString>
#include <benchmark/benchmark.h>

class Database;
class ScriptedUi;
class frmMain;

// What the benchmarks of one program share: the large household opened once
// as the main connection, one main window over it, and message boxes recorded
// instead of waited on.
namespace Fixture {

// Installed on first use; a box during a run would be an error report.
ScriptedUi& Boxes();
// Fails the benchmark with the last box's text when a box was shown.
void CheckQuiet(benchmark::State& state);

// The household as the main connection, for the whole program.
Database& Household();
// A fresh copy of the household in `folder` as the main connection, for runs
// that change it.
void OpenFreshHousehold(const QString& folder);

// One main window over the household for the whole program, shown as the user
// sees it; it goes with the application, before the panes it shows.
frmMain& Window();

// How many ShopList rows are on the Current list now.
int CurrentListRows();

}  // namespace Fixture
