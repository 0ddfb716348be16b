#!/usr/bin/env python3
"""Checks the starting database and the files that ship beside it.

Builds a scratch database the way the first start does (resources/schema.sql,
then every resources/data/*.sql in name order, in one transaction) and checks
the tables, the reference data, the conversion chart, the nutrition foods
against the USDA source, the tips and trivial-item files and the resource list.

    scripts/check-template.py [usda-folder]

Exit status 0 when every check passes, 1 otherwise.
"""
import math
import os
import re
import sqlite3
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
RESOURCES = os.path.join(ROOT, "resources")
USDA = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "..", "shared", "data", "usda-sr21")

failures = []


def check(condition, message):
    if not condition:
        failures.append(message)
    return condition


# --- the tables and columns the program's queries name ----------------------

TEXT = "text"
EXPECTED = {
    "Recipie": ["ID", "Title", "Style", "Course", "PrepTime", "Servings", "Favorite", "CookbookName",
                "TimesUsed"] + ["Ingredient%d" % i for i in range(1, 19)]
               + ["ingredient19", "ingredient20", "Instructions", "ImageFile"],
    "RecipieCategory": ["Name"],
    "Cookbook": ["Name", "Specialty"],
    "Course": ["Category", "Course"],
    "History": ["Category", "TimesUsed"],
    "IngredientMap": ["RecipeIngredient", "NutritionItemName"],
    "IngredientSubstitution": ["RecipeIngredient", "SubstituteIngredient"],
    "Comments": ["ID", "Comment"],
    "Drinks": ["ID", "Glass", "Category", "ServingTemp", "TempScale", "Favorite", "Rating"],
    "Meal": ["ID", "Name", "Meal", "Category", "Dates", "Appetizer", "MainCourse", "SideDishOne",
             "SideDishTwo", "SideDishThree", "SideDishfour", "Desert", "Favorite", "Cheap"],
    "MealCategory": ["Category"],
    "MealItems": ["MealItemName", "MealItemQuantity", "MealItemListName", "MealItemComments"],
    "Guests": ["ID", "GuestName", "GuestEmail", "GuestComment"],
    "GuestServed": ["GuestName", "RecipeName"],
    "ShopList": ["ID", "Name", "Store", "Dates", "ItemName", "ItemQuantity", "ItemManufacturer", "ItemSize",
                 "ItemStyle", "ItemCost", "ItemCoupon", "Coupon", "CouponID", "Recurring", "IsCurrent",
                 "ItemSource", "ShopIsle", "ShopOrder", "PalmSynch"],
    "Store": ["Name", "isles", "FaxNumber"],
    "IsleMap": ["ID", "Store", "ItemCategory", "Isle", "IsleOrder"],
    "AlternateIsleMap": ["ID", "StoreName", "ItemName", "ItemManufacturer", "StoreIsle", "StoreIsleOrder"],
    "ItemCategory": ["ID", "Name"],
    "Coupons": ["ID", "Manufacturer", "Product", "Size", "Value", "DiscountDouble", "Expiration", "Quantity",
                "Category", "Store", "OwnerList", "MarkForPurge", "Comments"],
    "Delivery": ["FoodType", "Restaurant", "Item", "CarryOutOnly", "Value", "ActualValue", "Expiration"],
    "Product": ["ID", "Manufacturer", "Name", "Size", "Category", "Cost", "lookout", "lastpurchasedquantity",
                "LastPurchasedDate", "TimesPurchased", "Barcode", "UPC_Number", "UPC_Family"],
    "Manufacturer": ["ID", "Name", "UPC_Number"],
    "SpendHistory": ["SpendID", "ItemID", "ItemListDate", "ItemListName", "ItemListCost", "ItemStore",
                     "CouponID", "ItemCouponID"],
    "ItemSize": ["Name", "Abbreviation"],
    "Abbreviation": ["ID", "Abbreviation", "Description"],
    "Conversion": ["ID", "RowIndex", "ColumnIndex", "RowDescription", "ColumnDescription", "ConversionConstant"],
    "Nutrition": ["ID", "NDB_No", "Item", "Calories", "Protein", "Carbohyrdates", "Dietary_fibre", "ash",
                  "Calcium", "Iron", "Sodium", "Potassium", "magnesium", "zinc", "copper", "Thiamin",
                  "Vitamin_a", "Vitamin_e", "Vitamin_C", "Riboflavin", "Niacin", "Vitamin_B6", "vitamin_b12",
                  "saturated_fat", "Monounsqaturated_fat", "Polyunsaturated_Fat", "Cholesterol",
                  "Fat Calories", "Total Fat", "Gram_Weight_1", "Gram_Weight_1_Description",
                  "Gram_Weight_2", "Gram_Weight_2_Description"],
    "Messages": ["Title", "Body", "Date", "Type", "ReminderTime"],
}
# Queries that name these fail on purpose; the tables must not exist.
ABSENT = ["Recipies", "Recipe", "Meals", "Conversions"]
# Lengths the program cuts to or relies on; every other text column is 255.
LENGTHS = {("Meal", "Name"): 80, ("Meal", "Meal"): 50, ("Meal", "Category"): 50,
           ("ShopList", "ItemName"): 50, ("Messages", "Title"): 50}
