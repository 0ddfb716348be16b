#include "core/Dates.h"
#include "core/Values.h"
#include "platform/DateText.h"
#include "support/TestEnv.h"

namespace {

QDateTime At(int y, int m, int d, int h = 0, int mi = 0, int s = 0) {
    return QDateTime(QDate(y, m, d), QTime(h, mi, s));
}

// What a text reads as, in the stored form, or "-" when it is not a date.
QString Read(const char* text) {
    const auto dt = ParseDateText(QString::fromUtf8(text));
    return dt ? IsoDateText(*dt) : QStringLiteral("-");
}

}  // namespace

TEST(DateText, ReadsEveryFormTheProgramWritesWithTimesAndTwoDigitYears) {
    // Two-digit years pivot at thirty; "1/1/50" is the "nothing in stock" sentinel.
    const std::pair<const char*, const char*> cases[] = {{"2026-11-22", "2026-11-22"},
                                                         {"2026-11-22 10:05:09", "2026-11-22 10:05:09"},
                                                         {"2026-11-22T10:05", "2026-11-22 10:05:00"},
                                                         {"2026-11-22 10:05:09.250", "2026-11-22 10:05:09"},
                                                         {"11/22/2026", "2026-11-22"},
                                                         {"1/5/26", "2026-01-05"},
                                                         {"01/05/26", "2026-01-05"},
                                                         {"11-22-2026", "2026-11-22"},
                                                         {" 11/22/2026 ", "2026-11-22"},
                                                         {"Sunday, Nov 22 2026", "2026-11-22"},
                                                         {"November 22, 2026", "2026-11-22"},
                                                         {"nov 22 2026", "2026-11-22"},
                                                         {"22 November 2026", "2026-11-22"},
                                                         {"22-Nov-26", "2026-11-22"},
                                                         {"Sept 3, 2026", "2026-09-03"},
                                                         {"2/29/2028", "2028-02-29"},
                                                         {"1/1/50", "1950-01-01"},
                                                         {"1/1/00", "2000-01-01"},
                                                         {"12/31/29", "2029-12-31"},
                                                         {"1/1/30", "1930-01-01"},
                                                         {"1/1/99", "1999-01-01"},
                                                         {"Nov 22 29", "2029-11-22"},
                                                         {"11/22/2026 12:00 AM", "2026-11-22"},
                                                         {"11/22/2026 12:30 AM", "2026-11-22 00:30:00"},
                                                         {"11/22/2026 12:00 PM", "2026-11-22 12:00:00"},
                                                         {"11/22/2026 1:05:09 pm", "2026-11-22 13:05:09"},
                                                         {"11/22/26 23:59", "2026-11-22 23:59:00"}};
    for (const auto& [text, stored] : cases) EXPECT_EQ(Read(text), stored) << text;
}

TEST(DateText, RejectsWordsAndImpossibleDaysAndTimes) {
    for (const char* bad : {"",
                            "  ",
                            "None",
                            "Never",
                            "abc",
                            "2/30/2026",
                            "2/29/2027",
                            "13/1/2026",
                            "0/1/2026",
                            "1/0/2026",
                            "11/22",
                            "11/22/202",
                            "2026-02-30",
                            "Funday, Nov 22 2026",
                            "Smarch 3 2026",
                            "5",
                            "1.5",
                            "11/22/2026 garbage",
                            "11/22/2026 13:00 PM",
                            "11/22/2026 24:00",
                            "11/22/2026 10:60"})
        EXPECT_EQ(Read(bad), "-") << bad;
}

TEST(DateText, StoredFormKeepsTheTimeOnlyWhenThereIsOne) {
    EXPECT_EQ(QStringList({IsoDateText(QDate(2026, 1, 5)), IsoDateText(At(2026, 1, 5)),
                           IsoDateText(At(2026, 1, 5, 0, 0, 1)), IsoDateText(QDate())}),
              QStringList({"2026-01-05", "2026-01-05", "2026-01-05 00:00:01", ""}));
}

