#include "core/Values.h"
#include "support/TestEnv.h"

#include <QDateTime>

namespace {

QVariant Money(const char* text) { return QVariant::fromValue(Currency::parse(text).value()); }
QVariant Text(const char* text) { return QString::fromUtf8(text); }

}  // namespace

TEST(Val, ReadsTheNumberAtTheStartOfAText) {
    // Blanks inside the number vanish; a "d" with no exponent digits ends it; 16-bit hex is signed.
    const std::pair<const char*, double> cases[] = {{"3 cans", 3},  {" 2", 2},      {"1 2", 12},  {"\t-1 .5\nlb", -1.5},
                                                    {"1/2", 1},     {"1.2.3", 1.2}, {"1,234", 1}, {".5 cup", 0.5},
                                                    {"2e3", 2000},  {"2 dozen", 2}, {"3eggs", 3}, {"&H10", 16},
                                                    {"&HFFFF", -1}, {"&O17", 15},   {"", 0},      {"abc", 0},
                                                    {"-", 0},       {"$5", 0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }), "Overflow");
}

TEST(IsNumeric, AcceptsWholeNumericTextsOnly) {
    for (const char* yes : {"12", " 12 ", "-1.5", "+3", "$3.25", "1,234.50", "1e3", ".5", "5.", "&HFF", "(5)", "- 5"})
        EXPECT_TRUE(IsNumeric(Text(yes))) << yes;
    for (const char* no : {"", " ", "abc", "1/2", "3 cans", "1.2.3", "1e", "$", "True", "11/22/2026", "1 2"})
        EXPECT_FALSE(IsNumeric(Text(no))) << no;
    for (const QVariant& yes : {QVariant(3), QVariant(2.5), QVariant(true), Money("1.5"), EmptyValue()})
        EXPECT_TRUE(IsNumeric(yes)) << yes.typeName();
    EXPECT_FALSE(IsNumeric(QVariant()));
    EXPECT_FALSE(IsNumeric(QDate(2026, 11, 22)));
}

TEST(WholeConversions, RoundHalfToEvenAndOverflowAtTheEdgesOfTheirWidth) {
    const std::pair<QVariant, int> ints[] = {{2.5, 2},          {3.5, 4},           {-2.5, -2},
                                             {2.5000001, 3},    {Text("2.5"), 2},   {Text("  12 "), 12},
                                             {Money("0.5"), 0}, {Money("1.5"), 2},  {Money("-1.5"), -2},
                                             {true, -1},        {Text("True"), -1}, {Text("false"), 0},
                                             {EmptyValue(), 0}, {32767, 32767},     {32767.4, 32767},
                                             {-32768.5, -32768}};  // the last rounds to the even edge and still fits
    for (const auto& [value, whole] : ints) EXPECT_EQ(CInt(value), whole) << TextOf(value).toStdString();
    EXPECT_EQ(CLng(Money("2.5001")), 3);
    EXPECT_EQ(CLng(Text("$1,000")), 1000);
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    for (const QVariant& wide : {QVariant(32767.5), QVariant(32768), Text("-32769")})
        EXPECT_EQ(ErrorOf([&] { CInt(wide); }), "Overflow") << TextOf(wide).toStdString();
    for (const QVariant& wide : {QVariant(2147483647.5), QVariant(qint64(1) << 40), QVariant(1e300)})
        EXPECT_EQ(ErrorOf([&] { CLng(wide); }), "Overflow") << TextOf(wide).toStdString();
}