LENGTHS.update({("Recipie", c): 100 for c in EXPECTED["Recipie"] if c.lower().startswith("ingredient")})
AUTO = {("Recipie", "ID"), ("Meal", "ID"), ("Guests", "ID"), ("ShopList", "ID"), ("IsleMap", "ID"),
        ("AlternateIsleMap", "ID"), ("ItemCategory", "ID"), ("Coupons", "ID"), ("Product", "ID"),
        ("Manufacturer", "ID"), ("SpendHistory", "SpendID"), ("Abbreviation", "ID"), ("Conversion", "ID")}
BOOLEANS = {("Recipie", "Favorite"), ("Drinks", "Favorite"), ("Meal", "Favorite"), ("Meal", "Cheap"),
            ("ShopList", "Coupon"), ("ShopList", "IsCurrent"), ("ShopList", "PalmSynch"),
            ("Coupons", "MarkForPurge"), ("Delivery", "CarryOutOnly"), ("Product", "lookout")}
DATETEXTS = {("Meal", "Dates"), ("ShopList", "Dates"), ("Coupons", "Expiration"), ("Delivery", "Expiration"),
             ("Messages", "Date")}
DATES = {("Product", "LastPurchasedDate"), ("SpendHistory", "ItemListDate")}
CURRENCIES = {("ShopList", "ItemCost"), ("Delivery", "Value"), ("Delivery", "ActualValue"), ("Product", "Cost"),
              ("SpendHistory", "ItemListCost")}
LONGTEXTS = {("Recipie", "Instructions"), ("Comments", "Comment"), ("Messages", "Body")}
DECLARED = re.compile(r"^(VARCHAR\(\d+\)|LONGTEXT|DATETEXT\(\d+\)|BOOLEAN|CURRENCY|SMALLINT|INTEGER|DOUBLE|DATETIME)$")


def build(path, scripts):
    db = sqlite3.connect(path)
    db.executescript("BEGIN;\n" + "\n".join(scripts) + "\nCOMMIT;")
    return db


def check_schema(db):
    tables = {r[0] for r in db.execute("SELECT name FROM sqlite_master WHERE type = 'table'")} - {"sqlite_sequence"}
    check(tables == set(EXPECTED), "tables differ: extra %s, missing %s"
          % (sorted(tables - set(EXPECTED)), sorted(set(EXPECTED) - tables)))
    lower = {t.lower() for t in tables}
    for name in ABSENT:
        check(name.lower() not in lower, "table %s must not exist" % name)
    sql = {r[0]: r[1] for r in db.execute("SELECT name, sql FROM sqlite_master WHERE type = 'table'")}
    for table, columns in EXPECTED.items():
        if table not in tables:
            continue
        check("REFERENCES" not in sql[table].upper(), "%s has a foreign key" % table)
        info = db.execute('PRAGMA table_info("%s")' % table).fetchall()
        check([c[1] for c in info] == columns, "%s columns are %s" % (table, [c[1] for c in info]))
        for _, name, declared, _, default, pk in info:
            key = (table, name)
            where = "%s.%s" % key
            check(DECLARED.match(declared) is not None, "%s has the unknown declared type %s" % (where, declared))
            if key in AUTO:
                check(pk == 1 and declared == "INTEGER", "%s is not an auto number" % where)
            if key in BOOLEANS:
                check(declared == "BOOLEAN" and default == "0", "%s is not a boolean defaulting to 0" % where)
            if key in DATETEXTS:
                check(declared.startswith("DATETEXT"), "%s is not a date-text" % where)
            if key in DATES:
                check(declared == "DATETIME", "%s is not a date" % where)
            if key in CURRENCIES:
                check(declared == "CURRENCY", "%s is not currency" % where)
            if key in LONGTEXTS:
                check(declared == "LONGTEXT", "%s is not long text" % where)
            if declared.startswith("VARCHAR"):
                check(declared == "VARCHAR(%d)" % LENGTHS.get(key, 255), "%s is %s" % (where, declared))
            elif key in LENGTHS:
                check(False, "%s should be VARCHAR(%d)" % (where, LENGTHS[key]))
        # Text compares without case: a NOCASE column finds 'GENERAL' as 'General'.
        for name, declared in [(c[1], c[2]) for c in info]:
            if declared.split("(")[0] in ("VARCHAR", "LONGTEXT", "DATETEXT"):
                check(re.search(r'"%s"\s+%s[^,]*COLLATE NOCASE' % (re.escape(name), re.escape(declared)), sql[table])
                      is not None, "%s.%s does not compare without case" % (table, name))
    db.execute("INSERT INTO Recipie (Title) VALUES ('x')")
    check(db.execute("SELECT ImageFile, Favorite, TimesUsed FROM Recipie WHERE Title = 'X'").fetchone() == ("", 0, None),
          "a new recipe should read ImageFile '', Favorite 0, TimesUsed NULL")
    db.execute("INSERT INTO ShopList (Name) VALUES ('x')")
    check(db.execute("SELECT IsCurrent, ShopOrder, Coupon FROM ShopList").fetchone() == (0, 0, 0),
          "a new list row should be not current, unordered and without coupon")
    db.rollback()


