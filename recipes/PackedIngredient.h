#pragma once

#include <QString>

// One ingredient as a recipe row stores it: quantity, unit, name and preparation
// joined by "%%" in one Ingredient column, cut to that column's 100 characters
// after joining. Every reader and writer of those columns goes through here, so
// the quirks of the stored form live in one place:
//  - the quantity is right-justified to seven characters when written, so
//    readers trim it and must not expect a digit first;
//  - an empty unit reads back as "ea";
//  - some rows have no preparation field at all (three fields, not four);
//  - the cut can fall inside the preparation, or even the name.
struct PackedIngredient {
    static inline const QString Separator = QStringLiteral("%%");
    static constexpr int QuantityWidth = 7;
    static constexpr int MaxLength = 100;
    // Ingredients() reaches all twenty columns; the counting, display and
    // printing readers stop at eighteen.
    static constexpr int LastSlot = 20;
    static constexpr int LastShownSlot = 18;
    // What a quantity of blanks becomes.
    static inline const QString DefaultQuantity = QStringLiteral("      1");
    static inline const QString EmptyUnit = QStringLiteral("ea");

    QString quantity;  // trimmed
    QString unit;      // as stored, "" when none
    QString name;
    QString preparation;
    bool hasPreparation = false;
    int fieldCount = 0;

    // The column holding slot `index` (1..20); the last two are spelt in lower
    // case in the table. "" outside that range.
    static QString ColumnName(int index);

    // Right-justifies the trimmed quantity to seven characters; a longer one is
    // kept as it is.
    static QString PadQuantity(const QString& quantity);
    // The stored text: the four fields joined, then cut to 100 characters. The
    // quantity goes in as given (the entry screen pads it first).
    static QString Pack(const QString& quantity, const QString& unit, const QString& name, const QString& preparation);

    // Field `index` (0 quantity, 1 unit, 2 name, 3 preparation) exactly as
    // stored; raises "Subscript out of range" when the text has fewer fields.
    static QString Field(const QString& packed, int index);
    // The quantity field trimmed, the unit field with "ea" for an empty one, the
    // name field: each raises like Field when missing.
    static QString Quantity(const QString& packed);
    static QString Unit(const QString& packed);
    static QString Name(const QString& packed);

    // Lenient reading for screens and lists: missing fields come back empty.
    static PackedIngredient Parse(const QString& packed);

    // The line of the recipe's text view: the trimmed quantity right-justified in
    // exactly seven places, a blank, the unit in exactly two (longer units are
    // cut), a blank, the name.
    static QString DisplayLine(const QString& packed);
    // The printed form: every "%%" becomes a blank, so the fields stand side by side.
    static QString PrintLine(const QString& packed);
};
