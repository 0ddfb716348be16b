#include "LargeHousehold.h"

#include "platform/Clock.h"
#include "platform/FirstStart.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>
#include <functional>
#include <sqlite3.h>
#include <stdexcept>

namespace {

const QStringList kWords = {"Apple",   "Basil",  "Carrot",  "Dill",     "Egg",    "Fennel", "Garlic",
                            "Honey",   "Inca",   "Juniper", "Kale",     "Lemon",  "Mango",  "Nutmeg",
                            "Olive",   "Pepper", "Quince",  "Rice",     "Sage",   "Thyme",  "Umami",
                            "Vanilla", "Walnut", "Yam",     "Zucchini", "Barley", "Cumin",  "Ginger"};
const QStringList kDishes = {"Pie", "Stew", "Salad", "Soup", "Bread", "Roast", "Casserole", "Cake", "Curry", "Pasta"};
const QStringList kUnits = {"cup", "tbsp", "tsp", "oz", "lb", "g", "can", "pkg", "clove", "pinch"};
const QStringList kStores = {"Aldi",  "Kroger", "Safeway", "Publix",       "Wegmans",
                             "H-E-B", "Giant",  "Meijer",  "Trader Joe's", "Food Lion"};

// Points the program's home and settings at `folder`.
void UseFolder(const QString& folder) {
    qputenv("LARDERKEEP_HOME", QFile::encodeName(folder));
    qputenv("LARDERKEEP_CONFIG", QFile::encodeName(QDir(folder).filePath(QStringLiteral("Larderkeep.ini"))));
}

QString Word(int i) { return kWords[i % kWords.size()]; }
QString Iso(const QDate& d) { return d.toString(QStringLiteral("yyyy-MM-dd")); }

class Writer {
public:
    explicit Writer(const QString& path) {
        if (sqlite3_open(QFile::encodeName(path).constData(), &db_) != SQLITE_OK)
            throw std::runtime_error("cannot open the household database");
        Exec("PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF; BEGIN;");
    }
    ~Writer() {
        Exec("COMMIT;");
        sqlite3_close(db_);
    }
    void Exec(const char* sql) {
        char* err = nullptr;
        if (sqlite3_exec(db_, sql, nullptr, nullptr, &err) != SQLITE_OK) {
            const std::string why = err ? err : "exec failed";
            sqlite3_free(err);
            throw std::runtime_error(why);
        }
    }
    // Inserts `count` rows; `row(i)` gives the values in the order of `columns`.
    void Insert(const QString& table, const QStringList& columns, int count,
                const std::function<QVariantList(int)>& row) {
        QStringList quoted, marks;
        for (const QString& c : columns) {
            quoted << QLatin1Char('"') + c + QLatin1Char('"');
            marks << QStringLiteral("?");
        }
        const QByteArray sql =
            QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)").arg(table, quoted.join(','), marks.join(',')).toUtf8();
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(db_, sql.constData(), -1, &st, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db_));
        for (int i = 0; i < count; ++i) {
            const QVariantList values = row(i);
            for (int c = 0; c < values.size(); ++c) {
                const QVariant& v = values[c];
                if (v.typeId() == QMetaType::Int || v.typeId() == QMetaType::Bool)
                    sqlite3_bind_int64(st, c + 1, v.toLongLong());
                else if (v.typeId() == QMetaType::Double)
                    sqlite3_bind_double(st, c + 1, v.toDouble());
                else {
                    const QByteArray t = v.toString().toUtf8();
                    sqlite3_bind_text(st, c + 1, t.constData(), int(t.size()), SQLITE_TRANSIENT);
                }
            }
            if (sqlite3_step(st) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db_));
            sqlite3_reset(st);
        }
        sqlite3_finalize(st);
    }

private:
    sqlite3* db_ = nullptr;
};

