#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>

// The one reader of dates written as text. Dates reach the program in many
// hands: ISO stamps from the database, "m/d/yy" stamps from saved lists and
// exchange files, long forms used as meal names, and whatever a person types.
//
// Accepted:
//   "yyyy-mm-dd" and "yyyy-mm-dd hh:mm[:ss[.fff]]" (also with a "T" before the time)
//   "m/d/yy", "m/d/yyyy", "mm/dd/yy" ("-" works in place of "/"), "yyyy/m/d"
//   long forms "Sunday, Nov 22 2026", "November 22, 2026", "Nov 22 2026",
//   "22 November 2026" (a leading weekday name is skipped, not checked)
//   each with an optional time "h:mm" or "h:mm:ss", optionally followed by
//   "AM"/"PM" (12 AM is midnight, 12 PM is noon).
// Two-digit years 00-29 mean 20xx and 30-99 mean 19xx, so "1/1/50" is 1950.
// Impossible dates (2/30/2026) and words ("None", "Never") give no value.
std::optional<QDateTime> ParseDateText(const QString& text);

// Only the date part of ParseDateText, for callers that never keep a time.
std::optional<QDate> ParseDateOnlyText(const QString& text);

// Just the time part ("10:30", "2:05:09 PM"); what a bare time means is up
// to the caller (CDate puts it on day zero, 12/30/1899).
std::optional<QTime> ParseTimeText(const QString& text);

// The stored form: "yyyy-mm-dd", with " hh:mm:ss" only when the time is not
// midnight. Invalid values give "".
QString IsoDateText(const QDateTime& dt);
QString IsoDateText(const QDate& d);

// Month and weekday names as the program prints them (English, so stored meal
// names and printed lists read alike on every machine). month 1-12, weekday 1-7 Monday first.
QString MonthNameText(int month, bool abbreviated);
QString WeekdayNameText(int weekday, bool abbreviated);
