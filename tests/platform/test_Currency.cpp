#include "platform/Currency.h"
#include "support/TestEnv.h"

#include <QVariant>

TEST(Currency, PrintsTheShortestDecimalWithALeadingZero) {
    const std::pair<Currency, const char*> cases[] = {
        {Currency::fromRaw(5000), "0.5"},           {Currency(2), "2"},
        {Currency::fromRaw(-2500), "-0.25"},        {Currency::fromRaw(12345678), "1234.5678"},
        {Currency::fromRaw(1), "0.0001"},           {Currency(), "0"},
        {Currency::min(), "-922337203685477.5808"}, {Currency::max(), "922337203685477.5807"}};
    for (const auto& [money, text] : cases) EXPECT_EQ(money.toString(), text);
}

TEST(Currency, DoublesAndTextsRoundHalfToEvenAtFourPlaces) {
    // Ties go to the even neighbour: 0 for 0.00005, 2 for 0.00015.
    EXPECT_EQ(QList<qint64>({Currency::fromDouble(0.1 + 0.2).raw(), Currency::fromDouble(0.00005).raw(),
                             Currency::fromDouble(0.00015).raw(), Currency::fromDouble(-0.00015).raw()}),
              QList<qint64>({3000, 0, 2, -2}));
    EXPECT_EQ(Currency::fromDouble(2.49985).toString(), "2.4998");
    EXPECT_EQ(Currency::fromDouble(1.23456).toString(), "1.2346");
    // Beyond four places the text itself is rounded, exactly.
    EXPECT_EQ(QList<qint64>({Currency::parse("0.00005")->raw(), Currency::parse("0.000051")->raw(),
                             Currency::parse("0.00015")->raw()}),
              QList<qint64>({0, 1, 2}));
}

TEST(Currency, ParsesMoneyTextAndRejectsTheRest) {
    const std::pair<const char*, const char*> cases[] = {{"1.5", "1.5"},      {"-2", "-2"}, {"$3.25", "3.25"},
                                                         {"-$3.25", "-3.25"}, {" 4 ", "4"}, {"1,234.50", "1234.5"},
                                                         {".75", "0.75"}};
    for (const auto& [text, money] : cases) EXPECT_EQ(Currency::parse(text)->toString(), money) << text;
    for (const char* bad : {"", "$", "1.2.3", "abc", "-", ".", "1e5", "12abc", "--1", ",5"})
        EXPECT_FALSE(Currency::parse(bad).has_value()) << bad;
}

TEST(Currency, ArithmeticRoundsHalfToEvenAndStaysExact) {
    EXPECT_EQ((Currency(1) / Currency(3)).toString(), "0.3333");
    EXPECT_EQ((Currency::fromRaw(5) * Currency::fromRaw(5000)).raw(), 2);   // 0.00025 -> 0.0002
    EXPECT_EQ((Currency::fromRaw(15) * Currency::fromRaw(5000)).raw(), 8);  // 0.00075 -> 0.0008
    EXPECT_EQ((Currency::fromRaw(-15) * Currency::fromRaw(5000)).raw(), -8);
    EXPECT_EQ((Currency(-2) / Currency(3)).toString(), "-0.6667");
    EXPECT_EQ((Currency(1) / Currency(-8)).toString(), "-0.125");
    Currency sum;
    for (int i = 0; i < 10; ++i) sum += Currency::fromDouble(0.1);
    EXPECT_EQ(sum, Currency(1));
    EXPECT_LT(Currency::fromRaw(-1), Currency());
    EXPECT_EQ((Currency::parse("19.99").value() * 3).toString(), "59.97");
}

TEST(Currency, LeavingTheRangeIsAnOverflowAndZeroDivisorIsReported) {
    EXPECT_EQ(ErrorOf([] { (void)(Currency::max() + Currency::fromRaw(1)); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)(Currency::min() - Currency::fromRaw(1)); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)-Currency::min(); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)(Currency(1000000000) * Currency(1000000000)); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)Currency::fromDouble(1e15); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)Currency::parse("922337203685477.5808"); }), "Overflow");
    EXPECT_EQ(ErrorOf([] { (void)(Currency(1) / Currency()); }), "Division by zero");
    // The edges themselves are still money.
    EXPECT_EQ(Currency::parse("922337203685477.5807")->raw(), Currency::max().raw());
    EXPECT_EQ(Currency::parse("-922337203685477.5808")->raw(), Currency::min().raw());
    EXPECT_EQ(Currency::fromDouble(922337203685.4775).toString(), "922337203685.4775");
}

TEST(Currency, TravelsInAVariantAndComparesThere) {
    const QVariant a = QVariant::fromValue(Currency::fromRaw(25000));
    EXPECT_EQ(a.value<Currency>().toString(), "2.5");
    EXPECT_EQ(a, QVariant::fromValue(Currency::parse("2.5").value()));
    EXPECT_NE(a, QVariant::fromValue(Currency(2)));
}