TEST(Conversions, RefuseNullAsInvalidUseOfNullAndNonNumbersAsTypeMismatch) {
    const std::function<void(const QVariant&)> all[] = {
        [](const QVariant& v) { CInt(v); }, [](const QVariant& v) { CLng(v); },  [](const QVariant& v) { CDbl(v); },
        [](const QVariant& v) { CCur(v); }, [](const QVariant& v) { CBool(v); }, [](const QVariant& v) { CStr(v); }};
    for (const auto& convert : all) EXPECT_EQ(ErrorOf([&] { convert(QVariant()); }), "Invalid use of Null");
    EXPECT_EQ(ErrorOf([] { CInt(Text("abc")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CLng(Text("")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CDbl(Text("1/2")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CCur(Text("Free")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CBool(Text("yes")); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { CBool(Text("")); }), "Type mismatch");
}

TEST(Conversions, CurrencyAndBooleans) {
    EXPECT_EQ(CCur(Text("0.00015")).raw(), 2);  // texts round exactly, half to even
    EXPECT_EQ(QStringList({CCur(Text("$3.25")).toString(), CCur(0.1 + 0.2).toString(), CCur(7).toString(),
                           CCur(true).toString()}),
              QStringList({"3.25", "0.3", "7", "-1"}));
    EXPECT_DOUBLE_EQ(CDbl(Text("1,234.5")), 1234.5);
    EXPECT_DOUBLE_EQ(CDbl(Money("2.4999")), 2.4999);
    for (const QVariant& yes : {Text("TRUE"), Text("-1"), Text("0.5"), QVariant(-1), Money("0.0001")})
        EXPECT_TRUE(CBool(yes)) << TextOf(yes).toStdString();
    for (const QVariant& no : {Text("false"), Text(" 0 "), QVariant(0.0)})
        EXPECT_FALSE(CBool(no)) << TextOf(no).toStdString();
}

TEST(CStr, PrintsValuesTheProgramsWay) {
    const std::pair<QVariant, const char*> cases[] = {
        {true, "True"},
        {false, "False"},
        {-42, "-42"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0, "2"},
        {-0.25, "-0.25"},
        {123456789012345.0, "123456789012345"},
        {1e15, "1E+15"},
        {1.5e20, "1.5E+20"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {Money("1.50"), "1.5"},
        {QDate(2026, 11, 22), "11/22/2026"},
        {QDateTime(QDate(2026, 1, 5), QTime(0, 0)), "1/5/2026"},
        {QDateTime(QDate(2026, 1, 5), QTime(14, 5, 9)), "1/5/2026 2:05:09 PM"},
        {QDateTime(QDate(2026, 1, 5), QTime(0, 30)), "1/5/2026 12:30:00 AM"},
        {EmptyValue(), ""}};
    for (const auto& [value, text] : cases) EXPECT_EQ(CStr(value), text) << text;
    EXPECT_EQ(TextOf(QVariant()), "");
    EXPECT_EQ(TextOf(7), "7");
}

TEST(LooseAdd, TextsJoinButANumberMakesItASum) {
    // The shopping list's quantity column is text: "2" and "3" join, while a
    // number on either side turns the sum numeric.
    EXPECT_EQ(LooseAdd(Text("2"), Text("3")), QVariant(QStringLiteral("23")));
    EXPECT_EQ(LooseAdd(Text(""), Text("x")), QVariant(QStringLiteral("x")));
    EXPECT_EQ(LooseAdd(Text("2"), 3.0).toDouble(), 5.0);
    EXPECT_EQ(LooseAdd(3, Text(" 2 ")).toDouble(), 5.0);
    EXPECT_EQ(LooseAdd(Text("1.5"), Val("3 cans")).toDouble(), 4.5);
    EXPECT_EQ(CStr(LooseAdd(Text("2"), 3.0)), "5");
    EXPECT_EQ(ErrorOf([] { LooseAdd(Text("3 cans"), 2); }), "Type mismatch");
    EXPECT_EQ(ErrorOf([] { LooseAdd(2.0, Text("")); }), "Type mismatch");
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
    EXPECT_EQ(LooseAdd(2147483647, 1).toDouble(), 2147483648.0);  // no wrap-around

    const QVariant money = LooseAdd(Money("1.10"), 2);
    ASSERT_EQ(money.metaType(), QMetaType::fromType<Currency>());
    EXPECT_EQ(money.value<Currency>().toString(), "3.1");
    EXPECT_EQ(LooseAdd(Text("0.05"), Money("1.10")).value<Currency>().toString(), "1.15");
    EXPECT_EQ(LooseAdd(Money("0.1"), 0.2).value<Currency>().toString(), "0.3");
    EXPECT_EQ(LooseAdd(QDate(2026, 11, 22), 10).toDateTime().date(), QDate(2026, 12, 2));
}

TEST(Split, IndexesFromZeroAndRefusesOutsideItsBounds) {
    const Split parts("1 1/2%%cup%%flour%%", "%%");
    EXPECT_EQ(parts.UBound(), 3);
    EXPECT_EQ(QStringList({parts[0], parts[2], parts.at(3)}), QStringList({"1 1/2", "flour", ""}));
    EXPECT_EQ(ErrorOf([&] { (void)parts[4]; }), "Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { (void)parts.at(-1); }), "Subscript out of range");
    const Split none("", "::");
    EXPECT_EQ(none.UBound(), -1);
    EXPECT_EQ(ErrorOf([&] { (void)none[0]; }), "Subscript out of range");

    EXPECT_EQ(Split("a::b::c", "::", 2)[1], "b::c");
    // Blank is the default delimiter.
    EXPECT_EQ(QList<int>({Split("a::b::c", "::", 2).UBound(), Split("a b").UBound(), Split("a,b", "").UBound(),
                          Split("::", "::").UBound()}),
              QList<int>({1, 1, 0, 1}));
}

TEST(FormatNumbers, MoneyPatternsRoundHalfAwayFromZeroAndWordsPassThrough) {
    // 2.675 rounds as the written number, not its binary neighbour.
    const std::tuple<QVariant, const char*, const char*> cases[] = {{1.5, "$#0.00", "$1.50"},
                                                                    {-1.5, "$#0.00", "-$1.50"},
                                                                    {0.125, "$#0.00", "$0.13"},
                                                                    {-0.125, "$#0.00", "-$0.13"},
                                                                    {2.675, "$0.00", "$2.68"},
                                                                    {0.004, "$#0.00", "$0.00"},
                                                                    {-0.004, "$#0.00", "$0.00"},
                                                                    {9.995, "$#0.00", "$10.00"},
                                                                    {1234.5, "$####0.00", "$1234.50"},
                                                                    {1.5, "$##0.#0", "$1.50"},
                                                                    {0, "$##0.#0", "$0.00"},
                                                                    {1.25, "###0.0000", "1.2500"},
                                                                    {0.12345, "###0.0000", "0.1235"},
                                                                    {1234567.891, "$#,##0.00", "$1,234,567.89"},
                                                                    {5, "$0#.0#", "$05.0"},
                                                                    {1.255, "#0.#0", "1.26"},
                                                                    {0.5, "0%", "50%"},
                                                                    {-3, "0.00;(0.00)", "(3.00)"},
                                                                    {1234.5, "Currency", "$1,234.50"},
                                                                    {Money("2.4999"), "$#0.00", "$2.50"},
                                                                    {Money("0.005"), "$#0.00", "$0.01"},
                                                                    {Text("3.5"), "$#0.00", "$3.50"},
                                                                    {Text("$3.5"), "$#0.00", "$3.50"},
                                                                    {Text("Free"), "$#0.00", "Free"},
                                                                    {Text("Buy 1 get 1"), "$0.00", "Buy 1 get 1"},
                                                                    {12, "$#0.00", "$12.00"},
                                                                    {QVariant(), "$#0.00", ""}};
    for (const auto& [value, pattern, text] : cases) EXPECT_EQ(Format(value, pattern), text) << pattern << " " << text;
    EXPECT_EQ(Format(0.1 + 0.2), "0.3");
}
