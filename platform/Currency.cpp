#include "platform/Currency.h"

#include "platform/RuntimeError.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace {

using Wide = __int128;

constexpr qint64 kMax = std::numeric_limits<qint64>::max();
constexpr qint64 kMin = std::numeric_limits<qint64>::min();

qint64 Checked(Wide v) {
    if (v > Wide(kMax) || v < Wide(kMin)) throw RuntimeError(Err::Overflow);
    return qint64(v);
}

// num / den rounded half to even; den > 0.
Wide DivideHalfEven(Wide num, Wide den) {
    Wide q = num / den;
    Wide r = num % den;
    if (r < 0) {
        r = -r;
    }
    const Wide twice = r * 2;
    if (twice > den || (twice == den && (q % 2 != 0))) q += (num < 0) ? -1 : 1;
    return q;
}

}  // namespace

qint64 Currency::fromInteger(long long units) { return Checked(Wide(units) * Scale); }

Currency Currency::fromDouble(double value) {
    if (!std::isfinite(value)) throw RuntimeError(Err::Overflow);
    if (std::fabs(value) >= 1e16) throw RuntimeError(Err::Overflow);
    // Far from a tie the binary product rounds the same way; that is the
    // common case of amounts read back from the database, so keep it cheap.
    const double scaled = value * double(Scale);
    const double nearest = std::nearbyint(scaled);
    if (std::fabs(scaled) < 1e15 && std::fabs(scaled - nearest) < 0.25) return fromRaw(qint64(nearest));
    // Round the number as it is written, not its binary neighbour: 0.00015
    // is a tie (to 0.0002) although the nearest double lies just below it.
    // The shortest text that reads back as the same double is that number.
    const auto exact = parse(QString::number(value, 'f', QLocale::FloatingPointShortest));
    if (!exact) throw RuntimeError(Err::Overflow);
    return *exact;
}

std::optional<Currency> Currency::parse(const QString& input) {
    const QString text = input.trimmed();
    int i = 0;
    const int n = int(text.size());
    bool negative = false, sawSign = false, sawDollar = false;
    while (i < n) {
        const QChar c = text[i];
        if ((c == QLatin1Char('-') || c == QLatin1Char('+')) && !sawSign) {
            sawSign = true;
            negative = c == QLatin1Char('-');
        } else if (c == QLatin1Char('$') && !sawDollar) {
            sawDollar = true;
        } else {
            break;
        }
        ++i;
    }
    Wide whole = 0, frac = 0;
    int fracDigits = 0, digits = 0;
    bool point = false, roundUp = false, exactTie = true, overflow = false;
    int firstDropped = -1;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (c.isDigit() && c.unicode() < 128) {
            const int d = c.unicode() - '0';
            ++digits;
            if (!point) {
                whole = whole * 10 + d;
                if (whole > Wide(kMax)) overflow = true, whole = Wide(kMax) + 1;
            } else if (fracDigits < 4) {
                frac = frac * 10 + d;
                ++fracDigits;
            } else if (firstDropped < 0) {
                firstDropped = d;
            } else if (d != 0) {
                exactTie = false;
            }
        } else if (c == QLatin1Char('.') && !point) {
            point = true;
        } else if (c == QLatin1Char(',') && !point && digits > 0) {
            // thousands separator between digits of the whole part
        } else {
            return std::nullopt;
        }
    }
    if (digits == 0) return std::nullopt;
    if (overflow) throw RuntimeError(Err::Overflow);
    for (int k = fracDigits; k < 4; ++k) frac *= 10;
    Wide raw = whole * Scale + frac;
    if (firstDropped > 5 || (firstDropped == 5 && !exactTie))
        roundUp = true;
    else if (firstDropped == 5 && exactTie)
        roundUp = (raw % 2) != 0;
    if (roundUp) raw += 1;
    return fromRaw(Checked(negative ? -raw : raw));
}

QString Currency::toString() const {
    const bool negative = m_raw < 0;
    // Unsigned so that the most negative amount has a magnitude too.
    const quint64 mag = negative ? quint64(0) - quint64(m_raw) : quint64(m_raw);
    QString out = negative ? QStringLiteral("-") : QString();
    out += QString::number(mag / Scale);
    quint64 frac = mag % Scale;
    if (frac != 0) {
        QString f = QStringLiteral("%1").arg(frac, 4, 10, QLatin1Char('0'));
        while (f.endsWith(QLatin1Char('0'))) f.chop(1);
        out += QLatin1Char('.') + f;
    }
    return out;
}

Currency Currency::operator-() const { return fromRaw(Checked(-Wide(m_raw))); }

Currency& Currency::operator+=(const Currency& o) {
    m_raw = Checked(Wide(m_raw) + o.m_raw);
    return *this;
}

Currency& Currency::operator-=(const Currency& o) {
    m_raw = Checked(Wide(m_raw) - o.m_raw);
    return *this;
}

Currency& Currency::operator*=(const Currency& o) {
    m_raw = Checked(DivideHalfEven(Wide(m_raw) * o.m_raw, Scale));
    return *this;
}

Currency& Currency::operator/=(const Currency& o) {
    if (o.m_raw == 0) throw RuntimeError(Err::DivisionByZero);
    Wide num = Wide(m_raw) * Scale;
    Wide den = o.m_raw;
    if (den < 0) {
        num = -num;
        den = -den;
    }
    m_raw = Checked(DivideHalfEven(num, den));
    return *this;
}
