#include "recipes/clsIngredientTable.h"

#include "core/Values.h"

QString clsIngredientTable::RecipeName() const { return TextOf(rs.Field(QStringLiteral("RecipeName"))); }

QString clsIngredientTable::IngredientName() const { return TextOf(rs.Field(QStringLiteral("IngredientName"))); }