TEST(CDate, TextsAndDatesButNotNumbersAreDatesAndConvertOrRaise) {
    for (const QVariant& yes :
         {QVariant("11/22/2026"), QVariant("10:30 PM"), QVariant(QDate(2026, 11, 22)), QVariant(At(2026, 11, 22, 8))})
        EXPECT_TRUE(IsDate(yes)) << TextOf(yes).toStdString();
    for (const QVariant& no : {QVariant(5), QVariant("5"), QVariant("Never"), QVariant()})
        EXPECT_FALSE(IsDate(no)) << TextOf(no).toStdString();

    EXPECT_EQ(CDate(QStringLiteral("1/1/50")), At(1950, 1, 1));
    EXPECT_EQ(CDate(QDate(2026, 11, 22)), At(2026, 11, 22));
    EXPECT_EQ(CDate(QStringLiteral("6:00 PM")), At(1899, 12, 30, 18));
    EXPECT_EQ(CDate(2.5), At(1900, 1, 1, 12));
    EXPECT_EQ(CDate(-1.25), At(1899, 12, 29, 6));  // back one day, forward a quarter
    EXPECT_EQ(ErrorOf([] { CDate(QStringLiteral("Never")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CDate(QStringLiteral("")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CDate(QVariant()); }), "Invalid use of Null");

    // Serial numbers count days around day zero.
    EXPECT_DOUBLE_EQ(ToDateSerial(At(1899, 12, 30)), 0.0);
    EXPECT_DOUBLE_EQ(ToDateSerial(At(2026, 11, 22, 18)), 46348.75);
    EXPECT_DOUBLE_EQ(ToDateSerial(At(1899, 12, 29, 6)), -1.25);
    EXPECT_EQ(FromDateSerial(46348.75), At(2026, 11, 22, 18));
    EXPECT_EQ(FromDateSerial(0.9999999999), At(1899, 12, 31));  // rounds up into the next day
}

TEST(DateDiff, CountsBoundariesOfTheUnit) {
    // Sunday 11/22/2026 starts a week: Saturday to Sunday crosses one.
    const std::tuple<const char*, QDateTime, QDateTime, qint64> cases[] = {
        {"d", At(2026, 11, 22, 23, 59), At(2026, 11, 23, 0, 1), 1},
        {"d", At(2026, 11, 22, 0, 1), At(2026, 11, 22, 23, 59), 0},
        {"d", At(2026, 11, 30), At(2026, 11, 22), -8},
        {"d", At(2024, 2, 28), At(2024, 3, 1), 2},
        {"m", At(2026, 1, 31), At(2026, 2, 1), 1},
        {"m", At(2025, 11, 30), At(2026, 2, 1), 3},
        {"yyyy", At(2026, 12, 31), At(2027, 1, 1), 1},
        {"yyyy", At(2026, 1, 1), At(2026, 12, 31), 0},
        {"ww", At(2026, 11, 21), At(2026, 11, 22), 1},
        {"ww", At(2026, 11, 22), At(2026, 11, 28), 0},
        {"w", At(2026, 11, 21), At(2026, 11, 28), 1},
        {"h", At(2026, 11, 22, 10, 59), At(2026, 11, 22, 11, 0), 1},
        {"n", At(2026, 11, 22, 10, 0, 59), At(2026, 11, 22, 10, 1), 1},
        {"s", At(2026, 11, 22), At(2026, 11, 23), 86400}};
    for (const auto& [unit, from, to, count] : cases)
        EXPECT_EQ(DateDiff(unit, from, to), count) << unit << " " << from.toString().toStdString();
    EXPECT_EQ(ErrorOf([] { DateDiff("x", At(2026, 1, 1), At(2026, 1, 2)); }), "Invalid procedure call or argument");
}

TEST(DateAdd, ClampsToTheEndOfShortMonths) {
    const std::tuple<const char*, int, QDateTime, QDateTime> cases[] = {
        {"m", 1, At(2026, 1, 31), At(2026, 2, 28)},
        {"m", 1, At(2028, 1, 31), At(2028, 2, 29)},
        {"m", -1, At(2026, 3, 31, 9), At(2026, 2, 28, 9)},
        {"yyyy", 1, At(2028, 2, 29), At(2029, 2, 28)},
        {"d", 10, At(2026, 12, 25), At(2027, 1, 4)},
        {"ww", -1, At(2026, 11, 22), At(2026, 11, 15)},
        {"h", 25, At(2026, 11, 22, 23), At(2026, 11, 24, 0)},
        {"n", -1, At(2026, 11, 22), At(2026, 11, 21, 23, 59)},
        {"s", 3661, At(2026, 11, 22), At(2026, 11, 22, 1, 1, 1)}};
    for (const auto& [unit, n, from, to] : cases) EXPECT_EQ(DateAdd(unit, n, from), to) << unit << n;
    EXPECT_EQ(ErrorOf([] { DateAdd("yyyy", 8000, At(2026, 1, 1)); }), "Overflow");
}

TEST(FormatDates, FixedPatternsOfTheProgramAndUserDisplayPatterns) {
    const QDateTime d = At(2026, 1, 5, 14, 7, 9);
    const std::pair<const char*, const char*> patterns[] = {{"mm/dd/yy", "01/05/26"},
                                                            {"mmddyy", "010526"},
                                                            {"mm/dd/yyyy", "01/05/2026"},
                                                            {"dddd, mmm d yyyy", "Monday, Jan 5 2026"},
                                                            {"YYYYMMDDTHHMMSS", "20260105T140709"},
                                                            {"h:nn AM/PM", "2:07 PM"},
                                                            {"hh:mm", "14:07"},
                                                            {"d-mmm-yy", "5-Jan-26"},
                                                            {"ddd dd.mm.yyyy", "Mon 05.01.2026"},
                                                            {"mmmm d, yyyy", "January 5, 2026"},
                                                            {"Long Date", "Monday, January 5, 2026"}};
    for (const auto& [pattern, text] : patterns) EXPECT_EQ(Format(d, pattern), text) << pattern;
    EXPECT_EQ(Format(QDate(2026, 11, 22), "dddd, mmm d yyyy"), "Sunday, Nov 22 2026");
    // Date texts are read first; other words pass through.
    EXPECT_EQ(Format(QStringLiteral("11/22/26"), "dddd, mmm d yyyy"), "Sunday, Nov 22 2026");
    EXPECT_EQ(Format(QStringLiteral("Never"), "dddd, mmm d yyyy"), "Never");
    EXPECT_EQ(Format(QStringLiteral("None"), "mm/dd/yy"), "None");
}

TEST(FormatDates, WeekOfYearStartsOnSundayWithJanuaryFirstInWeekOne) {
    // Jan 1 2026 is a Thursday: Jan 3 (Sat) is week 1, Jan 4 (Sun) week 2. Jan 1 2022
    // was a Saturday; Dec 31 2023 is a Sunday that starts week 53.
    const std::pair<QDate, const char*> weeks[] = {{QDate(2026, 1, 1), "2026 1"},    {QDate(2026, 1, 3), "2026 1"},
                                                   {QDate(2026, 1, 4), "2026 2"},    {QDate(2026, 11, 22), "2026 48"},
                                                   {QDate(2026, 12, 31), "2026 53"}, {QDate(2022, 12, 31), "2022 53"},
                                                   {QDate(2023, 12, 31), "2023 53"}};
    for (const auto& [date, week] : weeks) EXPECT_EQ(Format(date, "yyyy ww"), week) << week;
    EXPECT_EQ(Format(QDate(2026, 11, 22), "w"), "1");
}
