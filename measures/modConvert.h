#pragma once

#include "platform/Currency.h"

#include <QDate>
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

// The week key of a date: the date written "yyyy ww" read as one number
// yyyyww, so that every day of one week shares it. Weeks are the date format's
// own: they start on Sunday and week 1 is the one holding January 1, so the
// last days of December and the first of January are in different weeks
// (Sat 12/31/2022 is 202253, Sun 1/1/2023 is 202301).
qint32 YearWeek(const QDate& date);

// The date at which the week `key` begins, searched for from today onwards,
// so the key of this week gives today itself. The search stops after a year
// and a week: a key of a past week (or no key at all) gives an invalid date.
// The calendar screen only offers weeks from today on.
QDate WeekStart(qint32 key);
