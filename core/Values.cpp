#include "core/Values.h"

#include "core/Dates.h"
#include "platform/DateText.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

// ---------------------------------------------------------------- kinds --

enum class Kind { Null, Empty, Bool, Integer, Double, Money, Text, Date, Other };

Kind KindOf(const QVariant& v) {
    if (!v.isValid() || v.typeId() == QMetaType::Nullptr) return Kind::Null;
    if (v.metaType() == QMetaType::fromType<EmptyVariant>()) return Kind::Empty;
    if (v.metaType() == QMetaType::fromType<Currency>()) return Kind::Money;
    switch (v.typeId()) {
    case QMetaType::Bool:
        return Kind::Bool;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Kind::Integer;
    case QMetaType::Float:
    case QMetaType::Double:
        return Kind::Double;
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QChar:
        return Kind::Text;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return Kind::Date;
    default:
        return Kind::Other;
    }
}

QDateTime DateOf(const QVariant& v) {
    return v.typeId() == QMetaType::QDate ? QDateTime(v.toDate(), QTime(0, 0)) : v.toDateTime();
}

// --------------------------------------------------------- numeric text --

// A text read as a number: either a decimal mantissa with an exponent, or an
// exact whole value from "&H"/"&O".
struct NumberText {
    bool negative = false;
    QString digits;  // mantissa as "123.45" (no sign)
    int exponent = 0;
    std::optional<qint64> whole;  // set for "&H"/"&O"
};

bool IsAsciiDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

// "&H" / "&O" values take the width of the smallest whole type that holds
// their digits, so "&HFFFF" is -1 as a 16-bit value.
std::optional<qint64> RadixValue(const QString& digits, int radix) {
    if (digits.isEmpty()) return std::nullopt;
    quint64 value = 0;
    for (const QChar c : digits) {
        const int d = c.isDigit() ? c.unicode() - '0' : (c.toUpper().unicode() - 'A' + 10);
        if (d < 0 || d >= radix || (!c.isDigit() && !c.isLetter())) return std::nullopt;
        value = value * radix + quint64(d);
        if (value > 0xFFFFFFFFull) throw RuntimeError(Err::Overflow);
    }
    if (value <= 0xFFFF) return qint64(qint16(quint16(value)));
    return qint64(qint32(quint32(value)));
}

std::optional<NumberText> ParseNumberText(const QString& input) {
    QString text = input.trimmed();
    NumberText out;
    if (text.size() >= 2 && text.front() == QLatin1Char('(') && text.back() == QLatin1Char(')')) {
        text = text.mid(1, text.size() - 2).trimmed();
        out.negative = true;
    }
    int i = 0;
    const int n = int(text.size());
    bool sawSign = false, sawDollar = false;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if ((c == QLatin1Char('-') || c == QLatin1Char('+')) && !sawSign && !out.negative) {
            sawSign = true;
            out.negative = c == QLatin1Char('-');
        } else if (c == QLatin1Char('$') && !sawDollar) {
            sawDollar = true;
        } else if (c == QLatin1Char(' ') && (sawSign || sawDollar)) {
            // "- 5" and "$ 5" are still numbers
        } else {
            break;
        }
    }
    if (i + 1 < n && text[i] == QLatin1Char('&')) {
        const QChar r = text[i + 1].toUpper();
        if (r == QLatin1Char('H') || r == QLatin1Char('O')) {
            const auto v = RadixValue(text.mid(i + 2), r == QLatin1Char('H') ? 16 : 8);
            if (!v) return std::nullopt;
            out.whole = out.negative ? -*v : *v;
            return out;
        }
    }
    int digitCount = 0;
    bool point = false;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (IsAsciiDigit(c)) {
            out.digits += c;
            ++digitCount;
        } else if (c == QLatin1Char('.') && !point) {
            point = true;
            out.digits += c;
        } else if (c == QLatin1Char(',') && !point && digitCount > 0) {
            // thousands separator
        } else {
            break;
        }
    }
    if (digitCount == 0) return std::nullopt;
    if (i < n && QStringLiteral("eEdD").contains(text[i])) {
        int j = i + 1;
        bool expNegative = false;
        if (j < n && (text[j] == QLatin1Char('+') || text[j] == QLatin1Char('-')))
            expNegative = text[j++] == QLatin1Char('-');
        const int start = j;
        qint64 e = 0;
        while (j < n && IsAsciiDigit(text[j])) {
            e = std::min<qint64>(e * 10 + (text[j].unicode() - '0'), 100000);
            ++j;
        }
        if (j == start) return std::nullopt;
        out.exponent = int(expNegative ? -e : e);
        i = j;
    }
    if (i != n) return std::nullopt;
    return out;
}

