#pragma once

#include <QDateTime>
#include <QString>

// A big family's years of data: 10,000 recipes in 40 categories over 12 cookbooks,
// 100,000 shopping-list rows, 100,000 spending rows, 5,000 coupons under 500
// manufacturers, 2,000 products, 2,000 messages, 1,500 meals and the full
// nutrition table. Deterministic, so runs compare.
namespace LargeHousehold {

struct Sizes {
    int recipes = 10000;
    int categories = 40;
    int cookbooks = 12;
    int shopListRows = 100000;
    int spendRows = 100000;
    int coupons = 5000;
    int manufacturers = 500;
    int products = 2000;
    int messages = 2000;
    int meals = 1500;
};

// The household's own today: its dates are spread around it, so the program's
// clock is pinned there while the household is in use.
inline const QDateTime kNow(QDate(2026, 11, 22), QTime(10, 0));

// Builds the household database into `folder` (as Larderkeep.mdb, with the
// dictionary beside it), points the program at that folder and pins the clock
// at kNow. Built once per process; later calls copy the first build.
QString Prepare(const QString& folder, const Sizes& sizes = Sizes());

// The starting database and the dictionary in `folder`, with the program
// pointed at it: the same start on a household with nothing in it yet.
QString PrepareStarting(const QString& folder);

}  // namespace LargeHousehold
