#include "core/Dates.h"
#include "core/Values.h"
#include "platform/DateText.h"
#include "platform/RuntimeError.h"

#include <functional>
#include <gtest/gtest.h>
#include <ostream>

static void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

QString DescriptionOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.description();
    }
    return QStringLiteral("(no error)");
}

QDateTime At(int y, int m, int d, int h = 0, int mi = 0, int s = 0) {
    return QDateTime(QDate(y, m, d), QTime(h, mi, s));
}

// What a text reads as, in the stored form, or "-" when it is not a date.
QString Read(const char* text) {
    const auto dt = ParseDateText(QString::fromUtf8(text));
    return dt ? IsoDateText(*dt) : QStringLiteral("-");
}

TEST(DateText, ReadsEveryFormTheProgramWrites) {
    EXPECT_EQ(Read("2026-11-22"), "2026-11-22");
    EXPECT_EQ(Read("2026-11-22 10:05:09"), "2026-11-22 10:05:09");
    EXPECT_EQ(Read("2026-11-22T10:05"), "2026-11-22 10:05:00");
    EXPECT_EQ(Read("2026-11-22 10:05:09.250"), "2026-11-22 10:05:09");
    EXPECT_EQ(Read("11/22/2026"), "2026-11-22");
    EXPECT_EQ(Read("1/5/26"), "2026-01-05");
    EXPECT_EQ(Read("01/05/26"), "2026-01-05");
    EXPECT_EQ(Read("11-22-2026"), "2026-11-22");
    EXPECT_EQ(Read(" 11/22/2026 "), "2026-11-22");
    EXPECT_EQ(Read("Sunday, Nov 22 2026"), "2026-11-22");
    EXPECT_EQ(Read("November 22, 2026"), "2026-11-22");
    EXPECT_EQ(Read("nov 22 2026"), "2026-11-22");
    EXPECT_EQ(Read("22 November 2026"), "2026-11-22");
    EXPECT_EQ(Read("22-Nov-26"), "2026-11-22");
    EXPECT_EQ(Read("Sept 3, 2026"), "2026-09-03");
}

TEST(DateText, TwoDigitYearsPivotAtThirty) {
    EXPECT_EQ(Read("1/1/50"), "1950-01-01");   // the "nothing in stock" sentinel
    EXPECT_EQ(Read("1/1/00"), "2000-01-01");
    EXPECT_EQ(Read("12/31/29"), "2029-12-31");
    EXPECT_EQ(Read("1/1/30"), "1930-01-01");
    EXPECT_EQ(Read("1/1/99"), "1999-01-01");
    EXPECT_EQ(Read("Nov 22 29"), "2029-11-22");
}

TEST(DateText, TimesWithAmAndPm) {
    EXPECT_EQ(Read("11/22/2026 12:00 AM"), "2026-11-22");
    EXPECT_EQ(Read("11/22/2026 12:30 AM"), "2026-11-22 00:30:00");
    EXPECT_EQ(Read("11/22/2026 12:00 PM"), "2026-11-22 12:00:00");
    EXPECT_EQ(Read("11/22/2026 1:05:09 pm"), "2026-11-22 13:05:09");
    EXPECT_EQ(Read("11/22/26 23:59"), "2026-11-22 23:59:00");
    EXPECT_EQ(Read("11/22/2026 13:00 PM"), "-");
    EXPECT_EQ(Read("11/22/2026 24:00"), "-");
    EXPECT_EQ(Read("11/22/2026 10:60"), "-");
}

TEST(DateText, RejectsWordsAndImpossibleDays) {
    for (const char* bad : {"", "  ", "None", "Never", "abc", "2/30/2026", "2/29/2027", "13/1/2026", "0/1/2026",
                            "1/0/2026", "11/22", "11/22/202", "2026-02-30", "Funday, Nov 22 2026",
                            "Smarch 3 2026", "5", "1.5", "11/22/2026 garbage"})
        EXPECT_EQ(Read(bad), "-") << bad;
    EXPECT_EQ(Read("2/29/2028"), "2028-02-29");
}

TEST(DateText, StoredFormKeepsTheTimeOnlyWhenThereIsOne) {
    EXPECT_EQ(IsoDateText(QDate(2026, 1, 5)), "2026-01-05");
    EXPECT_EQ(IsoDateText(At(2026, 1, 5)), "2026-01-05");
    EXPECT_EQ(IsoDateText(At(2026, 1, 5, 0, 0, 1)), "2026-01-05 00:00:01");
    EXPECT_EQ(IsoDateText(QDate()), "");
}

