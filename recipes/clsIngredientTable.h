#pragma once

#include "core/RecordsetClass.h"

#include <QString>

// A cursor over rows that pair a recipe with one ingredient. The write side of
// each property keeps a member; the read side reads the current row's column of
// that name, so the caller's query names its columns RecipeName and
// IngredientName (with AS where the table spells them otherwise).
class clsIngredientTable : public RecordsetClass {
public:
    QString RecipeName() const;
    void RecipeName(const QString& value) { recipeName_ = value; }
    QString IngredientName() const;
    void IngredientName(const QString& value) { ingredientName_ = value; }

private:
    QString recipeName_;
    QString ingredientName_;
};
