// The spending and price charts over a big household. Targets: the cost
// history of a product bought 1,000 times opens and charts in under 300 ms;
// the spending chart over 100,000 purchases of 2,000 products in under 500 ms.
#include "Fixture.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "products/ChartParts.h"
#include "products/frmProductCostHistory.h"
#include "products/frmProductSpending.h"

#include <QApplication>
#include <QCheckBox>
#include <QHorizontalBarSeries>
#include <QLineSeries>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using Fixture::CheckQuiet;

struct Household {
    QString manufacturer;
    QString product;
};

// A fresh household whose first product has been bought 1,000 times more,
// every few days of the kept months, and whose products are spread over the
// starting categories (the generator puts them all in one).
const Household& Prepared() {
    static QTemporaryDir dir;
    static Household h;
    if (!h.product.isEmpty()) return h;
    Fixture::Boxes();
    Fixture::OpenFreshHousehold(dir.filePath(QStringLiteral("home")));
    WriteBatch batch(ConnectionMain());

    Recordset product;
    product.Open(QStringLiteral("SELECT * FROM Product WHERE [ID] = 1"), ConnectionMain(), adOpenKeyset,
                 adLockReadOnly);
    h.manufacturer = TextOf(product.Field(QStringLiteral("Manufacturer")));
    h.product = TextOf(product.Field(QStringLiteral("Name")));
    product.Close();

    Recordset history;
    history.Open(QStringLiteral("SELECT * FROM SpendHistory"), ConnectionMain(), adOpenStatic, adLockOptimistic);
    const QDate from = ChartParts::DefaultFrom();
    for (int i = 0; i < 1000; ++i) {
        history.AddNew();
        history.setField(QStringLiteral("ItemID"), 1);
        history.setField(QStringLiteral("ItemListDate"), from.addDays(1 + i % 180));
        history.setField(QStringLiteral("ItemListName"), QStringLiteral("Bench"));
        history.setField(QStringLiteral("ItemListCost"), 1.0 + (i % 37) / 10.0);
        history.setField(QStringLiteral("ItemStore"), i % 2 ? QStringLiteral("Aldi") : QStringLiteral("Kroger"));
        history.Update();
    }
    history.Close();

    QStringList categories;
    Recordset names;
    names.Open(QStringLiteral("SELECT [Name] FROM ItemCategory ORDER BY [Name]"), ConnectionMain(), adOpenKeyset,
               adLockReadOnly);
    for (; !names.IsEOF(); names.MoveNext()) categories << TextOf(names.Field(QStringLiteral("Name")));
    names.Close();
    Recordset products;
    products.Open(QStringLiteral("SELECT [ID],[Category] FROM Product"), ConnectionMain(), adOpenKeyset,
                  adLockOptimistic);
    for (int i = 0; !products.IsEOF(); products.MoveNext(), ++i) {
        products.setField(QStringLiteral("Category"), categories[i % categories.size()]);
        products.Update();
    }
    return h;
}

int HistoryRows(qint32 id) {
    Recordset r;
    r.Open(QStringLiteral("SELECT COUNT(*) AS n FROM SpendHistory WHERE [ItemID] = ") + QString::number(id),
           ConnectionMain(), adOpenStatic, adLockReadOnly);
    return CLng(r.Field(QStringLiteral("n")));
}

// Opening the screen on the product, charting it and painting it once.
void BM_CostHistoryOpen1000Purchases(benchmark::State& state) {
    const Household& h = Prepared();
    int points = 0;
    for (auto _ : state) {
        frmProductCostHistory form(h.manufacturer, h.product);
        form.show();
        QApplication::processEvents();
        points = form.PriceSeries()->count();
    }
    state.counters["history_rows"] = HistoryRows(1);
    state.counters["weeks"] = points;
    if (points < 20) state.SkipWithError("the chart has too few weeks");
    CheckQuiet(state);
}
BENCHMARK(BM_CostHistoryOpen1000Purchases)->Unit(benchmark::kMillisecond);

// Opening on every category over the kept months, painted once.
void BM_SpendingOpenByCategory(benchmark::State& state) {
    Prepared();
    qsizetype bars = 0;
    for (auto _ : state) {
        frmProductSpending form;
        form.show();
        QApplication::processEvents();
        bars = form.Bars().size();
    }
    state.counters["bars"] = double(bars);
    if (bars == 0) state.SkipWithError("nothing was charted");
    CheckQuiet(state);
}
BENCHMARK(BM_SpendingOpenByCategory)->Unit(benchmark::kMillisecond);

// Every one of the 100,000 purchases, by category.
void BM_SpendingAllDates(benchmark::State& state) {
    Prepared();
    frmProductSpending form;
    form.chkAllDates->setChecked(true);
    form.show();
    for (auto _ : state) {
        form.SetChart();
        QApplication::processEvents();
    }
    int purchases = 0;
    for (const auto& bar : form.Bars()) purchases += bar.purchases;
    state.counters["purchases"] = purchases;
    CheckQuiet(state);
}
BENCHMARK(BM_SpendingAllDates)->Unit(benchmark::kMillisecond);

// For comparison: the same sums read one product at a time, as a query per
// product through the index.
void BM_SpendingOneQueryPerProduct(benchmark::State& state) {
    Prepared();
    for (auto _ : state) {
        Currency total;
        for (int id = 1; id <= 2000; ++id) {
            Recordset r;
            r.Open(QStringLiteral("SELECT [ItemID],[ItemListCost] FROM SpendHistory WHERE [ItemID] = ") +
                       QString::number(id),
                   ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            for (; !r.IsEOF(); r.MoveNext()) total += ChartParts::Money(r.Field(QStringLiteral("ItemListCost")));
        }
        benchmark::DoNotOptimize(total);
    }
}
BENCHMARK(BM_SpendingOneQueryPerProduct)->Unit(benchmark::kMillisecond);

}  // namespace