TEST(IsDate, TextsAndDatesButNotNumbers) {
    EXPECT_TRUE(IsDate(QStringLiteral("11/22/2026")));
    EXPECT_TRUE(IsDate(QStringLiteral("10:30 PM")));
    EXPECT_TRUE(IsDate(QDate(2026, 11, 22)));
    EXPECT_TRUE(IsDate(At(2026, 11, 22, 8)));
    EXPECT_FALSE(IsDate(5));
    EXPECT_FALSE(IsDate(QStringLiteral("5")));
    EXPECT_FALSE(IsDate(QStringLiteral("Never")));
    EXPECT_FALSE(IsDate(QVariant()));
}

TEST(CDate, ConvertsOrRaises) {
    EXPECT_EQ(CDate(QStringLiteral("1/1/50")), At(1950, 1, 1));
    EXPECT_EQ(CDate(QDate(2026, 11, 22)), At(2026, 11, 22));
    EXPECT_EQ(CDate(QStringLiteral("6:00 PM")), At(1899, 12, 30, 18));
    EXPECT_EQ(CDate(2.5), At(1900, 1, 1, 12));
    EXPECT_EQ(CDate(-1.25), At(1899, 12, 29, 6));   // back one day, forward a quarter
    EXPECT_EQ(DescriptionOf([] { CDate(QStringLiteral("Never")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CDate(QStringLiteral("")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CDate(QVariant()); }), "Invalid use of Null");
}

TEST(DateSerial, RoundTripsAroundDayZero) {
    EXPECT_DOUBLE_EQ(ToDateSerial(At(1899, 12, 30)), 0.0);
    EXPECT_DOUBLE_EQ(ToDateSerial(At(2026, 11, 22, 18)), 46348.75);
    EXPECT_DOUBLE_EQ(ToDateSerial(At(1899, 12, 29, 6)), -1.25);
    EXPECT_EQ(FromDateSerial(46348.75), At(2026, 11, 22, 18));
    EXPECT_EQ(FromDateSerial(0.9999999999), At(1899, 12, 31));  // rounds up into the next day
}

TEST(DateDiff, CountsBoundariesOfTheUnit) {
    EXPECT_EQ(DateDiff("d", At(2026, 11, 22, 23, 59), At(2026, 11, 23, 0, 1)), 1);
    EXPECT_EQ(DateDiff("d", At(2026, 11, 22, 0, 1), At(2026, 11, 22, 23, 59)), 0);
    EXPECT_EQ(DateDiff("d", At(2026, 11, 30), At(2026, 11, 22)), -8);
    EXPECT_EQ(DateDiff("d", At(2024, 2, 28), At(2024, 3, 1)), 2);
    EXPECT_EQ(DateDiff("m", At(2026, 1, 31), At(2026, 2, 1)), 1);
    EXPECT_EQ(DateDiff("m", At(2025, 11, 30), At(2026, 2, 1)), 3);
    EXPECT_EQ(DateDiff("yyyy", At(2026, 12, 31), At(2027, 1, 1)), 1);
    EXPECT_EQ(DateDiff("yyyy", At(2026, 1, 1), At(2026, 12, 31)), 0);
    // Sunday 11/22/2026 starts a week: Saturday to Sunday crosses one.
    EXPECT_EQ(DateDiff("ww", At(2026, 11, 21), At(2026, 11, 22)), 1);
    EXPECT_EQ(DateDiff("ww", At(2026, 11, 22), At(2026, 11, 28)), 0);
    EXPECT_EQ(DateDiff("w", At(2026, 11, 21), At(2026, 11, 28)), 1);
    EXPECT_EQ(DateDiff("h", At(2026, 11, 22, 10, 59), At(2026, 11, 22, 11, 0)), 1);
    EXPECT_EQ(DateDiff("n", At(2026, 11, 22, 10, 0, 59), At(2026, 11, 22, 10, 1)), 1);
    EXPECT_EQ(DateDiff("s", At(2026, 11, 22), At(2026, 11, 23)), 86400);
    EXPECT_EQ(DescriptionOf([] { DateDiff("x", At(2026, 1, 1), At(2026, 1, 2)); }),
              "Invalid procedure call or argument");
}

TEST(DateAdd, ClampsToTheEndOfShortMonths) {
    EXPECT_EQ(DateAdd("m", 1, At(2026, 1, 31)), At(2026, 2, 28));
    EXPECT_EQ(DateAdd("m", 1, At(2028, 1, 31)), At(2028, 2, 29));
    EXPECT_EQ(DateAdd("m", -1, At(2026, 3, 31, 9)), At(2026, 2, 28, 9));
    EXPECT_EQ(DateAdd("yyyy", 1, At(2028, 2, 29)), At(2029, 2, 28));
    EXPECT_EQ(DateAdd("d", 10, At(2026, 12, 25)), At(2027, 1, 4));
    EXPECT_EQ(DateAdd("ww", -1, At(2026, 11, 22)), At(2026, 11, 15));
    EXPECT_EQ(DateAdd("h", 25, At(2026, 11, 22, 23)), At(2026, 11, 24, 0));
    EXPECT_EQ(DateAdd("n", -1, At(2026, 11, 22)), At(2026, 11, 21, 23, 59));
    EXPECT_EQ(DateAdd("s", 3661, At(2026, 11, 22)), At(2026, 11, 22, 1, 1, 1));
    EXPECT_EQ(DescriptionOf([] { DateAdd("yyyy", 8000, At(2026, 1, 1)); }), "Overflow");
}

TEST(FormatDates, FixedPatternsOfTheProgram) {
    const QDateTime d = At(2026, 1, 5, 14, 7, 9);
    EXPECT_EQ(Format(d, "mm/dd/yy"), "01/05/26");
    EXPECT_EQ(Format(d, "mmddyy"), "010526");
    EXPECT_EQ(Format(d, "mm/dd/yyyy"), "01/05/2026");
    EXPECT_EQ(Format(d, "dddd, mmm d yyyy"), "Monday, Jan 5 2026");
    EXPECT_EQ(Format(QDate(2026, 11, 22), "dddd, mmm d yyyy"), "Sunday, Nov 22 2026");
    EXPECT_EQ(Format(d, "YYYYMMDDTHHMMSS"), "20260105T140709");
    EXPECT_EQ(Format(d, "h:nn AM/PM"), "2:07 PM");
    EXPECT_EQ(Format(d, "hh:mm"), "14:07");
    // User display patterns mix every part.
    EXPECT_EQ(Format(d, "d-mmm-yy"), "5-Jan-26");
    EXPECT_EQ(Format(d, "ddd dd.mm.yyyy"), "Mon 05.01.2026");
    EXPECT_EQ(Format(d, "mmmm d, yyyy"), "January 5, 2026");
    EXPECT_EQ(Format(d, "Long Date"), "Monday, January 5, 2026");
    // Date texts are read first; other words pass through.
    EXPECT_EQ(Format(QStringLiteral("11/22/26"), "dddd, mmm d yyyy"), "Sunday, Nov 22 2026");
    EXPECT_EQ(Format(QStringLiteral("Never"), "dddd, mmm d yyyy"), "Never");
    EXPECT_EQ(Format(QStringLiteral("None"), "mm/dd/yy"), "None");
}

TEST(FormatDates, WeekOfYearStartsOnSundayWithJanuaryFirstInWeekOne) {
    // Jan 1 2026 is a Thursday: Jan 3 (Sat) is week 1, Jan 4 (Sun) week 2.
    EXPECT_EQ(Format(QDate(2026, 1, 1), "yyyy ww"), "2026 1");
    EXPECT_EQ(Format(QDate(2026, 1, 3), "yyyy ww"), "2026 1");
    EXPECT_EQ(Format(QDate(2026, 1, 4), "yyyy ww"), "2026 2");
    EXPECT_EQ(Format(QDate(2026, 11, 22), "yyyy ww"), "2026 48");
    EXPECT_EQ(Format(QDate(2026, 12, 31), "yyyy ww"), "2026 53");
    EXPECT_EQ(Format(QDate(2022, 12, 31), "yyyy ww"), "2022 53");   // Jan 1 2022 was a Saturday
    EXPECT_EQ(Format(QDate(2023, 12, 31), "yyyy ww"), "2023 53");   // a Sunday starts week 53
    EXPECT_EQ(Format(QDate(2026, 11, 22), "w"), "1");
}

}  // namespace