double ToDouble(const NumberText& t) {
    if (t.whole) return double(*t.whole);
    QString s = (t.negative ? QStringLiteral("-") : QString()) + t.digits;
    if (t.exponent != 0) s += QLatin1Char('e') + QString::number(t.exponent);
    bool ok = false;
    const double d = s.toDouble(&ok);
    if (!std::isfinite(d)) throw RuntimeError(Err::Overflow);
    return ok ? d : 0.0;
}

Currency ToCurrency(const NumberText& t) {
    if (t.whole) return Currency(*t.whole);
    if (t.exponent == 0) {
        const auto c = Currency::parse((t.negative ? QStringLiteral("-") : QString()) + t.digits);
        if (c) return *c;
    }
    return Currency::fromDouble(ToDouble(t));
}

std::optional<bool> BoolWord(const QString& text) {
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
    return std::nullopt;
}

// The number held by any value that the numeric conversions accept; raises
// Invalid use of Null or Type mismatch otherwise. Currency and whole values
// keep their exactness in the caller, this is for the double path.
double NumberOf(const QVariant& v) {
    switch (KindOf(v)) {
    case Kind::Null:
        throw RuntimeError(Err::InvalidUseOfNull);
    case Kind::Empty:
        return 0.0;
    case Kind::Bool:
        return v.toBool() ? -1.0 : 0.0;
    case Kind::Integer:
        return double(v.toLongLong());
    case Kind::Double:
        return v.toDouble();
    case Kind::Money:
        return v.value<Currency>().toDouble();
    case Kind::Date:
        return ToDateSerial(DateOf(v));
    case Kind::Text: {
        const QString text = v.toString();
        if (const auto t = ParseNumberText(text)) return ToDouble(*t);
        if (const auto b = BoolWord(text)) return *b ? -1.0 : 0.0;
        throw RuntimeError(Err::TypeMismatch);
    }
    case Kind::Other:
        break;
    }
    throw RuntimeError(Err::TypeMismatch);
}

template <class T>
T RoundToWhole(const QVariant& v) {
    constexpr qint64 lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    qint64 whole = 0;
    switch (KindOf(v)) {
    case Kind::Integer: {
        if (v.typeId() == QMetaType::ULongLong && v.toULongLong() > quint64(hi)) throw RuntimeError(Err::Overflow);
        whole = v.toLongLong();
        break;
    }
    case Kind::Money: {
        // Exact half to even on the fixed point, no detour through a double.
        const qint64 raw = v.value<Currency>().raw();
        qint64 q = raw / Currency::Scale, r = raw % Currency::Scale;
        if (r < 0) r = -r;
        if (r * 2 > Currency::Scale || (r * 2 == Currency::Scale && q % 2 != 0)) q += raw < 0 ? -1 : 1;
        whole = q;
        break;
    }
    default: {
        const double d = std::nearbyint(NumberOf(v));  // ties to even
        if (!(d >= double(lo) - 0.5 && d <= double(hi) + 0.5)) throw RuntimeError(Err::Overflow);
        if (d >= 9.2e18 || d <= -9.2e18) throw RuntimeError(Err::Overflow);
        whole = qint64(d);
    }
    }
    if (whole < lo || whole > hi) throw RuntimeError(Err::Overflow);
    return T(whole);
}

// ------------------------------------------------------- number to text --

