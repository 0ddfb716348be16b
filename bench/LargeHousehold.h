#pragma once

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

// Builds the household database into `folder` (as Larderkeep.mdb, with the
// dictionary beside it) and points the program at that folder. Built once per
// process; later calls copy the first build.
QString Prepare(const QString& folder, const Sizes& sizes = Sizes());

}  // namespace LargeHousehold