def check_reference(db):
    check(db.execute("SELECT Specialty FROM Cookbook WHERE Name = 'general'").fetchall() == [("None",)],
          "exactly one General cookbook with Specialty None")
    for table, least in (("RecipieCategory", 20), ("ItemCategory", 25)):
        names = [r[0] for r in db.execute("SELECT Name FROM %s" % table)]
        check(len(names) >= least, "%s has only %d rows" % (table, len(names)))
        check(len({n.lower() for n in names}) == len(names), "%s has a repeated name" % table)
        # A recipe keeps its categories as one comma-separated text, and tree
        # keys and packed settings use ':'; such names would split apart.
        check(all(n == n.strip() and not re.search(r"[,;:/]", n) for n in names),
              "%s has a name that cannot stand in a list: %s" % (table, [n for n in names if re.search(r"[,;:/]", n)]))
    for produce in ("Produce", "Dairy", "Meat", "Bakery", "Canned Goods", "Frozen Foods", "Spices", "Beverages"):
        check(db.execute("SELECT 1 FROM ItemCategory WHERE Name = ?", (produce,)).fetchone() is not None,
              "item category %s is missing" % produce)


# Sizes of the measures in millilitres, grams or pieces, from the US definitions.
TSP = 4.92892159375
KNOWN = {"pinch": ("v", TSP / 16), "dash": ("v", TSP / 8), "tsp": ("v", TSP), "tbsp": ("v", 3 * TSP),
         "fl oz": ("v", 29.5735295625), "cup": ("v", 236.5882365), "pt": ("v", 473.176473),
         "qt": ("v", 946.352946), "gal": ("v", 3785.411784), "ml": ("v", 1.0), "l": ("v", 1000.0),
         "oz": ("w", 28.349523125), "lb": ("w", 453.59237), "g": ("w", 1.0), "kg": ("w", 1000.0),
         "ea": ("n", 1.0), "doz": ("n", 12.0)}