// Shortest text of a double with at most `precision` significant digits,
// in the style CStr prints: fixed notation while the exponent stays
// between -4 and precision-1, else "1.5E+20" / "1E-05".
QString NumberText15(double d, int precision) {
    if (d == 0) return QStringLiteral("0");
    if (std::isnan(d)) return QStringLiteral("NaN");
    if (std::isinf(d)) return d < 0 ? QStringLiteral("-Inf") : QStringLiteral("Inf");
    QString e = QString::number(d, 'e', precision - 1);  // "-1.23450000000000e+02"
    const int ePos = int(e.indexOf(QLatin1Char('e')));
    const int exponent = e.mid(ePos + 1).toInt();
    QString mantissa = e.left(ePos);
    const bool negative = mantissa.startsWith(QLatin1Char('-'));
    if (negative) mantissa.remove(0, 1);
    QString digits = mantissa.remove(QLatin1Char('.'));
    while (digits.size() > 1 && digits.endsWith(QLatin1Char('0'))) digits.chop(1);
    QString out;
    if (exponent >= precision || exponent < -4) {
        out = digits.left(1);
        if (digits.size() > 1) out += QLatin1Char('.') + digits.mid(1);
        out += (exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+")) +
               QStringLiteral("%1").arg(std::abs(exponent), 2, 10, QLatin1Char('0'));
    } else if (exponent < 0) {
        out = QStringLiteral("0.") + QString(-exponent - 1, QLatin1Char('0')) + digits;
    } else if (digits.size() <= exponent + 1) {
        out = digits + QString(exponent + 1 - digits.size(), QLatin1Char('0'));
    } else {
        out = digits.left(exponent + 1) + QLatin1Char('.') + digits.mid(exponent + 1);
    }
    return negative ? QLatin1Char('-') + out : out;
}

QString TimeText(const QTime& t) {
    const int h12 = t.hour() % 12 == 0 ? 12 : t.hour() % 12;
    return QStringLiteral("%1:%2:%3 %4")
        .arg(h12)
        .arg(t.minute(), 2, 10, QLatin1Char('0'))
        .arg(t.second(), 2, 10, QLatin1Char('0'))
        .arg(t.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

QString DateText(const QDateTime& dt) {
    const QDate d = dt.date();
    const QTime t = dt.time();
    const bool hasTime = t.msecsSinceStartOfDay() / 1000 != 0;
    if (hasTime && d == QDate(1899, 12, 30)) return TimeText(t);
    QString out = QStringLiteral("%1/%2/%3").arg(d.month()).arg(d.day()).arg(d.year());
    if (hasTime) out += QLatin1Char(' ') + TimeText(t);
    return out;
}

// ---------------------------------------------------------- loose add --

QVariant WholeSum(qint64 a, qint64 b, bool wide) {
    qint64 s = 0;
    if (__builtin_add_overflow(a, b, &s)) return double(a) + double(b);
    if (s >= std::numeric_limits<int>::min() && s <= std::numeric_limits<int>::max() && !wide) return int(s);
    if (wide) return s;
    return double(s);  // two 32-bit values that overflow go on as a double
}

QVariant NumericAdd(const QVariant& a, const QVariant& b) {
    const Kind ka = KindOf(a), kb = KindOf(b);
    auto wholeOf = [](const QVariant& v) {
        return KindOf(v) == Kind::Bool ? (v.toBool() ? -1LL : 0LL) : v.toLongLong();
    };
    const bool aWhole = ka == Kind::Integer || ka == Kind::Bool;
    const bool bWhole = kb == Kind::Integer || kb == Kind::Bool;
    if (ka == Kind::Double || kb == Kind::Double) {
        if (ka == Kind::Money || kb == Kind::Money) return QVariant::fromValue(CCur(a) + CCur(b));
        return NumberOf(a) + NumberOf(b);
    }
    if (ka == Kind::Money || kb == Kind::Money) return QVariant::fromValue(CCur(a) + CCur(b));
    if (aWhole && bWhole) {
        const bool wide = a.typeId() == QMetaType::LongLong || b.typeId() == QMetaType::LongLong;
        return WholeSum(wholeOf(a), wholeOf(b), wide);
    }
    return NumberOf(a) + NumberOf(b);
}

// ------------------------------------------------------------ Format --

struct FmtToken {
    enum Type { Zero, Hash, Point, Comma, Percent, Literal } type;
    QString text;
};

// Splits a pattern at ";" outside quotes.
QStringList Sections(const QString& pattern) {
    QStringList out;
    QString cur;
    bool quoted = false;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == QLatin1Char('"')) quoted = !quoted;
        if (!quoted && c == QLatin1Char('\\') && i + 1 < pattern.size()) {
            cur += c;
            cur += pattern[++i];
            continue;
        }
        if (!quoted && c == QLatin1Char(';')) {
            out << cur;
            cur.clear();
        } else {
            cur += c;
        }
    }
    out << cur;
    return out;
}

bool IsNumberPattern(const QString& section) {
    bool quoted = false;
    for (int i = 0; i < section.size(); ++i) {
        const QChar c = section[i];
        if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (quoted)
            continue;
        else if (c == QLatin1Char('\\'))
            ++i;
        else if (c == QLatin1Char('0') || c == QLatin1Char('#') || c == QLatin1Char('%'))
            return true;
    }
    return false;
}

QList<FmtToken> NumberTokens(const QString& section) {
    QList<FmtToken> out;
    auto literal = [&](const QString& s) {
        if (!out.isEmpty() && out.back().type == FmtToken::Literal)
            out.back().text += s;
        else
            out.append(FmtToken{FmtToken::Literal, s});
    };
    for (int i = 0; i < section.size(); ++i) {
        const QChar c = section[i];
        if (c == QLatin1Char('0'))
            out.append(FmtToken{FmtToken::Zero, {}});
        else if (c == QLatin1Char('#'))
            out.append(FmtToken{FmtToken::Hash, {}});
        else if (c == QLatin1Char('.'))
            out.append(FmtToken{FmtToken::Point, {}});
        else if (c == QLatin1Char(','))
            out.append(FmtToken{FmtToken::Comma, {}});
        else if (c == QLatin1Char('%'))
            out.append(FmtToken{FmtToken::Percent, {}});
        else if (c == QLatin1Char('\\') && i + 1 < section.size())
            literal(section[++i]);
        else if (c == QLatin1Char('"')) {
            const int end = int(section.indexOf(QLatin1Char('"'), i + 1));
            literal(section.mid(i + 1, (end < 0 ? section.size() : end) - i - 1));
            i = end < 0 ? int(section.size()) : end;
        } else
            literal(c);
    }
    return out;
}

// Exact decimal digits of a value: whole part and fraction part, no sign.
struct Decimal {
    bool negative = false;
    QString whole;     // no leading zeros, "" for zero
    QString fraction;  // as many digits as known
};

Decimal DecimalOf(const QVariant& v) {
    Decimal d;
    QString text;
    switch (KindOf(v)) {
    case Kind::Money:
        text = v.value<Currency>().toString();
        break;
    case Kind::Integer:
        text = v.toString();
        break;
    case Kind::Bool:
        text = v.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
        break;
    default: {
        // Fifteen significant digits, as CStr shows them, before
        // any rounding: 2.675 rounds to 2.68 and not to 2.67.
        const double x = NumberOf(v);
        text = QString::number(x, 'e', 14);
        const int ePos = int(text.indexOf(QLatin1Char('e')));
        const int exponent = text.mid(ePos + 1).toInt();
        QString m = text.left(ePos);
        d.negative = m.startsWith(QLatin1Char('-'));
        if (d.negative) m.remove(0, 1);
        m.remove(QLatin1Char('.'));
        if (exponent >= 0) {
            if (m.size() < exponent + 1) m += QString(exponent + 1 - m.size(), QLatin1Char('0'));
            d.whole = m.left(exponent + 1);
            d.fraction = m.mid(exponent + 1);
        } else {
            d.fraction = QString(-exponent - 1, QLatin1Char('0')) + m;
        }
        while (d.whole.startsWith(QLatin1Char('0'))) d.whole.remove(0, 1);
        return d;
    }
    }
    d.negative = text.startsWith(QLatin1Char('-'));
    if (d.negative) text.remove(0, 1);
    const int p = int(text.indexOf(QLatin1Char('.')));
    d.whole = p < 0 ? text : text.left(p);
    d.fraction = p < 0 ? QString() : text.mid(p + 1);
    while (d.whole.startsWith(QLatin1Char('0'))) d.whole.remove(0, 1);
    return d;
}

// Keeps `places` fraction digits, half away from zero.
void RoundDecimal(Decimal& d, int places) {
    if (d.fraction.size() <= places) {
        d.fraction += QString(places - d.fraction.size(), QLatin1Char('0'));
        return;
    }
    const bool up = d.fraction[places] >= QLatin1Char('5');
    d.fraction.truncate(places);
    if (!up) return;
    QString all = d.whole + d.fraction;
    int i = int(all.size()) - 1;
    for (; i >= 0; --i) {
        if (all[i] == QLatin1Char('9'))
            all[i] = QLatin1Char('0');
        else {
            all[i] = QChar(all[i].unicode() + 1);
            break;
        }
    }
    if (i < 0) all.prepend(QLatin1Char('1'));
    d.whole = all.left(all.size() - places);
    d.fraction = all.right(places);
    while (d.whole.startsWith(QLatin1Char('0'))) d.whole.remove(0, 1);
}

QString GroupThousands(const QString& digits) {
    QString out;
    for (int i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) out += QLatin1Char(',');
        out += digits[i];
    }
    return out;
}