void Fill(const QString& path, const LargeHousehold::Sizes& n) {
    Writer w(path);
    const QDate today = LargeHousehold::kNow.date();

    QStringList cookbooks;
    for (int i = 0; i < n.cookbooks; ++i) cookbooks << QStringLiteral("%1's Cookbook").arg(Word(i * 3));
    w.Insert("Cookbook", {"Name", "Specialty"}, n.cookbooks, [&](int i) { return QVariantList{cookbooks[i], "None"}; });

    QStringList categories;
    for (int i = 0; i < n.categories; ++i) categories << QStringLiteral("%1 Dishes %2").arg(Word(i)).arg(i);
    w.Insert("RecipieCategory", {"Name"}, n.categories, [&](int i) { return QVariantList{categories[i]}; });

    QStringList recipeColumns = {"Title",    "Style",        "Course",    "PrepTime",     "Servings",
                                 "Favorite", "CookbookName", "TimesUsed", "Instructions", "ImageFile"};
    for (int s = 1; s <= 8; ++s) recipeColumns << QStringLiteral("Ingredient%1").arg(s);
    w.Insert("Recipie", recipeColumns, n.recipes, [&](int i) {
        QString style = categories[i % n.categories];
        if (i % 3 == 0) style += QLatin1Char(',') + categories[(i * 7 + 5) % n.categories];
        QVariantList v{
            QStringLiteral("%1 %2 %3").arg(Word(i), kDishes[i % kDishes.size()]).arg(i, 5, 10, QLatin1Char('0')),
            style,
            i % 2 ? "Main Course" : "Appetizer",
            QStringLiteral("%1 min").arg(10 + i % 50),
            QStringLiteral("%1 Servings").arg(2 + i % 6),
            int(i % 10 == 0),
            cookbooks[i % n.cookbooks],
            i % 17,
            QStringLiteral("Mix well.~Bake at 350 for %1 minutes.~Serve warm.").arg(20 + i % 40),
            ""};
        for (int s = 0; s < 8; ++s)
            v << QStringLiteral("%1%%%2%%%3%%chopped")
                     .arg(s % 3 ? "1 1/2" : "2", kUnits[(i + s) % kUnits.size()], Word(i + s).toLower());
        return v;
    });

    w.Insert("Store", {"Name", "isles", "FaxNumber"}, kStores.size(), [&](int i) {
        return QVariantList{kStores[i], 12 + i, QStringLiteral("555-01%1").arg(i, 2, 10, QLatin1Char('0'))};
    });

    QStringList manufacturers;
    for (int i = 0; i < n.manufacturers; ++i) manufacturers << QStringLiteral("%1 Foods %2").arg(Word(i * 5)).arg(i);
    w.Insert("Manufacturer", {"Name", "UPC_Number"}, n.manufacturers, [&](int i) {
        return QVariantList{manufacturers[i], QStringLiteral("%1").arg(10000 + i)};
    });

    w.Insert("Product",
             {"Manufacturer", "Name", "Size", "Category", "Cost", "lookout", "lastpurchasedquantity",
              "LastPurchasedDate", "TimesPurchased", "Barcode", "UPC_Number", "UPC_Family"},
             n.products, [&](int i) {
                 const bool onHand = i % 4 == 0;
                 return QVariantList{manufacturers[i % n.manufacturers],
                                     QStringLiteral("%1 %2").arg(Word(i), kDishes[i % kDishes.size()]),
                                     QStringLiteral("%1 oz").arg(8 + i % 24),
                                     "Groceries",
                                     1.0 + (i % 900) / 100.0,
                                     int(i % 9 == 0),
                                     1 + i % 4,
                                     onHand ? Iso(today.addDays(-(i % 60))) : QString("1950-01-01"),
                                     i % 30,
                                     QStringLiteral("0%1").arg(10000000000LL + i),
                                     QStringLiteral("%1").arg(10000 + i % n.manufacturers),
                                     QStringLiteral("%1").arg(i % 100)};
             });

    w.Insert("Coupons",
             {"Manufacturer", "Product", "Size", "Value", "DiscountDouble", "Expiration", "Quantity", "Category",
              "Store", "OwnerList", "MarkForPurge", "Comments"},
             n.coupons, [&](int i) {
                 QString expiration;
                 if (i % 10 == 0)
                     expiration = "Never";
                 else if (i % 5 == 1)
                     expiration = Iso(today.addDays(-(1 + i % 90)));  // one in five expired
                 else
                     expiration = Iso(today.addDays(1 + i % 200));
                 return QVariantList{manufacturers[i % n.manufacturers],
                                     QStringLiteral("%1 %2").arg(Word(i), kDishes[i % kDishes.size()]),
                                     QStringLiteral("%1 oz").arg(8 + i % 24),
                                     QStringLiteral("%1").arg(0.25 + (i % 8) * 0.25),
                                     i % 2 ? "1" : "0",
                                     expiration,
                                     "1",
                                     "Groceries",
                                     " ",
                                     "",
                                     0,
                                     ""};
             });

    const int lists = qMax(1, n.shopListRows / 100);
    w.Insert("ShopList",
             {"Name", "Store", "Dates", "ItemName", "ItemQuantity", "ItemManufacturer", "ItemSize", "ItemStyle",
              "ItemCost", "ItemCoupon", "Coupon", "CouponID", "Recurring", "IsCurrent", "ItemSource", "ShopIsle",
              "ShopOrder", "PalmSynch"},
             n.shopListRows, [&](int i) {
                 const int list = i / 100;
                 return QVariantList{QStringLiteral("List %1").arg(list, 4, 10, QLatin1Char('0')),
                                     kStores[list % kStores.size()],
                                     Iso(today.addDays(-(lists - list) * 7)),
                                     QStringLiteral("%1 %2").arg(Word(i), kDishes[i % kDishes.size()]),
                                     QString::number(1 + i % 5),
                                     i % 3 ? "Any" : manufacturers[i % n.manufacturers],
                                     QStringLiteral("%1 oz").arg(8 + i % 24),
                                     "Groceries",
                                     1.0 + (i % 700) / 100.0,
                                     "",
                                     0,
                                     0,
                                     " ",
                                     int(list == lists - 1),
                                     "",
                                     "",
                                     0,
                                     0};
             });

    w.Insert("SpendHistory",
             {"ItemID", "ItemListDate", "ItemListName", "ItemListCost", "ItemStore", "CouponID", "ItemCouponID"},
             n.spendRows, [&](int i) {
                 return QVariantList{1 + i % n.products,
                                     Iso(today.addDays(-(i % 720))),
                                     QStringLiteral("List %1").arg(i / 100, 4, 10, QLatin1Char('0')),
                                     0.5 + (i % 900) / 100.0,
                                     kStores[i % kStores.size()],
                                     0,
                                     0};
             });

    w.Insert("Messages", {"Title", "Body", "Date", "Type", "ReminderTime"}, n.messages, [&](int i) {
        const QString date = i % 3 == 0 ? QString("None") : Iso(today.addDays(5 + i % 300));
        return QVariantList{
            QStringLiteral("Note %1 about %2").arg(i).arg(Word(i)),
            QStringLiteral("Remember the %1 for the %2.").arg(Word(i + 1).toLower(), kDishes[i % 10].toLower()), date,
            1 + i % 3, i % 4};
    });

    w.Insert("Meal",
             {"Name", "Meal", "Category", "Dates", "Appetizer", "MainCourse", "SideDishOne", "SideDishTwo",
              "SideDishThree", "SideDishfour", "Desert", "Favorite", "Cheap"},
             n.meals, [&](int i) {
                 const QDate d = today.addDays(1 + i / 3);
                 static const char* const kTimes[] = {"Breakfast", "Lunch", "Dinner"};
                 auto title = [&](int k) {
                     return QStringLiteral("%1 %2 %3")
                         .arg(Word(k), kDishes[k % kDishes.size()])
                         .arg(k, 5, 10, QLatin1Char('0'));
                 };
                 return QVariantList{d.toString(QStringLiteral("dddd, MMM d yyyy")),
                                     kTimes[i % 3],
                                     "Family",
                                     Iso(d),
                                     title(i % n.recipes),
                                     title((i * 7) % n.recipes),
                                     " ",
                                     " ",
                                     " ",
                                     " ",
                                     title((i * 13) % n.recipes),
                                     int(i % 20 == 0),
                                     0};
             });
}

}  // namespace

