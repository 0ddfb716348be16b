#include "core/Globals.h"
#include "measures/modConvert.h"
#include "platform/Recordset.h"
#include "support/TestEnv.h"

namespace {

class ConvertTest : public LarderTest {
protected:
    void AddCell(const QString& from, const QString& to, const QVariant& constant) {
        Recordset rs;
        rs.Open("SELECT * FROM Conversion", ConnectionMain(), adOpenStatic, adLockOptimistic);
        rs.AddNew();
        rs.setField("RowIndex", 90);
        rs.setField("ColumnIndex", 91);
        rs.setField("RowDescription", from);
        rs.setField("ColumnDescription", to);
        rs.setField("ConversionConstant", constant);
        rs.Update();
    }
    void ExpectErrorBox(const QString& label) {
        ASSERT_EQ(ui.count(), 1);
        EXPECT_EQ(ui.lastBox().title, "Error");
        EXPECT_EQ(ui.lastBox().prompt, "Error: Subscript out of range (Occurred in " + label + ")");
        ui.clear();
    }
};

TEST_F(ConvertTest, MixedNumbersReadAndLoneFractionsReportOutOfRange) {
    EXPECT_EQ(FractionToDecimal("1 1/2").toString(), "1.5");
    EXPECT_EQ(FractionToDecimal("  2 2/3 ").toString(), "2.6667");
    EXPECT_EQ(FractionToDecimal("0 1/3").toString(), "0.3333");
    EXPECT_EQ(FractionToDecimal("1 1/0").toString(), "1");  // a zero denominator adds nothing, quietly
    EXPECT_EQ(ui.count(), 0);

    ui.answer(1);
    EXPECT_EQ(FractionToDecimal("1/2").toString(), "0");
    ExpectErrorBox("Convert.FractionToDecimal");

    ui.answer(1);
    EXPECT_EQ(FractionToDecimal("2").toString(), "2");  // what it had when the second word was missing
    ExpectErrorBox("Convert.FractionToDecimal");

    ui.answer(1);
    EXPECT_EQ(FractionToDecimal("3 eggs").toString(), "3");
    ExpectErrorBox("Convert.FractionToDecimal");
}

TEST_F(ConvertTest, BadQuantitiesReportAndGiveWhatWasReadSoFar) {
    struct Case { const char* quantity; const char* result; const char* error; };
    const Case cases[] = {
        {"", "0", "Subscript out of range"},     // no first word at all
        {"abc", "0", "Subscript out of range"},
        {"1/0", "0", "Subscript out of range"},
        {"3eggs 1/2", "0", "Type mismatch"},     // a numeric prefix, yet not a number
        {"1 1/2/3", "1.5", nullptr},              // what follows the second "/" is ignored
        {"1 1/abc", "1", nullptr},
        {"2  1/2", "2", "Subscript out of range"},  // two blanks: the second word is empty
    };
    for (const Case& c : cases) {
        if (c.error) ui.answer(Answer::OK);
        EXPECT_EQ(FractionToDecimal(c.quantity).toString(), c.result) << c.quantity;
        if (c.error) {
            ASSERT_EQ(ui.count(), 1) << c.quantity;
            EXPECT_EQ(ui.lastBox().prompt,
                      QStringLiteral("Error: %1 (Occurred in Convert.FractionToDecimal)").arg(c.error));
        } else {
            EXPECT_EQ(ui.count(), 0) << c.quantity;
        }
        ui.clear();
    }
    ui.answer(Answer::OK);
    FractionToDecimal(QString(400, '9') + " 1/2");  // beyond any number: reported, not a crash
    EXPECT_EQ(ui.count(), 1);
    ui.clear();
}

TEST_F(ConvertTest, FractionSearchFindsTheSmallestNumeratorThroughFourPlaceRounding) {
    struct Case { const char* value; const char* fraction; const char* left; };
    const Case cases[] = {
        {"0.25", " 1/4", "0.25"},     {"0.3333", " 1/3", "0.3333"}, {"0.6667", " 2/3", "0.6667"},
        {"0.0156", " 1/64", "0.0156"}, {"0.01", "", "0.01"},         {"0", "", "0"},
        {"1", "1", "1"},               {"1.25", "1 1/4", "0.25"},    {"1.5", "1 1/2", "0.5"},
        {"100", "", "100"},            {"100.5", "100 1/2", "0.5"},  {"64", "64", "64"},
        {"0.5", " 1/2", "0.5"},        {"2.6667", "2 2/3", "0.6667"}, {"0.1", " 1/10", "0.1"},
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

}  // namespace
