#include "core/Values.h"
#include "platform/RuntimeError.h"

#include <QDateTime>
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

QVariant Money(const char* text) { return QVariant::fromValue(Currency::parse(text).value()); }
QVariant Text(const char* text) { return QString::fromUtf8(text); }

TEST(Val, ReadsTheNumberAtTheStartOfAText) {
    EXPECT_EQ(Val("3 cans"), 3);
    EXPECT_EQ(Val(" 2"), 2);
    EXPECT_EQ(Val("1 2"), 12);           // blanks inside the number vanish
    EXPECT_EQ(Val("\t-1 .5\nlb"), -1.5);
    EXPECT_EQ(Val("1/2"), 1);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("1,234"), 1);
    EXPECT_EQ(Val(".5 cup"), 0.5);
    EXPECT_EQ(Val("2e3"), 2000);
    EXPECT_EQ(Val("2 dozen"), 2);        // a "d" with no exponent digits ends the number
    EXPECT_EQ(Val("3eggs"), 3);
    EXPECT_EQ(Val("&H10"), 16);
    EXPECT_EQ(Val("&HFFFF"), -1);        // 16-bit hex is signed
    EXPECT_EQ(Val("&O17"), 15);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("-"), 0);
    EXPECT_EQ(Val("$5"), 0);
    EXPECT_EQ(DescriptionOf([] { Val("1e999"); }), "Overflow");
}

TEST(IsNumeric, AcceptsWholeNumericTextsOnly) {
    for (const char* yes : {"12", " 12 ", "-1.5", "+3", "$3.25", "1,234.50", "1e3", ".5", "5.", "&HFF", "(5)", "- 5"})
        EXPECT_TRUE(IsNumeric(Text(yes))) << yes;
    for (const char* no : {"", " ", "abc", "1/2", "3 cans", "1.2.3", "1e", "$", "True", "11/22/2026", "1 2"})
        EXPECT_FALSE(IsNumeric(Text(no))) << no;
    EXPECT_TRUE(IsNumeric(3));
    EXPECT_TRUE(IsNumeric(2.5));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_TRUE(IsNumeric(Money("1.5")));
    EXPECT_TRUE(IsNumeric(EmptyValue()));
    EXPECT_FALSE(IsNumeric(QVariant()));
    EXPECT_FALSE(IsNumeric(QDate(2026, 11, 22)));
}

TEST(WholeConversions, RoundHalfToEven) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(2.5000001), 3);
    EXPECT_EQ(CInt(Text("2.5")), 2);
    EXPECT_EQ(CInt(Text("  12 ")), 12);
    EXPECT_EQ(CInt(Money("0.5")), 0);
    EXPECT_EQ(CInt(Money("1.5")), 2);
    EXPECT_EQ(CInt(Money("-1.5")), -2);
    EXPECT_EQ(CLng(Money("2.5001")), 3);
    EXPECT_EQ(CInt(true), -1);
    EXPECT_EQ(CInt(Text("True")), -1);
    EXPECT_EQ(CInt(Text("false")), 0);
    EXPECT_EQ(CLng(Text("$1,000")), 1000);
    EXPECT_EQ(CInt(EmptyValue()), 0);
}