def check_measures(db):
    abbreviations = [r[0] for r in db.execute("SELECT Abbreviation FROM Abbreviation")]
    sizes = db.execute("SELECT Name, Abbreviation FROM ItemSize").fetchall()
    check(len({a.lower() for a in abbreviations}) == len(abbreviations), "an abbreviation is listed twice")
    check(len({s[1].lower() for s in sizes}) == len(sizes), "an ItemSize short form is not unique")
    check(all(r[0] for r in db.execute("SELECT Description FROM Abbreviation")), "an abbreviation lacks a description")
    for unit in ("tsp", "tbsp", "cup", "fl oz", "oz", "lb", "g", "kg", "ml", "l", "pt", "qt", "gal", "pinch",
                 "dash", "clove", "can", "pkg", "slice", "ea"):
        check(unit in abbreviations, "the unit %s is missing" % unit)
    # A recipe's unit is looked up in the chart by its written form, so the two agree.
    check(sorted(a.lower() for a in abbreviations) == sorted(s[0].lower() for s in sizes),
          "Abbreviation and ItemSize name different measures")

    cells = db.execute("SELECT RowIndex, RowDescription, ColumnIndex, ColumnDescription, ConversionConstant "
                       "FROM Conversion").fetchall()
    rows = {r: d for r, d, _, _, _ in cells}
    cols = {c: d for _, _, c, d, _ in cells}
    n = len(rows)
    check(sorted(rows) == list(range(1, n + 1)) and sorted(cols) == list(range(1, n + 1)),
          "chart indexes do not run from 1 without gaps")
    check(len(cells) == n * n and len({(r, c) for r, _, c, _, _ in cells}) == n * n,
          "the chart is not square with one row per cell (%d rows for %d measures)" % (len(cells), n))
    check(all(rows[r] == d for r, d, _, _, _ in cells) and all(cols[c] == d for _, _, c, d, _ in cells),
          "a chart index carries two descriptions")
    check(rows == cols, "row and column headers differ")
    check(len({d.lower() for d in rows.values()}) == n, "a measure stands twice in the chart")
    check(sorted(d.lower() for d in rows.values()) == sorted(s[0].lower() for s in sizes),
          "the chart and ItemSize name different measures")
    chart = {(rd, cd): k for _, rd, _, cd, k in cells}
    names = list(rows.values())
    for a in names:
        check(chart.get((a, a)) == 1, "1 %s is not 1 %s" % (a, a))
        for b in names:
            ab, ba = chart.get((a, b)), chart.get((b, a))
            if ab is None or ba is None:
                check(ab is None and ba is None, "%s/%s has a constant one way only" % (a, b))
                continue
            # A zero would make list merging treat the pair as unconvertible.
            check(ab > 0, "1 %s = %r %s" % (a, ab, b))
            check(math.isclose(ab * ba, 1.0, rel_tol=1e-12), "%s->%s times %s->%s is %r" % (a, b, b, a, ab * ba))
            if a in KNOWN and b in KNOWN and KNOWN[a][0] == KNOWN[b][0]:
                check(math.isclose(ab, KNOWN[a][1] / KNOWN[b][1], rel_tol=1e-12),
                      "1 %s = %r %s, expected %r" % (a, ab, b, KNOWN[a][1] / KNOWN[b][1]))
            for c in names:
                bc, ac = chart.get((b, c)), chart.get((a, c))
                if bc is not None:
                    check(ac is not None and math.isclose(ab * bc, ac, rel_tol=1e-12),
                          "%s->%s->%s disagrees with %s->%s" % (a, b, c, a, c))
    for a in KNOWN:
        for b in KNOWN:
            if KNOWN[a][0] != KNOWN[b][0]:
                check(chart.get((a, b), "missing") is None, "%s->%s should have no constant" % (a, b))
    spot = {("cup", "tbsp"): 16, ("tbsp", "tsp"): 3, ("cup", "fl oz"): 8, ("cup", "ml"): 236.5882365,
            ("gal", "qt"): 4, ("qt", "pt"): 2, ("pt", "cup"): 2, ("lb", "oz"): 16, ("lb", "g"): 453.59237,
            ("kg", "g"): 1000, ("l", "ml"): 1000, ("doz", "ea"): 12, ("tsp", "dash"): 8, ("tsp", "pinch"): 16}
    for (a, b), k in spot.items():
        got = db.execute("SELECT ConversionConstant FROM Conversion WHERE RowDescription = ? AND "
                         "ColumnDescription = ?", (a.upper(), b.upper())).fetchall()
        check(len(got) == 1 and got[0][0] is not None and math.isclose(got[0][0], k, rel_tol=1e-12),
              "1 %s should be %r %s, found %r" % (a, k, b, got))


# ABBREV.txt field names in file order, as the USDA documents them.
ABBREV_NAMES = ("NDB_No Shrt_Desc Water Energ_Kcal Protein Lipid_Tot Ash Carbohydrt Fiber_TD Sugar_Tot Calcium "
                "Iron Magnesium Phosphorus Potassium Sodium Zinc Copper Manganese Selenium Vit_C Thiamin "
                "Riboflavin Niacin Panto_Acid Vit_B6 Folate_Tot Folic_Acid Food_Folate Folate_DFE Choline_Tot "
                "Vit_B12 Vit_A_IU Vit_A_RAE Retinol Alpha_Carot Beta_Carot Beta_Crypt Lycopene Lut+Zea Vit_E "
                "Vit_K FA_Sat FA_Mono FA_Poly Cholestrl GmWt_1 GmWt_Desc1 GmWt_2 GmWt_Desc2 Refuse_Pct").split()