// One numeric section applied to a value that is already sign-free in
// meaning; returns the text and whether the rounded value is zero.
QString FormatNumberSection(const QString& section, Decimal d, bool* roundedToZero) {
    QList<FmtToken> tokens = NumberTokens(section);
    int pointAt = -1;
    for (int i = 0; i < tokens.size(); ++i)
        if (tokens[i].type == FmtToken::Point) {
            pointAt = i;
            break;
        }
    const int intEnd = pointAt < 0 ? int(tokens.size()) : pointAt;
    auto isDigit = [](const FmtToken& t) { return t.type == FmtToken::Zero || t.type == FmtToken::Hash; };

    QList<int> intSlots, fracSlots;
    int firstZero = -1, lastFracZero = -1;
    bool grouping = false, percent = false;
    for (int i = 0; i < tokens.size(); ++i) {
        const FmtToken& t = tokens[i];
        if (t.type == FmtToken::Percent) percent = true;
        if (!isDigit(t)) continue;
        if (i < intEnd) {
            if (t.type == FmtToken::Zero && firstZero < 0) firstZero = int(intSlots.size());
            intSlots << i;
        } else {
            fracSlots << i;
            if (t.type == FmtToken::Zero) lastFracZero = int(fracSlots.size());
        }
    }
    // A comma between digit places turns on grouping by thousands.
    for (int i = 0; i < intEnd; ++i) {
        if (tokens[i].type != FmtToken::Comma) continue;
        bool before = false, after = false;
        for (int j = 0; j < i; ++j) before |= isDigit(tokens[j]);
        for (int j = i + 1; j < intEnd; ++j) after |= isDigit(tokens[j]);
        if (before && after) grouping = true;
    }
    if (percent) {
        d.whole += d.fraction.left(2).leftJustified(2, QLatin1Char('0'));
        d.fraction = d.fraction.mid(2);
        while (d.whole.startsWith(QLatin1Char('0'))) d.whole.remove(0, 1);
    }
    RoundDecimal(d, int(fracSlots.size()));
    *roundedToZero = d.whole.isEmpty() &&
                     std::all_of(d.fraction.begin(), d.fraction.end(), [](QChar c) { return c == QLatin1Char('0'); });

    const int minWhole = firstZero < 0 ? 0 : int(intSlots.size()) - firstZero;
    QString whole = d.whole;
    if (whole.size() < minWhole) whole = QString(minWhole - whole.size(), QLatin1Char('0')) + whole;
    QString fraction = d.fraction;
    while (fraction.size() > std::max(lastFracZero, 0) && fraction.endsWith(QLatin1Char('0'))) fraction.chop(1);

    // Whole digits fill the integer places from the right; the leftmost place
    // takes whatever is left over, grouped when the pattern asks for it.
    QStringList slotText(tokens.size());
    if (!intSlots.isEmpty()) {
        int rest = int(whole.size());
        for (int k = int(intSlots.size()) - 1; k > 0; --k)
            if (rest > 0) slotText[intSlots[k]] = whole[--rest];
        // Grouped digits stay together in the leftmost place; patterns that
        // group never put literals between their digit places.
        slotText[intSlots[0]] = grouping ? GroupThousands(whole) : whole.left(rest);
        if (grouping)
            for (int k = 1; k < intSlots.size(); ++k) slotText[intSlots[k]].clear();
    }
    for (int k = 0; k < fracSlots.size() && k < fraction.size(); ++k) slotText[fracSlots[k]] = fraction[k];

    QString out;
    for (int i = 0; i < tokens.size(); ++i) {
        switch (tokens[i].type) {
        case FmtToken::Zero:
        case FmtToken::Hash:
            out += slotText[i];
            break;
        case FmtToken::Point:
            if (intSlots.isEmpty()) out += d.whole;  // ".00" still shows whole amounts
            out += QLatin1Char('.');
            break;
        case FmtToken::Comma:
            break;  // grouping or scaling, never printed itself
        case FmtToken::Percent:
            out += QLatin1Char('%');
            break;
        case FmtToken::Literal:
            out += tokens[i].text;
            break;
        }
    }
    return out;
}

