#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

// Date rules of the program's loose values. Date texts are read by
// ParseDateText (platform/DateText.h): ISO, m/d/yy, m/d/yyyy, long forms,
// with an optional time; two-digit years 00-29 are 20xx and 30-99 are 19xx.

// True for QDate/QDateTime values and texts that read as a date or a bare
// time. Numbers are not dates here, even though CDate accepts them.
bool IsDate(const QVariant& v);

// Texts as IsDate reads them (a bare time lands on day zero, 12/30/1899);
// numbers as day serials (days since 12/30/1899, the fraction the time of
// day); Empty is day zero. Null raises Invalid use of Null, anything else
// Type mismatch.
QDateTime CDate(const QVariant& v);

// Intervals by their codes: "yyyy" years, "q" quarters,
// "m" months, "y"/"d" days, "w" weeks of seven days, "ww" calendar weeks
// (Sundays), "h" hours, "n" minutes, "s" seconds. Anything else raises
// "Invalid procedure call or argument".
//
// DateDiff counts the boundaries of the unit crossed going from a to b
// (b later gives a positive count): "d" compares the calendar days only, so
// 11:59 PM to 12:01 AM the next day is 1; "m" and "yyyy" compare months and
// years, so Dec 31 to Jan 1 is 1 of each. Times are taken as written, with
// no daylight-saving shifts.
qint64 DateDiff(const QString& interval, const QDateTime& a, const QDateTime& b);

// Adds n units; months and years keep the day, moved back to the month's
// last day when that month is shorter (Jan 31 + 1 month = Feb 28/29).
// Leaving the years 100-9999 raises Overflow.
QDateTime DateAdd(const QString& interval, qint64 n, const QDateTime& d);

// Day serials: days since 12/30/1899 with the time as the fraction of a day.
double ToDateSerial(const QDateTime& dt);
QDateTime FromDateSerial(double serial);

int Weekday(const QDate& d);     // 1 = Sunday ... 7 = Saturday
int WeekOfYear(const QDate& d);  // weeks from Sunday, week 1 holds January 1
