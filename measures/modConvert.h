#pragma once

#include "platform/Currency.h"

#include <QString>

// Quantities are text ("2", "0.75", "1 1/2"); these turn them into the
// four-place fixed-point value and back, and express them in another measure.

// "1 1/2" -> 1.5. The fraction must follow a written whole part ("0 1/2"); a lone
// "1/2" reports an out-of-range index and gives 0, which callers rely on.
Currency FractionToDecimal(const QString& quantity);

// 1.25 -> "1 1/4", leaving 0.25 in `value`. Denominators run to 64; "" when no
// fraction fits. A value below one keeps its leading blank (" 1/2").
QString DecimalToFraction(Currency& value);

// The quantity of `from` expressed in `to`, through the conversion chart cell
// (from, to) only; "" when the chart has no such cell.
QString ConvertUnit(const QString& from, const QString& quantity, const QString& to);
