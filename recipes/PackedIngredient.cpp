#include "recipes/PackedIngredient.h"

#include "core/Values.h"

QString PackedIngredient::ColumnName(int index) {
    if (index < 1 || index > LastSlot) return QString();
    // The last two columns are spelt in lower case in the table.
    return (index > LastShownSlot ? QStringLiteral("ingredient") : QStringLiteral("Ingredient")) +
           QString::number(index);
}

QString PackedIngredient::PadQuantity(const QString& quantity) {
    const QString q = quantity.trimmed();
    if (q.size() >= QuantityWidth) return q;
    return QString(QuantityWidth - q.size(), QLatin1Char(' ')) + q;
}

QString PackedIngredient::Pack(const QString& quantity, const QString& unit, const QString& name,
                               const QString& preparation) {
    return (quantity + Separator + unit + Separator + name + Separator + preparation).left(MaxLength);
}

QString PackedIngredient::Field(const QString& packed, int index) { return Split(packed, Separator)[index]; }

QString PackedIngredient::Quantity(const QString& packed) { return Field(packed, 0).trimmed(); }

QString PackedIngredient::Unit(const QString& packed) {
    const QString unit = Field(packed, 1);
    return unit.trimmed().isEmpty() ? EmptyUnit : unit;
}

QString PackedIngredient::Name(const QString& packed) { return Field(packed, 2); }

PackedIngredient PackedIngredient::Parse(const QString& packed) {
    PackedIngredient p;
    const Split parts(packed, Separator);
    p.fieldCount = parts.count();
    if (parts.count() > 0) p.quantity = parts[0].trimmed();
    if (parts.count() > 1) p.unit = parts[1];
    if (parts.count() > 2) p.name = parts[2];
    if (parts.count() > 3) {
        p.hasPreparation = true;
        // A preparation that itself held "%%" is put back together.
        p.preparation = parts.parts().mid(3).join(Separator);
    }
    return p;
}

QString PackedIngredient::DisplayLine(const QString& packed) {
    const PackedIngredient p = Parse(packed);
    const QString unit = p.unit.trimmed().isEmpty() ? EmptyUnit : p.unit;
    return p.quantity.rightJustified(QuantityWidth, QLatin1Char(' '), true) + QLatin1Char(' ') +
           unit.leftJustified(2, QLatin1Char(' '), true) + QLatin1Char(' ') + p.name;
}

QString PackedIngredient::PrintLine(const QString& packed) {
    QString line = packed;
    return line.replace(Separator, QStringLiteral(" "));
}
