#!/usr/bin/env python3
"""Writes resources/data/nutrition.sql, the Nutrition table of the starting
database, from the USDA National Nutrient Database for Standard Reference
(release 21). The program itself never reads the USDA files.

    scripts/make-nutrition.py [usda-folder] [output-file]

The folder defaults to ../shared/data/usda-sr21 beside the repository.
"""
import os
import sys
from decimal import Decimal

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DEFAULT_SOURCE = os.path.join(ROOT, "..", "shared", "data", "usda-sr21")
DEFAULT_OUTPUT = os.path.join(ROOT, "resources", "data", "nutrition.sql")

# Nutrition column -> field of ABBREV.txt, counted from 1 as the USDA
# documentation counts them. Vitamin A is taken in micrograms (RAE), the unit
# the recommended daily amounts of the options screen are given in.
NUMBERS = [
    ("Calories", 4), ("Protein", 5), ("Carbohyrdates", 8), ("Dietary_fibre", 9), ("ash", 7),
    ("Calcium", 11), ("Iron", 12), ("Sodium", 16), ("Potassium", 15), ("magnesium", 13),
    ("zinc", 17), ("copper", 18), ("Thiamin", 22), ("Vitamin_a", 34), ("Vitamin_e", 41),
    ("Vitamin_C", 21), ("Riboflavin", 23), ("Niacin", 24), ("Vitamin_B6", 26), ("vitamin_b12", 32),
    ("saturated_fat", 43), ("Monounsqaturated_fat", 44), ("Polyunsaturated_Fat", 45),
    ("Cholesterol", 46),
]
LIPID = 6
KCAL_PER_GRAM_OF_FAT = Decimal(9)
WEIGHTS = [("Gram_Weight_1", 47, "Gram_Weight_1_Description", 48),
           ("Gram_Weight_2", 49, "Gram_Weight_2_Description", 50)]
ABBREV_FIELDS = 51
ROWS_PER_INSERT = 200


def parse_line(line):
    """One record of the USDA ASCII format: '^' between fields, '~' around text."""
    fields = []
    for field in line.rstrip("\r\n").split("^"):
        if len(field) >= 2 and field.startswith("~") and field.endswith("~"):
            field = field[1:-1]
        fields.append(field)
    return fields


def read_records(folder, name):
    with open(os.path.join(folder, name), encoding="latin-1", newline="") as f:
        return [parse_line(line) for line in f if line.strip()]


def sql_text(value):
    return "NULL" if value == "" else "'" + value.replace("'", "''") + "'"


def sql_number(value):
    if value == "":
        return "NULL"
    Decimal(value)  # refuses anything that is not a plain number before it reaches SQL
    return value


def fat_calories(lipid):
    if lipid == "":
        return "NULL"
    return format((Decimal(lipid) * KCAL_PER_GRAM_OF_FAT).normalize(), "f")


def build_rows(folder):
    descriptions = {r[0]: r[2] for r in read_records(folder, "FOOD_DES.txt")}
    foods = read_records(folder, "ABBREV.txt")
    bad = [r[0] for r in foods if len(r) != ABBREV_FIELDS]
    if bad:
        raise SystemExit("ABBREV.txt: unexpected field count for %s" % ", ".join(bad[:5]))
    # USDA number order: stable IDs whatever order the file comes in.
    foods.sort(key=lambda r: r[0])
    rows = []
    for number, f in enumerate(foods, start=1):
        ndb = f[0]
        if ndb not in descriptions:
            raise SystemExit("FOOD_DES.txt has no description for %s" % ndb)
        values = [str(number), sql_text(ndb), sql_text(descriptions[ndb])]
        values += [sql_number(f[i - 1]) for _, i in NUMBERS]
        values += [fat_calories(f[LIPID - 1]), sql_number(f[LIPID - 1])]
        for _, weight, _, description in WEIGHTS:
            values += [sql_number(f[weight - 1]), sql_text(f[description - 1])]
        rows.append("(" + ",".join(values) + ")")
    return rows


def columns():
    names = ["ID", "NDB_No", "Item"] + [c for c, _ in NUMBERS] + ["Fat Calories", "Total Fat"]
    for weight, _, description, _ in WEIGHTS:
        names += [weight, description]
    return names


def main(argv):
    if len(argv) > 3 or (len(argv) > 1 and argv[1] in ("-h", "--help")):
        print(__doc__.strip())
        return 0 if len(argv) > 1 and argv[1] in ("-h", "--help") else 2
    folder = argv[1] if len(argv) > 1 else DEFAULT_SOURCE
    output = argv[2] if len(argv) > 2 else DEFAULT_OUTPUT
    rows = build_rows(folder)
    header = "INSERT INTO Nutrition (" + ",".join('"%s"' % c for c in columns()) + ") VALUES\n"
    os.makedirs(os.path.dirname(os.path.abspath(output)), exist_ok=True)
    with open(output, "w", encoding="utf-8", newline="\n") as out:
        out.write("-- Foods of the USDA National Nutrient Database for Standard Reference, release 21,\n"
                  "-- per 100 g of the edible part. Written by scripts/make-nutrition.py; edit that instead.\n")
        for start in range(0, len(rows), ROWS_PER_INSERT):
            out.write(header + ",\n".join(rows[start:start + ROWS_PER_INSERT]) + ";\n")
    print("%d foods written to %s" % (len(rows), output))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
