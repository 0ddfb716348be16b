#include "recipes/clsIngredients.h"

#include "core/Values.h"
#include "platform/RuntimeError.h"

QString clsIngredients::Ingredient(int index) const {
    const QString column = PackedIngredient::ColumnName(index);
    if (column.isEmpty() || rs.IsBOF() || rs.IsEOF()) return QString();
    try {
        return TextOf(rs.Field(column));
    } catch (const RuntimeError&) {
        return QString();  // the caller's query left this column out
    }
}

int clsIngredients::Count() const {
    for (int i = PackedIngredient::LastShownSlot; i >= 1; --i)
        if (!Ingredient(i).isEmpty()) return i;
    return 0;
}