QString FormatNumber(const QVariant& value, const QString& pattern) {
    const QStringList sections = Sections(pattern);
    Decimal d = DecimalOf(value);
    const bool negative = d.negative;
    d.negative = false;
    bool zero = false;
    if (negative && sections.size() >= 2 && !sections[1].isEmpty()) return FormatNumberSection(sections[1], d, &zero);
    const QString text = FormatNumberSection(sections[0], d, &zero);
    if (zero && sections.size() >= 3 && !sections[2].isEmpty()) {
        Decimal z;
        return FormatNumberSection(sections[2], z, &zero);
    }
    // The sign goes before everything, currency sign included: "-$1.50".
    // An amount that rounds to nothing loses its sign.
    return negative && !zero ? QLatin1Char('-') + text : text;
}

QString FormatDate(const QDateTime& dt, const QString& pattern) {
    struct Tok {
        QString code;
        QString literal;
    };
    QList<Tok> toks;
    const QString p = pattern;
    for (int i = 0; i < p.size();) {
        const QChar c = p[i];
        const QChar lc = c.toLower();
        if (c == QLatin1Char('"')) {
            const int end = int(p.indexOf(QLatin1Char('"'), i + 1));
            toks.append({{}, p.mid(i + 1, (end < 0 ? p.size() : end) - i - 1)});
            i = end < 0 ? int(p.size()) : end + 1;
            continue;
        }
        if (c == QLatin1Char('\\') && i + 1 < p.size()) {
            toks.append({{}, QString(p[i + 1])});
            i += 2;
            continue;
        }
        if (p.mid(i, 5).compare(QLatin1String("AM/PM"), Qt::CaseInsensitive) == 0) {
            toks.append({p.mid(i, 5), {}});
            i += 5;
            continue;
        }
        if (p.mid(i, 3).compare(QLatin1String("A/P"), Qt::CaseInsensitive) == 0) {
            toks.append({p.mid(i, 3), {}});
            i += 3;
            continue;
        }
        if (QStringLiteral("dmywqhnsy").contains(lc)) {
            int j = i;
            while (j < p.size() && p[j].toLower() == lc) ++j;
            int len = j - i;
            const int maxLen = lc == QLatin1Char('d')   ? 6
                               : lc == QLatin1Char('m') ? 4
                               : lc == QLatin1Char('y') ? 4
                               : lc == QLatin1Char('q') ? 1
                                                        : 2;
            len = std::min(len, maxLen);
            if (lc == QLatin1Char('y') && len == 3) len = 2;
            toks.append({QString(len, lc), {}});
            i += len;
            continue;
        }
        toks.append({{}, QString(c)});
        ++i;
    }
    const bool twelveHour =
        std::any_of(toks.begin(), toks.end(), [](const Tok& t) { return t.code.contains(QLatin1Char('/')); });
    auto neighbourCode = [&](int from, int step) {
        for (int k = from + step; k >= 0 && k < toks.size(); k += step)
            if (!toks[k].code.isEmpty()) return toks[k].code;
        return QString();
    };

    const QDate d = dt.date();
    const QTime t = dt.time();
    auto two = [](int n) { return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')); };
    QString out;
    for (int k = 0; k < toks.size(); ++k) {
        const QString& code = toks[k].code;
        if (code.isEmpty()) {
            out += toks[k].literal;
            continue;
        }
        const QChar kind = code[0];
        const int len = int(code.size());
        if (code.contains(QLatin1Char('/'))) {
            const bool am = t.hour() < 12;
            QString s = len == 5 ? (am ? QStringLiteral("AM") : QStringLiteral("PM"))
                                 : (am ? QStringLiteral("A") : QStringLiteral("P"));
            if (code[0].isLower()) s = s.toLower();
            out += s;
        } else if (kind == QLatin1Char('d')) {
            if (len == 1)
                out += QString::number(d.day());
            else if (len == 2)
                out += two(d.day());
            else if (len == 3)
                out += WeekdayNameText(d.dayOfWeek(), true);
            else if (len == 4)
                out += WeekdayNameText(d.dayOfWeek(), false);
            else if (len == 5)
                out += FormatDate(dt, QStringLiteral("m/d/yyyy"));
            else
                out += FormatDate(dt, QStringLiteral("dddd, mmmm d, yyyy"));
        } else if (kind == QLatin1Char('m')) {
            const bool minute = len <= 2 && (neighbourCode(k, -1).startsWith(QLatin1Char('h')) ||
                                             neighbourCode(k, 1).startsWith(QLatin1Char('s')));
            if (minute)
                out += len == 1 ? QString::number(t.minute()) : two(t.minute());
            else if (len == 1)
                out += QString::number(d.month());
            else if (len == 2)
                out += two(d.month());
            else
                out += MonthNameText(d.month(), len == 3);
        } else if (kind == QLatin1Char('y')) {
            if (len == 1)
                out += QString::number(d.dayOfYear());
            else if (len == 2)
                out += two(d.year() % 100);
            else
                out += QString::number(d.year());
        } else if (kind == QLatin1Char('w')) {
            out += QString::number(len == 1 ? Weekday(d) : WeekOfYear(d));
        } else if (kind == QLatin1Char('q')) {
            out += QString::number((d.month() - 1) / 3 + 1);
        } else if (kind == QLatin1Char('h')) {
            const int h = twelveHour ? (t.hour() % 12 == 0 ? 12 : t.hour() % 12) : t.hour();
            out += len == 1 ? QString::number(h) : two(h);
        } else if (kind == QLatin1Char('n')) {
            out += len == 1 ? QString::number(t.minute()) : two(t.minute());
        } else if (kind == QLatin1Char('s')) {
            out += len == 1 ? QString::number(t.second()) : two(t.second());
        }
    }
    return out;
}

QString NamedFormat(const QVariant& value, const QString& name, bool* handled) {
    *handled = true;
    const QString n = name.toLower();
    auto asDate = [&](const QString& pattern) { return FormatDate(CDate(value), pattern); };
    if (n == QLatin1String("general number")) return CStr(CDbl(value));
    if (n == QLatin1String("currency")) return FormatNumber(value, QStringLiteral("$#,##0.00;($#,##0.00)"));
    if (n == QLatin1String("fixed")) return FormatNumber(value, QStringLiteral("0.00"));
    if (n == QLatin1String("standard")) return FormatNumber(value, QStringLiteral("#,##0.00"));
    if (n == QLatin1String("percent")) return FormatNumber(value, QStringLiteral("0.00%"));
    if (n == QLatin1String("yes/no")) return CBool(value) ? QStringLiteral("Yes") : QStringLiteral("No");
    if (n == QLatin1String("true/false")) return CBool(value) ? QStringLiteral("True") : QStringLiteral("False");
    if (n == QLatin1String("on/off")) return CBool(value) ? QStringLiteral("On") : QStringLiteral("Off");
    if (n == QLatin1String("short date")) return asDate(QStringLiteral("m/d/yyyy"));
    if (n == QLatin1String("medium date")) return asDate(QStringLiteral("dd-mmm-yy"));
    if (n == QLatin1String("long date")) return asDate(QStringLiteral("dddd, mmmm d, yyyy"));
    if (n == QLatin1String("short time")) return asDate(QStringLiteral("hh:nn"));
    if (n == QLatin1String("medium time")) return asDate(QStringLiteral("hh:nn AM/PM"));
    if (n == QLatin1String("long time")) return asDate(QStringLiteral("h:nn:ss AM/PM"));
    if (n == QLatin1String("general date")) return DateText(CDate(value));
    *handled = false;
    return {};
}

}  // namespace

