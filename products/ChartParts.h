#pragma once

#include "platform/Currency.h"

#include <QDate>
#include <QString>
#include <QVariant>

class QChart;
class QComboBox;
class QDateEdit;
class QValueAxis;
class QWidget;

// What the spending and price charts share: the span they start on, the date
// boxes that choose it, and one look for charts and money axes.
namespace ChartParts {

// The kept months of history back from today, where both screens start.
QDate DefaultFrom();
// A date as a query literal, "#m/d/yyyy#".
QString DateLiteral(const QDate& date);
// A date box with a calendar that shows dates in the person's date format.
QDateEdit* DateBox(QWidget* parent, const QString& objectName, const QDate& date);

// A box to choose a name from or type one into.
QComboBox* NameBox(QWidget* parent, const QString& objectName);
// Fills a box with its "All ..." entry first and the names of a query's [Name]
// column, each once, in the query's order; the "All" entry is chosen.
void FillNames(QComboBox* box, const QString& all, const QString& sql);

// A price column; a purchase entered without one counts as nothing paid.
Currency Money(const QVariant& value);
QString MoneyText(Currency amount);  // "$1,234.50"

// Readable on a screen and in a saved picture: a light theme, no animation,
// legend at the bottom.
void Dress(QChart* chart);
// A value axis for money from 0 to a little above the largest amount, its
// labels in dollars and cents.
QValueAxis* MoneyAxis(const QString& title, double largest);

}  // namespace ChartParts