namespace LargeHousehold {

QString Prepare(const QString& folder, const Sizes& sizes) {
    static QTemporaryDir cache;
    static QString built;
    if (built.isEmpty()) {
        built = cache.filePath(QStringLiteral("household.mdb"));
        FirstStart::CreateTemplateDatabase(built);
        Fill(built, sizes);
        FirstStart::WriteDictionary(cache.filePath(QStringLiteral("dictionary.dic")));
    }
    QDir().mkpath(folder);
    const QString target = QDir(folder).filePath(QStringLiteral("Larderkeep.mdb"));
    QFile::remove(target);
    QFile::copy(built, target);
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    QFile::copy(cache.filePath(QStringLiteral("dictionary.dic")),
                QDir(folder).filePath(QStringLiteral("dictionary.dic")));
    UseFolder(folder);
    Clock::Pin(kNow);
    return target;
}

QString PrepareStarting(const QString& folder) {
    QDir().mkpath(folder);
    const QString target = QDir(folder).filePath(QStringLiteral("Larderkeep.mdb"));
    FirstStart::CreateTemplateDatabase(target);
    FirstStart::WriteDictionary(QDir(folder).filePath(QStringLiteral("dictionary.dic")));
    UseFolder(folder);
    return target;
}

}  // namespace LargeHousehold