SOURCE_OF = {"NDB_No": "NDB_No", "Calories": "Energ_Kcal", "Protein": "Protein", "Carbohyrdates": "Carbohydrt",
             "Dietary_fibre": "Fiber_TD", "ash": "Ash", "Calcium": "Calcium", "Iron": "Iron", "Sodium": "Sodium",
             "Potassium": "Potassium", "magnesium": "Magnesium", "zinc": "Zinc", "copper": "Copper",
             "Thiamin": "Thiamin", "Vitamin_a": "Vit_A_RAE", "Vitamin_e": "Vit_E", "Vitamin_C": "Vit_C",
             "Riboflavin": "Riboflavin", "Niacin": "Niacin", "Vitamin_B6": "Vit_B6", "vitamin_b12": "Vit_B12",
             "saturated_fat": "FA_Sat", "Monounsqaturated_fat": "FA_Mono", "Polyunsaturated_Fat": "FA_Poly",
             "Cholesterol": "Cholestrl", "Total Fat": "Lipid_Tot", "Gram_Weight_1": "GmWt_1",
             "Gram_Weight_1_Description": "GmWt_Desc1", "Gram_Weight_2": "GmWt_2",
             "Gram_Weight_2_Description": "GmWt_Desc2"}


def usda(name):
    with open(os.path.join(USDA, name), encoding="latin-1", newline="") as f:
        for line in f:
            if line.strip():
                yield [v[1:-1] if len(v) >= 2 and v[0] == "~" and v[-1] == "~" else v
                       for v in line.rstrip("\r\n").split("^")]


def check_nutrition(db):
    check(db.execute("SELECT COUNT(*) FROM Nutrition").fetchone()[0] == 7413, "Nutrition should hold 7,413 foods")
    ids = [r[0] for r in db.execute("SELECT ID FROM Nutrition ORDER BY ID")]
    check(ids == list(range(1, len(ids) + 1)), "Nutrition IDs do not run 1..n")
    butter = db.execute('SELECT NDB_No, Calories, "Fat Calories", "Total Fat", Gram_Weight_1_Description '
                        "FROM Nutrition WHERE Item = 'butter, SALTED'").fetchall()
    check(len(butter) == 1 and butter[0][0] == "01001" and butter[0][1] == 717
          and math.isclose(butter[0][2], 729.99) and butter[0][4] == "1 cup",
          "Butter, salted reads %r" % butter)
    check(db.execute("SELECT COUNT(*) FROM Nutrition WHERE typeof(NDB_No) <> 'text'").fetchone()[0] == 0,
          "a food number lost its leading zeros")
    text_columns = ("Item", "Gram_Weight_1_Description", "Gram_Weight_2_Description")
    check(db.execute("SELECT COUNT(*) FROM Nutrition WHERE " + " OR ".join("\"%s\" = ''" % c for c in text_columns))
          .fetchone()[0] == 0, "an empty USDA field became '' instead of NULL")
    check(db.execute('SELECT COUNT(*) FROM Nutrition WHERE "Fat Calories" IS NOT NULL AND '
                     'abs("Fat Calories" - 9 * "Total Fat") > 1e-6').fetchone()[0] == 0,
          "calories from fat are not 9 per gram of fat")
    if not os.path.isdir(USDA):
        print("note: %s not found; the foods were not compared with their source" % USDA)
        return
    names = {r[0]: r[2] for r in usda("FOOD_DES.txt")}
    columns = list(SOURCE_OF)
    stored = {r[0]: r for r in db.execute("SELECT %s, Item FROM Nutrition"
                                          % ",".join('"%s"' % c for c in columns))}
    wrong = []
    for fields in usda("ABBREV.txt"):
        source = dict(zip(ABBREV_NAMES, fields))
        row = stored.get(source["NDB_No"])
        if row is None or row[-1] != names[source["NDB_No"]]:
            wrong.append(source["NDB_No"])
            continue
        for column, value in zip(columns, row):
            raw = source[SOURCE_OF[column]]
            if raw == "":
                ok = value is None
            elif isinstance(value, str):
                ok = value == raw
            else:
                ok = value is not None and math.isclose(value, float(raw), abs_tol=1e-9)
            if not ok:
                wrong.append("%s %s" % (source["NDB_No"], column))
    check(not wrong, "foods differ from the USDA source: %s" % wrong[:10])