// ================================================================ public ==

QVariant EmptyValue() { return QVariant::fromValue(EmptyVariant{}); }
bool IsNull(const QVariant& v) { return KindOf(v) == Kind::Null; }
bool IsEmpty(const QVariant& v) { return KindOf(v) == Kind::Empty; }

double Val(const QString& text) {
    // Blanks, tabs and line feeds vanish wherever they are; the rest is read
    // up to the first character that cannot continue a number.
    QString s;
    s.reserve(text.size());
    for (const QChar c : text)
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n')) s += c;

    if (s.size() >= 2 && s[0] == QLatin1Char('&')) {
        const QChar r = s[1].toUpper();
        if (r == QLatin1Char('H') || r == QLatin1Char('O')) {
            const int radix = r == QLatin1Char('H') ? 16 : 8;
            int j = 2;
            while (j < s.size()) {
                const QChar c = s[j].toUpper();
                const bool ok = radix == 16 ? (IsAsciiDigit(c) || (c >= QLatin1Char('A') && c <= QLatin1Char('F')))
                                            : (c >= QLatin1Char('0') && c <= QLatin1Char('7'));
                if (!ok) break;
                ++j;
            }
            const auto v = RadixValue(s.mid(2, j - 2), radix);
            return v ? double(*v) : 0.0;
        }
    }
    int i = 0;
    const int n = int(s.size());
    QString num;
    if (i < n && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+'))) num += s[i++];
    bool point = false, digits = false;
    for (; i < n; ++i) {
        if (IsAsciiDigit(s[i])) {
            num += s[i];
            digits = true;
        } else if (s[i] == QLatin1Char('.') && !point) {
            num += s[i];
            point = true;
        } else
            break;
    }
    if (!digits) return 0.0;
    if (i < n && QStringLiteral("eEdD").contains(s[i])) {
        int j = i + 1;
        QString exp = QStringLiteral("e");
        if (j < n && (s[j] == QLatin1Char('-') || s[j] == QLatin1Char('+'))) exp += s[j++];
        const int start = j;
        while (j < n && IsAsciiDigit(s[j])) exp += s[j++];
        if (j > start) num += exp;
    }
    bool ok = false;
    const double d = num.toDouble(&ok);
    if (!std::isfinite(d)) throw RuntimeError(Err::Overflow);
    return ok ? d : 0.0;
}

bool IsNumeric(const QVariant& v) {
    switch (KindOf(v)) {
    case Kind::Empty:
    case Kind::Bool:
    case Kind::Integer:
    case Kind::Double:
    case Kind::Money:
        return true;
    case Kind::Text:
        try {
            return ParseNumberText(v.toString()).has_value();
        } catch (const RuntimeError&) {
            return false;  // "&H" beyond 32 bits
        }
    default:
        return false;
    }
}

qint16 CInt(const QVariant& v) { return RoundToWhole<qint16>(v); }
qint32 CLng(const QVariant& v) { return RoundToWhole<qint32>(v); }
double CDbl(const QVariant& v) { return NumberOf(v); }

Currency CCur(const QVariant& v) {
    switch (KindOf(v)) {
    case Kind::Money:
        return v.value<Currency>();
    case Kind::Integer:
        return Currency(v.toLongLong());
    case Kind::Bool:
        return Currency(v.toBool() ? -1 : 0);
    case Kind::Text:
        if (const auto t = ParseNumberText(v.toString())) return ToCurrency(*t);
        break;
    default:
        break;
    }
    return Currency::fromDouble(NumberOf(v));
}

bool CBool(const QVariant& v) {
    switch (KindOf(v)) {
    case Kind::Null:
        throw RuntimeError(Err::InvalidUseOfNull);
    case Kind::Empty:
        return false;
    case Kind::Bool:
        return v.toBool();
    case Kind::Money:
        return v.value<Currency>().raw() != 0;
    case Kind::Integer:
        return v.toLongLong() != 0;
    case Kind::Double:
        return v.toDouble() != 0.0;
    case Kind::Date:
        return ToDateSerial(DateOf(v)) != 0.0;
    case Kind::Text: {
        const QString text = v.toString();
        if (const auto b = BoolWord(text)) return *b;
        if (const auto t = ParseNumberText(text)) return ToDouble(*t) != 0.0;
        break;
    }
    case Kind::Other:
        break;
    }
    throw RuntimeError(Err::TypeMismatch);
}

QString CStr(const QVariant& v) {
    switch (KindOf(v)) {
    case Kind::Null:
        throw RuntimeError(Err::InvalidUseOfNull);
    case Kind::Empty:
        return QString();
    case Kind::Bool:
        return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Integer:
        return v.toString();
    case Kind::Double:
        return v.typeId() == QMetaType::Float ? NumberText15(double(v.toFloat()), 7) : NumberText15(v.toDouble(), 15);
    case Kind::Money:
        return v.value<Currency>().toString();
    case Kind::Text:
        return v.toString();
    case Kind::Date:
        return DateText(DateOf(v));
    case Kind::Other:
        break;
    }
    if (v.canConvert<QString>()) return v.toString();
    throw RuntimeError(Err::TypeMismatch);
}

QString TextOf(const QVariant& v) {
    const Kind k = KindOf(v);
    return k == Kind::Null || k == Kind::Empty ? QString() : CStr(v);
}

QVariant LooseAdd(const QVariant& a, const QVariant& b) {
    const Kind ka = KindOf(a), kb = KindOf(b);
    if (ka == Kind::Null || kb == Kind::Null) return QVariant();
    if (ka == Kind::Empty && kb == Kind::Empty) return 0;
    if (ka == Kind::Empty) return b;
    if (kb == Kind::Empty) return a;
    if (ka == Kind::Other || kb == Kind::Other) throw RuntimeError(Err::TypeMismatch);
    if (ka == Kind::Text && kb == Kind::Text) return a.toString() + b.toString();
    if (ka == Kind::Date || kb == Kind::Date) {
        if (ka == Kind::Date && kb == Kind::Date) throw RuntimeError(Err::TypeMismatch);
        const QVariant& date = ka == Kind::Date ? a : b;
        const QVariant& days = ka == Kind::Date ? b : a;
        return FromDateSerial(ToDateSerial(DateOf(date)) + CDbl(days));
    }
    // A text against a number must read as a number; it joins the sum as a
    // double unless the other side is Currency.
    if (ka == Kind::Text || kb == Kind::Text) {
        const QVariant& text = ka == Kind::Text ? a : b;
        const QVariant& number = ka == Kind::Text ? b : a;
        const auto parsed = ParseNumberText(text.toString());
        if (!parsed) throw RuntimeError(Err::TypeMismatch);
        if (KindOf(number) == Kind::Money) return QVariant::fromValue(ToCurrency(*parsed) + number.value<Currency>());
        return ToDouble(*parsed) + NumberOf(number);
    }
    return NumericAdd(a, b);
}

Split::Split(const QString& text, const QString& delimiter, int limit) {
    if (text.isEmpty()) return;
    if (delimiter.isEmpty() || limit == 1) {
        m_parts << text;
        return;
    }
    if (limit == 0) return;
    int from = 0;
    while (true) {
        if (limit > 0 && m_parts.size() == limit - 1) break;
        const int at = int(text.indexOf(delimiter, from));
        if (at < 0) break;
        m_parts << text.mid(from, at - from);
        from = at + int(delimiter.size());
    }
    m_parts << text.mid(from);
}

const QString& Split::at(int i) const {
    if (i < 0 || i >= m_parts.size()) throw RuntimeError(Err::SubscriptOutOfRange);
    return m_parts[i];
}

QString Format(const QVariant& value, const QString& pattern) {
    const Kind kind = KindOf(value);
    if (kind == Kind::Null || kind == Kind::Empty) return QString();
    if (pattern.isEmpty()) return CStr(value);

    // What the value is decides first: numeric texts are numbers, date texts
    // are dates, and any other text has nothing to be formatted.
    QVariant v = value;
    bool isDate = kind == Kind::Date;
    if (kind == Kind::Text) {
        const QString text = value.toString();
        if (const auto t = ParseNumberText(text))
            v = ToDouble(*t);
        else if (IsDate(value)) {
            v = CDate(value);
            isDate = true;
        } else
            return text;
    } else if (kind == Kind::Other) {
        return value.toString();
    }

    bool named = false;
    const QString byName = NamedFormat(v, pattern, &named);
    if (named) return byName;

    if (IsNumberPattern(Sections(pattern).front())) {
        if (isDate) v = ToDateSerial(CDate(v));
        return FormatNumber(v, pattern);
    }
    return FormatDate(CDate(v), Sections(pattern).front());
}
