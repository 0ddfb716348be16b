#pragma once

#include "platform/Report.h"

#include <QImage>
#include <QString>
#include <QStringList>

class Recordset;

// The printed page of one recipe: its title, the general details, the
// ingredients one per line, the method, and a picture beside the ingredients
// (the recipe's own, or the program's background picture).
class rptRecipe {
public:
    QString Title;
    QString Categories;
    QString Course;
    QString PrepTime;
    QString Servings;
    QString CookbookName;
    QStringList Ingredients;  // as prepared by the caller, one line each
    QString Instructions;     // "~" stands for a line break
    QImage Picture;

    // Fills the fields from the current row of a recipe recordset: slots 1..18,
    // each with its "%%" turned into blanks. The picture is left to the caller.
    void Bind(const Recordset& row);

    Report Build() const;

    // The picture a recipe without one of its own is printed with.
    static QImage Background();
};
