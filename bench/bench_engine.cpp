// The database engine under a big household's load: adding rows the way every
// class does, and reading a pane's worth of rows.
#include "Fixture.h"
#include "platform/Database.h"
#include "platform/FirstStart.h"
#include "platform/Recordset.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using Fixture::Household;

// The starting database, whose SpendHistory is empty: the same add on a small
// table shows whether the cost grows with the table.
Database& Template() {
    static QTemporaryDir dir;
    static Database db;
    if (!db.IsOpen()) {
        const QString path = dir.filePath("Larderkeep.mdb");
        FirstStart::CreateTemplateDatabase(path);
        db.Open(path);
    }
    return db;
}

// Open the whole table, move last, add, assign, update, close: one row.
void AddRowTo(benchmark::State& state, Database& db, const QString& table, const QString& nameColumn) {
    int i = 0;
    for (auto _ : state) {
        Recordset rs;
        rs.Open("SELECT * FROM " + table, db, adOpenStatic, adLockOptimistic);
        if (!rs.IsEOF()) rs.MoveLast();
        rs.AddNew();
        rs.setField(nameColumn, QStringLiteral("bench %1").arg(++i));
        rs.setField("ItemListCost", 1.25);
        rs.setField("ItemListDate", "11/22/2026");
        rs.Update();
        benchmark::DoNotOptimize(rs.Field("SpendID"));
        rs.Close();
    }
    Recordset count;
    count.Open("SELECT COUNT(*) AS n FROM " + table, db, adOpenKeyset, adLockReadOnly);
    state.counters["table_rows"] = count.Field("n").toDouble();
    state.counters["wal_kb"] = QFileInfo(db.Path() + "-wal").size() / 1024.0;
}

void BM_AddNewUpdateOn100kRows(benchmark::State& state) {
    AddRowTo(state, Household(), "SpendHistory", "ItemListName");
}
BENCHMARK(BM_AddNewUpdateOn100kRows)->Unit(benchmark::kMicrosecond)->Iterations(2000);

void BM_AddNewUpdateOnSmallTable(benchmark::State& state) {
    AddRowTo(state, Template(), "SpendHistory", "ItemListName");
}
BENCHMARK(BM_AddNewUpdateOnSmallTable)->Unit(benchmark::kMicrosecond)->Iterations(2000);

void BM_Read10kRowsThreeColumns(benchmark::State& state) {
    Database& db = Household();
    for (auto _ : state) {
        Recordset rs;
        rs.Open("SELECT [Title],[Style],[CookbookName] FROM Recipie ORDER BY [Title]", db, adOpenKeyset,
                adLockReadOnly);
        int rows = 0;
        while (!rs.IsEOF()) {
            benchmark::DoNotOptimize(rs.Field("Title"));
            benchmark::DoNotOptimize(rs.Field("Style"));
            benchmark::DoNotOptimize(rs.Field("CookbookName"));
            rs.MoveNext();
            ++rows;
        }
        if (rows != 10000) state.SkipWithError("expected 10,000 recipes");
    }
}
BENCHMARK(BM_Read10kRowsThreeColumns)->Unit(benchmark::kMillisecond);

void BM_KeyLookupWithRecordCount(benchmark::State& state) {
    Database& db = Household();
    for (auto _ : state) {
        Recordset rs;
        rs.Open("SELECT * FROM Recipie WHERE [Title] = 'Walnut Bread 09998'", db, adOpenKeyset, adLockReadOnly);
        benchmark::DoNotOptimize(rs.RecordCount());
    }
}
BENCHMARK(BM_KeyLookupWithRecordCount)->Unit(benchmark::kMicrosecond);

}  // namespace
