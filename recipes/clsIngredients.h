#pragma once

#include "core/RecordsetClass.h"
#include "recipes/PackedIngredient.h"

#include <QString>

// A plain cursor over recipe rows for callers that walk many recipes' ingredient
// columns (lists, nutrition, export). The ingredient readers take the slot
// numbers of the packed form and read the current row.
class clsIngredients : public RecordsetClass {
public:
    // The packed text of slot `index` (1..20) of the current row; "" outside that
    // range, for a Null column, or when the query did not select the column.
    QString Ingredient(int index) const;
    // The same slot read leniently into its fields.
    PackedIngredient Parsed(int index) const { return PackedIngredient::Parse(Ingredient(index)); }
    // The highest of 1..18 holding text, 0 when none; a gap counts.
    int Count() const;
};