def lines_of(path):
    with open(path, "rb") as f:
        data = f.read()
    check(data.endswith(b"\r\n"), "%s should end with CR LF so that an appended line starts on its own" % path)
    check(b"\n" not in data.replace(b"\r\n", b"") and b"\r" not in data.replace(b"\r\n", b""),
          "%s mixes line ends" % path)
    check(all(b < 128 for b in data), "%s is not plain ASCII" % path)
    lines = data.decode("ascii", "replace").split("\r\n")[:-1]
    check(all(line.strip() == line and line for line in lines), "%s has a blank or padded line" % path)
    return lines


def check_files():
    tips = lines_of(os.path.join(RESOURCES, "TIPOFDAY.TXT"))
    check(len(tips) >= 30, "only %d tips" % len(tips))
    check(len(set(tips)) == len(tips), "a tip is repeated")
    trivial = lines_of(os.path.join(RESOURCES, "TrivialItem.lis"))
    # An item is trivial when a line contains its name, so a line must not
    # swallow real groceries that happen to be part of it.
    def generic(item):
        return any(item.lower() in line.lower() for line in trivial)
    for item in ("Water", "Salt", "Pepper", "Ice"):
        check(generic(item), "%s should be a trivial item" % item)
    for item in ("Oil", "Soda", "Cream", "Rice", "Milk", "Flour", "Sugar", "Tea", "Bell pepper", "Ice cream",
                 "Salted butter", "Sparkling water", "Butter", "Coloring book", "Potato"):
        check(not generic(item), "%s would wrongly count as a trivial item" % item)

    tree = ET.parse(os.path.join(RESOURCES, "resources.qrc"))
    listed = [f.text for f in tree.iter("file")]
    check([q.get("prefix") for q in tree.iter("qresource")] == ["/"], "resources.qrc should have the one prefix /")
    for name in listed:
        check(os.path.isfile(os.path.join(RESOURCES, name)), "resources.qrc lists the missing file %s" % name)
    shipped = ["schema.sql", "TIPOFDAY.TXT", "TrivialItem.lis"] + \
        ["data/" + f for f in os.listdir(os.path.join(RESOURCES, "data"))]
    for name in shipped:
        check(name in listed, "%s is not in resources.qrc" % name)


def check_generator():
    """The shipped foods are what the generator writes today."""
    if not os.path.isdir(USDA):
        return
    with tempfile.TemporaryDirectory() as tmp:
        out = os.path.join(tmp, "nutrition.sql")
        subprocess.run([sys.executable, os.path.join(ROOT, "scripts", "make-nutrition.py"), USDA, out],
                       check=True, stdout=subprocess.DEVNULL)
        with open(out, "rb") as a, open(os.path.join(RESOURCES, "data", "nutrition.sql"), "rb") as b:
            check(a.read() == b.read(), "resources/data/nutrition.sql is stale: rerun scripts/make-nutrition.py")


def main():
    data = os.path.join(RESOURCES, "data")
    scripts = [os.path.join(RESOURCES, "schema.sql")] + \
        [os.path.join(data, f) for f in sorted(os.listdir(data)) if f.endswith(".sql")]
    texts = []
    for path in scripts:
        with open(path, encoding="utf-8") as f:
            texts.append(f.read())
        # The scripts run inside the first start's own transaction.
        check(not re.search(r"^\s*(BEGIN|COMMIT|END|ROLLBACK)\b", texts[-1], re.I | re.M),
              "%s manages its own transaction" % path)
    with tempfile.TemporaryDirectory() as tmp:
        try:
            db = build(os.path.join(tmp, "template.db"), texts)
        except sqlite3.Error as e:
            print("FAILED: the scripts do not load: %s" % e)
            return 1
        for group in (check_schema, check_reference, check_measures, check_nutrition):
            before = len(failures)
            try:
                group(db)
            except Exception as e:  # a crash in one group should not hide the others
                check(False, "%s stopped: %r" % (group.__name__, e))
            print("%-16s %s" % (group.__name__[6:], "ok" if len(failures) == before else "FAILED"))
        db.close()
    for group in (check_files, check_generator):
        before = len(failures)
        group()
        print("%-16s %s" % (group.__name__[6:], "ok" if len(failures) == before else "FAILED"))
    for message in failures:
        print("  - " + message)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
