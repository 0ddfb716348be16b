#include "platform/Currency.h"
#include "platform/RuntimeError.h"

#include <QVariant>
#include <gtest/gtest.h>

namespace {

QString DescriptionOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.description();
    }
    return QStringLiteral("(no error)");
}

TEST(Currency, PrintsTheShortestDecimalWithALeadingZero) {
    EXPECT_EQ(Currency::fromRaw(5000).toString(), "0.5");
    EXPECT_EQ(Currency(2).toString(), "2");
    EXPECT_EQ(Currency::fromRaw(-2500).toString(), "-0.25");
    EXPECT_EQ(Currency::fromRaw(12345678).toString(), "1234.5678");
    EXPECT_EQ(Currency::fromRaw(1).toString(), "0.0001");
    EXPECT_EQ(Currency().toString(), "0");
    EXPECT_EQ(Currency::min().toString(), "-922337203685477.5808");
    EXPECT_EQ(Currency::max().toString(), "922337203685477.5807");
}

TEST(Currency, DoublesRoundHalfToEvenAtFourPlaces) {
    EXPECT_EQ(Currency::fromDouble(0.1 + 0.2).raw(), 3000);
    EXPECT_EQ(Currency::fromDouble(0.00005).raw(), 0);   // tie goes to the even 0
    EXPECT_EQ(Currency::fromDouble(0.00015).raw(), 2);   // tie goes to the even 2
    EXPECT_EQ(Currency::fromDouble(-0.00015).raw(), -2);
    EXPECT_EQ(Currency::fromDouble(2.49985).toString(), "2.4998");
    EXPECT_EQ(Currency::fromDouble(1.23456).toString(), "1.2346");
}

TEST(Currency, ParsesMoneyTextAndRejectsTheRest) {
    EXPECT_EQ(Currency::parse("1.5")->toString(), "1.5");
    EXPECT_EQ(Currency::parse("-2")->toString(), "-2");
    EXPECT_EQ(Currency::parse("$3.25")->toString(), "3.25");
    EXPECT_EQ(Currency::parse("-$3.25")->toString(), "-3.25");
    EXPECT_EQ(Currency::parse(" 4 ")->toString(), "4");
    EXPECT_EQ(Currency::parse("1,234.50")->toString(), "1234.5");
    EXPECT_EQ(Currency::parse(".75")->toString(), "0.75");
    // Beyond four places the text itself is rounded, exactly, half to even.
    EXPECT_EQ(Currency::parse("0.00005")->raw(), 0);
    EXPECT_EQ(Currency::parse("0.000051")->raw(), 1);
    EXPECT_EQ(Currency::parse("0.00015")->raw(), 2);
    for (const char* bad : {"", "$", "1.2.3", "abc", "-", ".", "1e5", "12abc", "--1", ",5"})
        EXPECT_FALSE(Currency::parse(bad).has_value()) << bad;
}

TEST(Currency, ArithmeticRoundsHalfToEvenAndStaysExact) {
    const Currency third = Currency(1) / Currency(3);
    EXPECT_EQ(third.toString(), "0.3333");
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
    EXPECT_EQ(DescriptionOf([] { (void)(Currency::max() + Currency::fromRaw(1)); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)(Currency::min() - Currency::fromRaw(1)); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)-Currency::min(); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)(Currency(1000000000) * Currency(1000000000)); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)Currency::fromDouble(1e15); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)Currency::parse("922337203685477.5808"); }), "Overflow");
    EXPECT_EQ(DescriptionOf([] { (void)(Currency(1) / Currency()); }), "Division by zero");
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

}  // namespace
