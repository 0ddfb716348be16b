// Coupon matching and the purge over a big household's 5,000 coupons.
#include "Fixture.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "coupons/clsCoupon.h"
#include "coupons/frmAllCoupons.h"
#include "platform/Database.h"
#include "platform/Recordset.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using Fixture::OpenFreshHousehold;

void BM_CouponExistsMiss(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenFreshHousehold(dir.filePath("home"));
    clsCoupon coupon;
    for (auto _ : state) benchmark::DoNotOptimize(coupon.Exists("Nobody", "Nothing at all", "0 oz"));
}
BENCHMARK(BM_CouponExistsMiss)->Unit(benchmark::kMillisecond);

void BM_CouponExistsExactHit(benchmark::State& state) {
    static QTemporaryDir dir;
    OpenFreshHousehold(dir.filePath("home"));
    Recordset rs;
    rs.Open("SELECT * FROM Coupons WHERE [ID] = 4990", ConnectionMain(), adOpenStatic, adLockReadOnly);
    const QString m = rs.Field("Manufacturer").toString(), p = rs.Field("Product").toString(),
                  s = rs.Field("Size").toString();
    rs.Close();
    clsCoupon coupon;
    for (auto _ : state) benchmark::DoNotOptimize(coupon.Exists(m, p, s));
}
BENCHMARK(BM_CouponExistsExactHit)->Unit(benchmark::kMillisecond);

// 1,000 of the 5,000 coupons are past their date; each run starts from a fresh copy.
void BM_AutoPurge1000Of5000(benchmark::State& state) {
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        OpenFreshHousehold(dir.filePath(QStringLiteral("home%1").arg(run++)));
        MainPanes::Instance().ClearAll();
        state.ResumeTiming();
        clsCoupon coupon;
        coupon.AutoPurge(false, true);
        state.PauseTiming();
        Recordset rs;
        rs.Open("SELECT COUNT(*) AS n FROM Coupons", ConnectionMain(), adOpenStatic, adLockReadOnly);
        state.counters["coupons_left"] = rs.Field("n").toDouble();
        rs.Close();
        ConnectionMain().Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AutoPurge1000Of5000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The full coupon list: the screen made and all 5,000 coupons listed, as the
// person waits for it to open.
void BM_AllCouponsList5000(benchmark::State& state) {
    Fixture::Household();
    int lines = 0;
    for (auto _ : state) {
        frmAllCoupons list;
        list.LoadCoupons();
        lines = list.CouponCount();
    }
    state.counters["lines"] = lines;
    Fixture::CheckQuiet(state);
}
BENCHMARK(BM_AllCouponsList5000)->Name("frmAllCoupons over 5,000 coupons")->Unit(benchmark::kMillisecond);

}  // namespace