TEST(WholeConversions, OverflowAtTheEdgesOfTheirWidth) {
    EXPECT_EQ(CInt(32767), 32767);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);   // rounds to the even edge, still fits
    EXPECT_EQ(DescriptionOf([] { CInt(32767.5); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { CInt(32768); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { CInt(Text("-32769")); }), "Overflow");
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(DescriptionOf([] { CLng(2147483647.5); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { CLng(qint64(1) << 40); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { CLng(1e300); }), "Overflow");
}

TEST(Conversions, RefuseNullAsInvalidUseOfNullAndNonNumbersAsTypeMismatch) {
    EXPECT_EQ(DescriptionOf([] { CInt(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CLng(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CDbl(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CCur(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CBool(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CStr(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(DescriptionOf([] { CInt(Text("abc")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CLng(Text("")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CDbl(Text("1/2")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CCur(Text("Free")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CBool(Text("yes")); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { CBool(Text("")); }), "Type mismatch");
}

TEST(Conversions, CurrencyAndBooleans) {
    EXPECT_EQ(CCur(Text("$3.25")).toString(), "3.25");
    EXPECT_EQ(CCur(Text("0.00015")).raw(), 2);  // texts round exactly, half to even
    EXPECT_EQ(CCur(0.1 + 0.2).toString(), "0.3");
    EXPECT_EQ(CCur(7).toString(), "7");
    EXPECT_EQ(CCur(true).toString(), "-1");
    EXPECT_DOUBLE_EQ(CDbl(Text("1,234.5")), 1234.5);
    EXPECT_DOUBLE_EQ(CDbl(Money("2.4999")), 2.4999);

    EXPECT_TRUE(CBool(Text("TRUE")));
    EXPECT_FALSE(CBool(Text("false")));
    EXPECT_TRUE(CBool(Text("-1")));
    EXPECT_TRUE(CBool(Text("0.5")));
    EXPECT_FALSE(CBool(Text(" 0 ")));
    EXPECT_TRUE(CBool(-1));
    EXPECT_FALSE(CBool(0.0));
    EXPECT_TRUE(CBool(Money("0.0001")));
}

TEST(CStr, PrintsValuesAsTheLanguageDoes) {
    EXPECT_EQ(CStr(true), "True");
    EXPECT_EQ(CStr(false), "False");
    EXPECT_EQ(CStr(-42), "-42");
    EXPECT_EQ(CStr(0.1 + 0.2), "0.3");
    EXPECT_EQ(CStr(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(CStr(2.0), "2");
    EXPECT_EQ(CStr(-0.25), "-0.25");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(1.5e20), "1.5E+20");
    EXPECT_EQ(CStr(0.0001), "0.0001");
    EXPECT_EQ(CStr(0.00001), "1E-05");
    EXPECT_EQ(CStr(Money("1.50")), "1.5");
    EXPECT_EQ(CStr(QDate(2026, 11, 22)), "11/22/2026");
    EXPECT_EQ(CStr(QDateTime(QDate(2026, 1, 5), QTime(0, 0))), "1/5/2026");
    EXPECT_EQ(CStr(QDateTime(QDate(2026, 1, 5), QTime(14, 5, 9))), "1/5/2026 2:05:09 PM");
    EXPECT_EQ(CStr(QDateTime(QDate(2026, 1, 5), QTime(0, 30))), "1/5/2026 12:30:00 AM");
    EXPECT_EQ(CStr(EmptyValue()), "");
    EXPECT_EQ(TextOf(QVariant()), "");
    EXPECT_EQ(TextOf(7), "7");
}

TEST(LooseAdd, TextsJoinButANumberMakesItASum) {
    // The shopping list's quantity column is text: "2" and "3" join, while a
    // number on either side turns the sum numeric.
    EXPECT_EQ(LooseAdd(Text("2"), Text("3")), QVariant(QStringLiteral("23")));
    EXPECT_EQ(LooseAdd(Text("2"), 3.0).toDouble(), 5.0);
    EXPECT_EQ(LooseAdd(3, Text(" 2 ")).toDouble(), 5.0);
    EXPECT_EQ(LooseAdd(Text("1.5"), Val("3 cans")).toDouble(), 4.5);
    EXPECT_EQ(CStr(LooseAdd(Text("2"), 3.0)), "5");
    EXPECT_EQ(DescriptionOf([] { LooseAdd(Text("3 cans"), 2); }), "Type mismatch");
    EXPECT_EQ(DescriptionOf([] { LooseAdd(2.0, Text("")); }), "Type mismatch");
    EXPECT_EQ(LooseAdd(Text(""), Text("x")), QVariant(QStringLiteral("x")));
}

TEST(LooseAdd, NullSpreadsEmptyVanishesAndKindsWiden) {
    EXPECT_TRUE(IsNull(LooseAdd(QVariant(), 5)));
    EXPECT_TRUE(IsNull(LooseAdd(Text("a"), QVariant())));
    EXPECT_EQ(LooseAdd(EmptyValue(), Text("a")), QVariant(QStringLiteral("a")));
    EXPECT_EQ(LooseAdd(4, EmptyValue()), QVariant(4));
    EXPECT_EQ(LooseAdd(true, true), QVariant(-2));
    EXPECT_EQ(LooseAdd(true, 1.5).toDouble(), 0.5);

    const QVariant whole = LooseAdd(2, 3);
    EXPECT_EQ(whole.typeId(), QMetaType::Int);
    EXPECT_EQ(whole.toInt(), 5);
    const QVariant wider = LooseAdd(2147483647, 1);
    EXPECT_EQ(wider.toDouble(), 2147483648.0);   // no wrap-around

    const QVariant money = LooseAdd(Money("1.10"), 2);
    ASSERT_EQ(money.metaType(), QMetaType::fromType<Currency>());
    EXPECT_EQ(money.value<Currency>().toString(), "3.1");
    EXPECT_EQ(LooseAdd(Text("0.05"), Money("1.10")).value<Currency>().toString(), "1.15");
    EXPECT_EQ(LooseAdd(Money("0.1"), 0.2).value<Currency>().toString(), "0.3");

    const QVariant later = LooseAdd(QDate(2026, 11, 22), 10);
    EXPECT_EQ(later.toDateTime().date(), QDate(2026, 12, 2));
}

TEST(Split, IndexesFromZeroAndRefusesOutsideItsBounds) {
    const Split parts("1 1/2%%cup%%flour%%", "%%");
    EXPECT_EQ(parts.UBound(), 3);
    EXPECT_EQ(parts[0], "1 1/2");
    EXPECT_EQ(parts[2], "flour");
    EXPECT_EQ(parts.at(3), "");
    EXPECT_EQ(DescriptionOf([&] { (void)parts[4]; }), "Subscript out of range");
    EXPECT_EQ(DescriptionOf([&] { (void)parts.at(-1); }), "Subscript out of range");

    const Split none("", "::");
    EXPECT_EQ(none.UBound(), -1);
    EXPECT_EQ(DescriptionOf([&] { (void)none[0]; }), "Subscript out of range");

    EXPECT_EQ(Split("a::b::c", "::", 2).UBound(), 1);
    EXPECT_EQ(Split("a::b::c", "::", 2)[1], "b::c");
    EXPECT_EQ(Split("a b").UBound(), 1);                 // blank is the default delimiter
    EXPECT_EQ(Split("a,b", "").UBound(), 0);
    EXPECT_EQ(Split("::", "::").UBound(), 1);
}

TEST(FormatNumbers, MoneyPatternsRoundHalfAwayFromZero) {
    EXPECT_EQ(Format(1.5, "$#0.00"), "$1.50");
    EXPECT_EQ(Format(-1.5, "$#0.00"), "-$1.50");
    EXPECT_EQ(Format(0.125, "$#0.00"), "$0.13");
    EXPECT_EQ(Format(-0.125, "$#0.00"), "-$0.13");
    EXPECT_EQ(Format(2.675, "$0.00"), "$2.68");          // the written number, not its binary neighbour
    EXPECT_EQ(Format(0.004, "$#0.00"), "$0.00");
    EXPECT_EQ(Format(-0.004, "$#0.00"), "$0.00");
    EXPECT_EQ(Format(9.995, "$#0.00"), "$10.00");
    EXPECT_EQ(Format(1234.5, "$####0.00"), "$1234.50");
    EXPECT_EQ(Format(1.5, "$##0.#0"), "$1.50");
    EXPECT_EQ(Format(0, "$##0.#0"), "$0.00");
    EXPECT_EQ(Format(1.25, "###0.0000"), "1.2500");
    EXPECT_EQ(Format(0.12345, "###0.0000"), "0.1235");
    EXPECT_EQ(Format(1234567.891, "$#,##0.00"), "$1,234,567.89");
    EXPECT_EQ(Format(5, "$0#.0#"), "$05.0");
    EXPECT_EQ(Format(1.255, "#0.#0"), "1.26");
    EXPECT_EQ(Format(0.5, "0%"), "50%");
    EXPECT_EQ(Format(-3, "0.00;(0.00)"), "(3.00)");
    EXPECT_EQ(Format(1234.5, "Currency"), "$1,234.50");
}

TEST(FormatNumbers, AcceptsEveryNumericKindAndLeavesWordsAlone) {
    EXPECT_EQ(Format(Money("2.4999"), "$#0.00"), "$2.50");
    EXPECT_EQ(Format(Money("0.005"), "$#0.00"), "$0.01");
    EXPECT_EQ(Format(Text("3.5"), "$#0.00"), "$3.50");
    EXPECT_EQ(Format(Text("$3.5"), "$#0.00"), "$3.50");
    EXPECT_EQ(Format(Text("Free"), "$#0.00"), "Free");
    EXPECT_EQ(Format(Text("Buy 1 get 1"), "$0.00"), "Buy 1 get 1");
    EXPECT_EQ(Format(12, "$#0.00"), "$12.00");
    EXPECT_EQ(Format(QVariant(), "$#0.00"), "");
    EXPECT_EQ(Format(0.1 + 0.2), "0.3");
}

}  // namespace
