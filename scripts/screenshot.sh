#!/usr/bin/env bash
# Takes docs/main-window.png: the program started on a small sample household
# (a few cookbooks and recipes, messages, a current list, meals and coupons) in
# a throw-away program folder, on a virtual X display.
#
#   scripts/screenshot.sh              builds, then shoots
#   BUILD_DIR=build-x scripts/screenshot.sh
#   scripts/screenshot.sh --no-build   uses what BUILD_DIR already holds
#
# The household is written by a small helper that links the program's own
# library, so the rows go in through the program's database engine. The same
# helper grabs the screen once the window has settled.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
case "$build" in /*) ;; *) build=$root/$build ;; esac
out=${OUT:-$root/docs/main-window.png}
size=${SCREEN_SIZE:-1280x860}

if [ "${1:-}" != "--no-build" ]; then
  "$root/scripts/install-deps.sh"
  generator=$(command -v ninja >/dev/null 2>&1 && echo Ninja || echo "Unix Makefiles")
  cmake -S "$root" -B "$build" -G "$generator" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build "$build" -j "$(nproc 2>/dev/null || echo 2)" --target larderkeep
fi
[ -x "$build/larderkeep" ] || { echo "no program in $build" >&2; exit 1; }
lib=$(find "$build" -maxdepth 1 -name 'liblarderkeep_lib.a' | head -1)
[ -n "$lib" ] || { echo "no liblarderkeep_lib.a in $build" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# --- the helper ----------------------------------------------------------------
mkdir -p "$work/helper"
cat > "$work/helper/CMakeLists.txt" <<EOF
cmake_minimum_required(VERSION 3.25)
project(LarderkeepScreenshot LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets PrintSupport Network Charts)
find_package(SQLite3 REQUIRED)
add_executable(shot shot.cpp)
target_include_directories(shot PRIVATE "$root")
target_link_libraries(shot PRIVATE "-Wl,--whole-archive" "$lib" "-Wl,--no-whole-archive"
  Qt6::Core Qt6::Gui Qt6::Widgets Qt6::PrintSupport Qt6::Network Qt6::Charts SQLite::SQLite3)
EOF

cat > "$work/helper/shot.cpp" <<'EOF'
// shot seed          fills the program folder named by LARDERKEEP_HOME
// shot grab <png>    waits for a settled screen and saves the window's part
#include "core/Globals.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/FirstStart.h"
#include "platform/ProgramFolder.h"
#include "platform/Recordset.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <cstdio>

namespace {

void Add(const QString& table, const QVariantMap& values) {
    Recordset rs;
    rs.Open("SELECT * FROM " + table, ConnectionMain(), adOpenStatic, adLockOptimistic);
    rs.AddNew();
    for (auto it = values.begin(); it != values.end(); ++it) rs.setField(it.key(), it.value());
    rs.Update();
}

QString Day(int offset) { return Clock::Today().addDays(offset).toString("MM/dd/yyyy"); }
QString LongDay(int offset) { return Format(QVariant(Clock::Today().addDays(offset)), "dddd, mmm d yyyy"); }

int Seed() {
    QString error;
    if (!FirstStart::Run(&error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    ConnectionMain().Open(ProgramFolder::File("Larderkeep.mdb"));

    for (const char* book : {"Grandma's Kitchen", "Weeknight Dinners", "Sunday Baking"})
        Add("Cookbook", {{"Name", book}, {"Specialty", "None"}});

    struct R { const char* title; const char* style; const char* book; bool favourite; };
    const R recipes[] = {
        {"Chicken Noodle Soup", "Soups,Poultry", "General", true},
        {"Minestrone", "Soups", "General", false},
        {"Roast Chicken with Lemon", "Poultry,Main Dishes", "General", true},
        {"Shepherd's Pie", "Main Dishes,Meat", "General", false},
        {"Spaghetti Bolognese", "Pasta,Main Dishes", "General", false},
        {"Macaroni and Cheese", "Pasta,Kids", "General", true},
        {"Caesar Salad", "Salads", "General", false},
        {"Greek Salad", "Salads,Low Fat", "General", false},
        {"Grilled Salmon", "Fish,Grilling", "General", false},
        {"Banana Bread", "Breads", "General", true},
        {"Apple Pie", "Pies,Desserts", "General", false},
        {"Chocolate Chip Cookies", "Cookies,Kids", "General", false},
        {"Pancakes", "Breakfast", "General", false},
        {"Grandma's Pot Roast", "Meat", "Grandma's Kitchen", true},
        {"Ten-Minute Tacos", "Quick", "Weeknight Dinners", false},
    };
    for (const R& r : recipes)
        Add("Recipie", {{"Title", r.title}, {"Style", r.style}, {"CookbookName", r.book}, {"Favorite", r.favourite},
                        {"Servings", "4 Servings"}, {"PrepTime", "30 min"}, {"TimesUsed", 0},
                        {"Ingredient1", "1%%cup%%flour%%sifted"}, {"Instructions", "Mix.~Cook.~Serve."}});

    Add("Messages", {{"Title", "Call the butcher about the turkey"}, {"Body", "Order a 14 lb turkey for the holiday."},
                     {"Date", Day(3)}, {"Type", 1}, {"ReminderTime", 1}});
    Add("Messages", {{"Title", "Dentist for Sam"}, {"Body", "Tuesday at 4 pm, bring the form."},
                     {"Date", Day(9)}, {"Type", 1}, {"ReminderTime", 1}});
    Add("Messages", {{"Title", "Try the new farmers market"}, {"Body", "Saturdays 8-12 on Main Street."},
                     {"Date", "None"}, {"Type", 2}, {"ReminderTime", 4}});
    Add("Messages", {{"Title", "Aunt May's cookie recipe"}, {"Body", "Ask her for the oatmeal raisin one."},
                     {"Date", "None"}, {"Type", 2}, {"ReminderTime", 4}});

    struct I { const char* item; const char* maker; const char* qty; const char* size; const char* style; };
    const I items[] = {
        {"Milk", "Any", "2", "1 gal", "Dairy"},
        {"Eggs", "Any", "1", "dozen", "Dairy"},
        {"Cheerios", "General Mills", "1", "18 oz", "Breakfast Cereal"},
        {"Bananas", "Any", "6", "each", "Produce"},
        {"Spaghetti", "Barilla", "2", "16 oz", "Pasta"},
        {"Ground Beef", "Any", "2", "lb", "Meat"},
        {"Cheddar Cheese", "Tillamook", "1", "8 oz", "Cheese"},
        {"Romaine Lettuce", "Any", "2", "head", "Produce"},
        {"Coffee", "Folgers", "1", "30 oz", "Coffee and Tea"},
    };
    for (const I& i : items)
        Add("ShopList", {{"Name", "Weekly Groceries"}, {"Store", "Any"}, {"Dates", Day(0)}, {"ItemName", i.item},
                         {"ItemManufacturer", i.maker}, {"ItemQuantity", i.qty}, {"ItemSize", i.size},
                         {"ItemStyle", i.style}, {"IsCurrent", true}, {"Recurring", " "}});

    struct M { int day; const char* main; const char* side; const char* desert; };
    const M meals[] = {{1, "Roast Chicken with Lemon", "Caesar Salad", "Apple Pie"},
                       {3, "Spaghetti Bolognese", "Greek Salad", ""},
                       {5, "Grilled Salmon", "Minestrone", ""},
                       {8, "Shepherd's Pie", "", "Chocolate Chip Cookies"}};
    for (const M& m : meals)
        Add("Meal", {{"Name", LongDay(m.day)}, {"Meal", "Dinner"}, {"Dates", Day(m.day)}, {"MainCourse", m.main},
                     {"SideDishOne", m.side}, {"Desert", m.desert}, {"Appetizer", ""}});
    Add("Meal", {{"Name", "Movie Night"}, {"Meal", "Dinner"}, {"Dates", ""}, {"MainCourse", "Ten-Minute Tacos"},
                 {"Favorite", true}});

    struct C { const char* maker; const char* product; const char* size; const char* qty; const char* value; int days; };
    const C coupons[] = {
        {"General Mills", "Cheerios", "18 oz", "1", "0.75", 20},  {"General Mills", "Yoplait", "6 oz", "4", "1.00", 12},
        {"Kraft", "Mac & Cheese", "7.25 oz", "3", "0.50", 40},    {"Kraft", "Shredded Cheese", "8 oz", "1", "0.55", 30},
        {"Barilla", "Spaghetti", "16 oz", "2", "1.00", 25},       {"Folgers", "Classic Roast", "30 oz", "1", "2.00", 60},
        {"Kraft", "Cream Cheese", "8 oz", "1", "0.75", 3},        {"Barilla", "Pesto", "6 oz", "1", "0.50", -2},
    };
    for (const C& c : coupons) {
        Add("Coupons", {{"Manufacturer", c.maker}, {"Product", c.product}, {"Size", c.size}, {"Quantity", c.qty},
                        {"Value", c.value}, {"DiscountDouble", "0"}, {"Expiration", Day(c.days)},
                        {"Category", "Groceries"}, {"Store", " "}});
    }
    for (const char* maker : {"Barilla", "Folgers", "General Mills", "Kraft", "Tillamook"})
        Add("Manufacturer", {{"Name", maker}});
    for (const char* product : {"Flour", "Sugar", "Rice", "Olive Oil", "Coffee", "Oats", "Honey"})
        Add("Product", {{"Name", product}, {"Manufacturer", "Any"}, {"LastPurchasedDate", Day(-5)}});

    clsRegistry& r = Registry();
    r.QuickViewOptions("Coupon::Delivery::Inventory::RecurringLists::IsleMap::ItemCategory::RecipeCat::Nutrition::Product");
    r.ExpandRecipeList(true);
    r.BackupReminder(false);
    r.CheckForUpgrade(3);
    // Coupons near their date and past it show as such; the purge is only offered.
    r.CouponExpireNofication(true);
    r.CouponExpireDays(7);
    r.CouponExpiredAction(2);
    r.SetValue("Settings", "Show Tips at Startup", "0");
    ConnectionMain().Close();
    return 0;
}

// The settled screen cut to what is not the empty display around the window.
int Grab(const QString& path) {
    QScreen* screen = QGuiApplication::primaryScreen();
    QImage last;
    for (int attempt = 0; attempt < 120; ++attempt) {
        QThread::msleep(500);
        const QImage now = screen->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
        bool blank = true;
        for (int y = 0; y < now.height() && blank; y += 16)
            for (int x = 0; x < now.width() && blank; x += 16) blank = (now.pixel(x, y) & 0xffffff) == 0;
        if (!blank && now == last) {
            QRect used;
            for (int y = 0; y < now.height(); ++y)
                for (int x = 0; x < now.width(); ++x)
                    if ((now.pixel(x, y) & 0xffffff) != 0) used |= QRect(x, y, 1, 1);
            return now.copy(used).save(path) ? 0 : 1;
        }
        last = now;
    }
    std::fprintf(stderr, "the window never settled\n");
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == "seed") {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QApplication app(argc, argv);
        return Seed();
    }
    if (mode == "grab" && argc > 2) {
        QApplication app(argc, argv);
        return Grab(QString::fromLocal8Bit(argv[2]));
    }
    std::fprintf(stderr, "usage: shot seed | shot grab <png>\n");
    return 2;
}
EOF

cmake -S "$work/helper" -B "$work/helper/build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$work/helper/build" -j "$(nproc 2>/dev/null || echo 2)" >/dev/null

# --- the household and the picture -----------------------------------------------
export LARDERKEEP_HOME="$work/home"
export LARDERKEEP_CONFIG="$work/Larderkeep.ini"
"$work/helper/build/shot" seed

mkdir -p "$(dirname "$out")"
cat > "$work/run.sh" <<EOF
#!/usr/bin/env bash
set -u
export QT_QPA_PLATFORM=xcb
"$build/larderkeep" &
echo \$! > "$work/program.pid"
"$work/helper/build/shot" grab "$out"
status=\$?
kill "\$(cat "$work/program.pid")" 2>/dev/null
exit \$status
EOF
chmod +x "$work/run.sh"
xvfb-run -a -s "-screen 0 ${size}x24" "$work/run.sh"
echo "Saved $out"
