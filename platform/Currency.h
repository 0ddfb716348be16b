#pragma once

#include <QMetaType>
#include <QString>
#include <QtGlobal>
#include <compare>
#include <concepts>
#include <limits>
#include <optional>

// Money as the program keeps it: a 64-bit count of ten-thousandths of a unit.
// Every result is rounded half to even to four places, so sums of prices do
// not drift the way doubles do. Leaving the range +-922337203685477.5807
// raises RuntimeError(Err::Overflow); dividing by zero raises Err::DivisionByZero.
class Currency {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Currency() = default;
    // Whole amounts convert silently so that "price * 2" and "total == 0" read
    // naturally. Booleans are left out on purpose: their numeric value (-1) is
    // a rule of the conversion functions, not of money.
    template <std::integral T>
    requires(!std::same_as<T, bool>) Currency(T units) : m_raw(fromInteger(static_cast<long long>(units))) {}
    template <std::floating_point T>
    Currency(T value) : m_raw(fromDouble(static_cast<double>(value)).m_raw) {}

    static constexpr Currency fromRaw(qint64 raw) {
        Currency c;
        c.m_raw = raw;
        return c;
    }
    // Half to even at 4 places, applied to the number as written (its shortest
    // round-trip decimal), so 0.00015 is a tie and becomes 0.0002.
    static Currency fromDouble(double value);
    // Plain decimal text: blanks around, a sign, an optional leading "$"
    // (before or after the sign), "," between digits of the whole part, and
    // a decimal point. More than four decimals round half to even.
    // Empty optional for anything else; a number too big raises Overflow.
    static std::optional<Currency> parse(const QString& text);
    static constexpr Currency max() { return fromRaw(std::numeric_limits<qint64>::max()); }
    static constexpr Currency min() { return fromRaw(std::numeric_limits<qint64>::min()); }

    constexpr qint64 raw() const { return m_raw; }
    double toDouble() const { return double(m_raw) / double(Scale); }
    // Shortest decimal form with a leading "0": "0.5", "2", "-0.25", "1234.5678".
    QString toString() const;

    Currency operator-() const;
    Currency& operator+=(const Currency& o);
    Currency& operator-=(const Currency& o);
    Currency& operator*=(const Currency& o);
    Currency& operator/=(const Currency& o);
    friend Currency operator+(Currency a, const Currency& b) { return a += b; }
    friend Currency operator-(Currency a, const Currency& b) { return a -= b; }
    friend Currency operator*(Currency a, const Currency& b) { return a *= b; }
    friend Currency operator/(Currency a, const Currency& b) { return a /= b; }

    friend constexpr bool operator==(const Currency& a, const Currency& b) { return a.m_raw == b.m_raw; }
    friend constexpr std::strong_ordering operator<=>(const Currency& a, const Currency& b) {
        return a.m_raw <=> b.m_raw;
    }
    // QMetaType finds these for QVariant comparisons.
    friend constexpr bool operator<(const Currency& a, const Currency& b) { return a.m_raw < b.m_raw; }

private:
    static qint64 fromInteger(long long units);
    qint64 m_raw = 0;
};

Q_DECLARE_METATYPE(Currency)
