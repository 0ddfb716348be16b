#pragma once

#include "platform/Currency.h"

#include <QString>
#include <QStringList>
#include <QVariant>

// The value rules of the program's loosely typed data, in one place, so that
// a text column holding "2" behaves the same in every screen and class.
//
// Kinds a QVariant may hold here:
//   Null   - an invalid QVariant (what a NULL column reads as)
//   Empty  - an unset value, EmptyValue() below
//   bool, qint16/int/qint64, float/double, Currency, QString, QDate/QDateTime
// Failures raise RuntimeError with the fixed descriptions of Err::...

// The "never assigned" value; it acts as 0 with numbers and "" with text.
struct EmptyVariant {
    bool operator==(const EmptyVariant&) const { return true; }
};
Q_DECLARE_METATYPE(EmptyVariant)

QVariant EmptyValue();
bool IsNull(const QVariant& v);
bool IsEmpty(const QVariant& v);

// The numeric prefix of a text: blanks, tabs and line feeds are skipped
// anywhere, then a sign, digits, one ".", an exponent (E or D) and "&H"/"&O"
// prefixes are read up to the first other character. "3 cans" -> 3,
// "1 2" -> 12, "1/2" -> 1, "" -> 0. A number too big raises Overflow.
double Val(const QString& text);

// True for numbers, booleans, Empty, and texts that convert whole (blanks
// around, a sign, "$", "," between digits, a decimal point, an exponent,
// "&H"/"&O", a negative in parentheses). False for Null, dates, "", "abc", "1/2".
bool IsNumeric(const QVariant& v);

qint16 CInt(const QVariant& v);  // half to even; Overflow outside 16 bits
qint32 CLng(const QVariant& v);  // half to even; Overflow outside 32 bits
double CDbl(const QVariant& v);
Currency CCur(const QVariant& v);  // texts convert exactly, not through a double
bool CBool(const QVariant& v);     // "True"/"False" any case, numbers: nonzero is True
// bool -> "True"/"False"; whole numbers plainly; doubles in the shortest form
// of 15 significant digits (0.1 + 0.2 -> "0.3", 1E+15, 1E-05); Currency ->
// toString; dates "m/d/yyyy" with " h:mm:ss AM" when there is a time (a bare
// time on day zero prints alone); Empty -> ""; Null raises Invalid use of Null.
QString CStr(const QVariant& v);
// The text of a value as joining it with "" gives it: Null and Empty give "",
// everything else CStr. The usual way to read a column that may be NULL.
QString TextOf(const QVariant& v);

// "+" on loose values, as the classes add columns and texts:
//   Null with anything -> Null; Empty + x -> x (Empty + Empty -> 0)
//   text + text -> the texts joined
//   number + text -> the text converted (Type mismatch when it is not numeric)
//     and added, the result a double unless the number is Currency
//   number + number -> whole numbers stay whole (widening on overflow),
//     Currency with a whole number stays Currency, anything with a double is double
//   booleans count as -1 / 0; a date plus a number of days is a date.
QVariant LooseAdd(const QVariant& a, const QVariant& b);

// A split text whose elements are indexed from 0 and whose out-of-range
// index raises "Subscript out of range", as arrays do. Split("") has no
// elements (UBound -1); an empty delimiter gives the whole text as one element.
class Split {
public:
    explicit Split(const QString& text, const QString& delimiter = QStringLiteral(" "), int limit = -1);
    const QString& operator[](int i) const { return at(i); }
    const QString& at(int i) const;
    int UBound() const { return int(m_parts.size()) - 1; }
    int LBound() const { return 0; }
    int count() const { return int(m_parts.size()); }
    const QStringList& parts() const { return m_parts; }
    QStringList::const_iterator begin() const { return m_parts.begin(); }
    QStringList::const_iterator end() const { return m_parts.end(); }

private:
    QStringList m_parts;
};

// Format, for the patterns the program uses:
//   numbers: "0" and "#" digit places, "." and "," (thousands), "%", literal
//   text such as "$", quoted text and "\x"; up to three sections split by ";"
//   (positive;negative;zero). Rounds half away from zero on the decimal
//   digits; a negative amount gets "-" in front of everything ("-$1.50").
//   dates: d dd ddd dddd, m mm mmm mmmm (minutes after h), yy yyyy, y (day of
//   year), w ww (weekday, week of the year with weeks from Sunday and week 1
//   holding January 1), q, h hh, n nn, s ss, AM/PM A/P, with "/" ":" "-" ","
//   "." and blanks as they stand.
//   named: "General Number", "Currency", "Fixed", "Standard", "Percent",
//   "Short Date", "Medium Date", "Long Date", "Short Time", "Medium Time",
//   "Long Time", "General Date", "Yes/No", "True/False", "On/Off".
// Numeric texts format as numbers, date texts as dates; any other text comes
// back unchanged. Null and Empty give "". An empty pattern gives CStr.
QString Format(const QVariant& value, const QString& pattern = QString());
