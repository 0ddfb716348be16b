#include "core/Globals.h"
#include "measures/modConvert.h"
#include "support/Rows.h"
#include "support/TestEnv.h"

class ConvertTest : public LarderTest {
protected:
    static void AddCell(const QString& from, const QString& to, const QVariant& constant) {
        rows::Add("Conversion", {{"RowIndex", 90},
                                 {"ColumnIndex", 91},
                                 {"RowDescription", from},
                                 {"ColumnDescription", to},
                                 {"ConversionConstant", constant}});
    }
};

TEST_F(ConvertTest, MixedNumbersReadAndBadQuantitiesReportAndGiveWhatWasReadSoFar) {
    struct Case {
        const char* quantity;
        const char* result;
        const char* error;
    };
    const Case cases[] = {
        {"1 1/2", "1.5", nullptr},
        {"  2 2/3 ", "2.6667", nullptr},
        {"0 1/3", "0.3333", nullptr},
        {"1 1/0", "1", nullptr},                 // a zero denominator adds nothing, quietly
        {"1/2", "0", "Subscript out of range"},  // a lone fraction has no second word
        {"2", "2", "Subscript out of range"},
        {"3 eggs", "3", "Subscript out of range"},
        {"", "0", "Subscript out of range"},  // no first word at all
        {"abc", "0", "Subscript out of range"},
        {"1/0", "0", "Subscript out of range"},
        {"3eggs 1/2", "0", "Type mismatch"},  // a numeric prefix, yet not a number
        {"1 1/2/3", "1.5", nullptr},          // what follows the second "/" is ignored
        {"1 1/abc", "1", nullptr},
        {"2  1/2", "2", "Subscript out of range"},  // two blanks: the second word is empty
    };
    for (const Case& c : cases) {
        if (c.error) ui.answer(Answer::OK);
        EXPECT_EQ(FractionToDecimal(c.quantity).toString(), c.result) << c.quantity;
        EXPECT_EQ(ui.prompts(),
                  c.error
                      ? QStringList({QStringLiteral("Error: %1 (Occurred in Convert.FractionToDecimal)").arg(c.error)})
                      : QStringList())
            << c.quantity;
        if (c.error) {
            EXPECT_EQ(ui.lastBox().title, "Error");
        }
        ui.clear();
    }
    ui.answer(Answer::OK);
    FractionToDecimal(QString(400, '9') + " 1/2");  // beyond any number: reported, not a crash
    EXPECT_EQ(ui.count(), 1);
    ui.clear();
}

TEST_F(ConvertTest, FractionSearchFindsTheSmallestNumeratorThroughFourPlaceRounding) {
    struct Case {
        const char* value;
        const char* fraction;
        const char* left;
    };
    const Case cases[] = {
        {"0.25", " 1/4", "0.25"},
        {"0.3333", " 1/3", "0.3333"},
        {"0.6667", " 2/3", "0.6667"},
        {"0.0156", " 1/64", "0.0156"},
        {"0.01", "", "0.01"},
        {"0", "", "0"},
        {"1", "1", "1"},
        {"1.25", "1 1/4", "0.25"},
        {"1.5", "1 1/2", "0.5"},
        {"100", "", "100"},
        {"100.5", "100 1/2", "0.5"},
        {"64", "64", "64"},
        {"0.5", " 1/2", "0.5"},
        {"2.6667", "2 2/3", "0.6667"},
        {"0.1", " 1/10", "0.1"},
    };
    for (const Case& c : cases) {
        Currency value = *Currency::parse(c.value);
        EXPECT_EQ(DecimalToFraction(value), c.fraction) << c.value;
        EXPECT_EQ(value.toString(), c.left) << c.value;
    }
}

TEST_F(ConvertTest, ConversionUsesOnlyTheCellAsked) {
    AddCell("Jar", "Spoon", 12.5);
    EXPECT_EQ(ConvertUnit("Jar", "2", "Spoon"), "25");
    EXPECT_EQ(ConvertUnit("Jar", "1 1/2", "Spoon"), "18.75");
    EXPECT_EQ(ConvertUnit("Jar", "3 jars", "Spoon"), "37.5");
    EXPECT_EQ(ConvertUnit("Spoon", "2", "Jar"), "");  // the reverse cell is never tried
    EXPECT_EQ(ConvertUnit("Bucket", "2", "Spoon"), "");
    // An empty cell knows no constant: the "0" that merging takes as "none known".
    AddCell("Jar", "Ounce", QVariant());
    EXPECT_EQ(ConvertUnit("Jar", "2", "Ounce"), "0");
    EXPECT_EQ(ui.count(), 0);

    AddCell("Baker's dozen", "Roll", 13);
    EXPECT_EQ(ConvertUnit("Baker's dozen", "2", "Roll"), "26");
    EXPECT_EQ(ConvertUnit("Baker's dozen", "1 1/2", "Roll"), "19.5");
    EXPECT_EQ(ConvertUnit("Baker's dozen", "", "Roll"), "0");  // no number reads as none
    EXPECT_EQ(ConvertUnit("Baker's dozen", "abc", "Roll"), "0");
    EXPECT_EQ(ConvertUnit("Baker's", "2", "dozen' OR ''='"), "");
    EXPECT_EQ(ui.count(), 0);

    // A fraction the reader refuses is reported under its own name and counts as 0.
    ui.answer(Answer::OK);
    EXPECT_EQ(ConvertUnit("Baker's dozen", "1/2", "Roll"), "0");
    EXPECT_EQ(ui.prompts(), QStringList({"Error: Subscript out of range (Occurred in Convert.FractionToDecimal)"}));
    ui.clear();
}

// Today is pinned to Sunday 11/22/2026.
TEST_F(ConvertTest, WeekKeysCountSundayWeeksFromTheOneHoldingJanuaryFirst) {
    const QList<QPair<QDate, qint32>> cases = {
        {QDate(2026, 11, 22), 202648}, {QDate(2026, 11, 21), 202647},  // Sunday starts a week
        {QDate(2022, 12, 31), 202253}, {QDate(2023, 1, 1), 202301},   {QDate(2023, 1, 8), 202302},
        {QDate(2026, 12, 31), 202653}, {QDate(2027, 1, 1), 202701},   {QDate(2027, 1, 2), 202701},
        {QDate(2027, 1, 3), 202702},   {QDate(2000, 12, 31), 200054},  // a leap year that began on a Saturday
    };
    for (const auto& [day, key] : cases) EXPECT_EQ(YearWeek(day), key) << day.toString().toStdString();

    EXPECT_EQ(WeekStart(202648), QDate(2026, 11, 22));  // this week: today itself
    EXPECT_EQ(WeekStart(202649), QDate(2026, 11, 29));
    EXPECT_EQ(WeekStart(202653), QDate(2026, 12, 27));
    EXPECT_EQ(WeekStart(202701), QDate(2027, 1, 1));  // the year's first week begins on its first day
    EXPECT_EQ(WeekStart(YearWeek(QDate(2027, 11, 22))), QDate(2027, 11, 21));  // a year ahead
    // Past weeks and no week at all are never met going forward.
    EXPECT_FALSE(WeekStart(202647).isValid());
    EXPECT_FALSE(WeekStart(0).isValid());
}
