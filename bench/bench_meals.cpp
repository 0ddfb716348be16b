// The meal audit that runs at every start, over a household that kept planning
// for years: 10,000 meals, 8,500 of them past. Target: under 500 ms whether the
// past meals are deleted or moved on a week.
#include "Fixture.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/ScriptedUi.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kPastMeals = 8500;

// The household's 1,500 planned meals lie ahead; these lie behind, three
// mealtimes a day back over the years.
void AddPastMeals() {
    static const char* const kTimes[] = {"Breakfast", "Lunch", "Dinner"};
    const QDate today = Clock::Today();
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Meal"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    WriteBatch batch(ConnectionMain());
    for (int i = 0; i < kPastMeals; ++i) {
        const QDate day = today.addDays(-1 - i / 3);
        rs.AddNew();
        rs.setField(QStringLiteral("Name"), day.toString(QStringLiteral("dddd, MMM d yyyy")));
        rs.setField(QStringLiteral("Meal"), QString::fromLatin1(kTimes[i % 3]));
        rs.setField(QStringLiteral("Dates"), day);
        rs.setField(QStringLiteral("MainCourse"), QStringLiteral("Stew %1").arg(i % 400));
        rs.setField(QStringLiteral("Favorite"), i % 20 == 0);
        rs.Update();
    }
}

int Count(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenStatic, adLockReadOnly);
    return rs.Field(QStringLiteral("n")).toInt();
}

// Argument: EXPIRED_MEAL_ACTION, 1 deleting the past meals, 2 moving them on.
void BM_AuditMeals(benchmark::State& state) {
    const int action = int(state.range(0));
    ScriptedUi& boxes = Fixture::Boxes();
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("home%1").arg(run++)));
        AddPastMeals();
        Registry().MealAction(action);
        boxes.clear();
        state.ResumeTiming();

        clsMeal().AuditMeals();

        state.PauseTiming();
        const QString expected =
            action == 1 ? QStringLiteral("%1 Meal(s) were deleted by the Auto-Purge process.")
                        : QStringLiteral("%1 Meal(s) dates were advanced 7 days by the Auto-Purge process.");
        if (boxes.count() != 1 || boxes.lastBox().prompt != expected.arg(kPastMeals))
            state.SkipWithError(boxes.count() ? boxes.lastBox().prompt.toStdString().c_str() : "no notice");
        state.counters["meals_left"] = Count(QStringLiteral("SELECT COUNT(*) AS n FROM Meal"));
        ConnectionMain().Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AuditMeals)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
