#include "platform/DateText.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace {

const std::array<QString, 12> kMonths = {
    QStringLiteral("January"),   QStringLiteral("February"), QStringLiteral("March"),    QStringLiteral("April"),
    QStringLiteral("May"),       QStringLiteral("June"),     QStringLiteral("July"),     QStringLiteral("August"),
    QStringLiteral("September"), QStringLiteral("October"),  QStringLiteral("November"), QStringLiteral("December")};

const std::array<QString, 7> kWeekdays = {
    QStringLiteral("Monday"), QStringLiteral("Tuesday"),  QStringLiteral("Wednesday"), QStringLiteral("Thursday"),
    QStringLiteral("Friday"), QStringLiteral("Saturday"), QStringLiteral("Sunday")};

// A name may be written in full or shortened to at least three letters
// ("Nov", "Sept", "Thurs"); anything shorter is too ambiguous to be a date.
template <size_t N>
int NameIndex(const std::array<QString, N>& names, const QString& word) {
    if (word.size() < 3) return -1;
    for (size_t i = 0; i < N; ++i)
        if (names[i].startsWith(word, Qt::CaseInsensitive)) return int(i) + 1;
    return -1;
}

// Two-digit years pivot at 30, so the stock mark 1/1/50 stays in 1950:
// 00-29 belong to this century, 30-99 to the last one.
int FullYear(const QString& digits) {
    const int y = digits.toInt();
    if (digits.size() <= 2) return y < 30 ? 2000 + y : 1900 + y;
    if (digits.size() == 4 && y >= 100) return y;
    return -1;
}

const QString kTime = QStringLiteral(R"((\d{1,2}):(\d{1,2})(?::(\d{1,2})(?:\.\d+)?)?\s*([AP]M?)?)");

std::optional<QTime> TimeFrom(const QRegularExpressionMatch& m, int first) {
    if (!m.hasCaptured(first)) return QTime(0, 0);
    int h = m.captured(first).toInt();
    const int mi = m.captured(first + 1).toInt();
    const int s = m.hasCaptured(first + 2) ? m.captured(first + 2).toInt() : 0;
    const QString ampm = m.captured(first + 3).toUpper();
    if (!ampm.isEmpty()) {
        if (h > 12) return std::nullopt;
        if (h == 12) h = 0;
        if (ampm.startsWith(QLatin1Char('P'))) h += 12;
    }
    if (h > 23 || mi > 59 || s > 59) return std::nullopt;
    return QTime(h, mi, s);
}

std::optional<QDateTime> Make(int y, int m, int d, const QRegularExpressionMatch& match, int timeGroup) {
    if (y < 100 || m < 1 || d < 1) return std::nullopt;
    const QDate date(y, m, d);
    if (!date.isValid()) return std::nullopt;
    const auto time = TimeFrom(match, timeGroup);
    if (!time) return std::nullopt;
    return QDateTime(date, *time);
}

QRegularExpression Rx(const QString& pattern) {
    return QRegularExpression(QStringLiteral("^") + pattern + QStringLiteral("$"),
                              QRegularExpression::CaseInsensitiveOption);
}

}  // namespace

std::optional<QDateTime> ParseDateText(const QString& input) {
    static const QRegularExpression iso =
        Rx(QStringLiteral(R"((\d{4})-(\d{1,2})-(\d{1,2})(?:(?:\s+|T))") + kTime + QStringLiteral(")?"));
    static const QRegularExpression ymd =
        Rx(QStringLiteral(R"((\d{4})/(\d{1,2})/(\d{1,2})(?:\s+)") + kTime + QStringLiteral(")?"));
    static const QRegularExpression mdy =
        Rx(QStringLiteral(R"((\d{1,2})([/-])(\d{1,2})\2(\d{4}|\d{2})(?:\s+)") + kTime + QStringLiteral(")?"));
    static const QRegularExpression named =
        Rx(QStringLiteral(R"((?:([a-z]+)\.?,?\s+)?([a-z]+)\.?\s+(\d{1,2}),?\s+(\d{4}|\d{2})(?:,?\s+)") + kTime +
           QStringLiteral(")?"));
    static const QRegularExpression dayFirst =
        Rx(QStringLiteral(R"((\d{1,2})[\s-]+([a-z]+)\.?[\s-]+(\d{4}|\d{2})(?:\s+)") + kTime + QStringLiteral(")?"));

    const QString text = input.trimmed();
    if (text.isEmpty() || !text.front().isLetterOrNumber()) return std::nullopt;
    // Words such as "None" and "Never" stand in date columns all the time.
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); })) return std::nullopt;
    // The stored form is by far the most common; read it without the patterns.
    if (text.size() == 10 && text[4] == QLatin1Char('-') && text[7] == QLatin1Char('-')) {
        bool okY = false, okM = false, okD = false;
        const int y = text.left(4).toInt(&okY), m = text.mid(5, 2).toInt(&okM), d = text.mid(8, 2).toInt(&okD);
        if (okY && okM && okD && text[5].isDigit() && text[8].isDigit()) {
            const QDate date(y, m, d);
            if (!date.isValid() || y < 100) return std::nullopt;
            return QDateTime(date, QTime(0, 0));
        }
    }

    if (auto m = iso.match(text); m.hasMatch())
        return Make(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt(), m, 4);
    if (auto m = ymd.match(text); m.hasMatch())
        return Make(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt(), m, 4);
    if (auto m = mdy.match(text); m.hasMatch())
        return Make(FullYear(m.captured(4)), m.captured(1).toInt(), m.captured(3).toInt(), m, 5);
    if (auto m = named.match(text); m.hasMatch()) {
        if (m.hasCaptured(1) && NameIndex(kWeekdays, m.captured(1)) < 0) return std::nullopt;
        const int month = NameIndex(kMonths, m.captured(2));
        if (month < 0) return std::nullopt;
        return Make(FullYear(m.captured(4)), month, m.captured(3).toInt(), m, 5);
    }
    if (auto m = dayFirst.match(text); m.hasMatch()) {
        const int month = NameIndex(kMonths, m.captured(2));
        if (month < 0) return std::nullopt;
        return Make(FullYear(m.captured(3)), month, m.captured(1).toInt(), m, 4);
    }
    return std::nullopt;
}

std::optional<QDate> ParseDateOnlyText(const QString& text) {
    if (const auto dt = ParseDateText(text)) return dt->date();
    return std::nullopt;
}

std::optional<QTime> ParseTimeText(const QString& text) {
    static const QRegularExpression timeOnly = Rx(kTime);
    const auto m = timeOnly.match(text.trimmed());
    if (!m.hasMatch()) return std::nullopt;
    return TimeFrom(m, 1);
}

QString IsoDateText(const QDate& d) {
    if (!d.isValid()) return QString();
    return QStringLiteral("%1-%2-%3")
        .arg(d.year(), 4, 10, QLatin1Char('0'))
        .arg(d.month(), 2, 10, QLatin1Char('0'))
        .arg(d.day(), 2, 10, QLatin1Char('0'));
}

QString IsoDateText(const QDateTime& dt) {
    if (!dt.isValid()) return QString();
    const QTime t = dt.time();
    QString out = IsoDateText(dt.date());
    if (t.hour() != 0 || t.minute() != 0 || t.second() != 0)
        out += QStringLiteral(" %1:%2:%3")
                   .arg(t.hour(), 2, 10, QLatin1Char('0'))
                   .arg(t.minute(), 2, 10, QLatin1Char('0'))
                   .arg(t.second(), 2, 10, QLatin1Char('0'));
    return out;
}

QString MonthNameText(int month, bool abbreviated) {
    if (month < 1 || month > 12) return QString();
    const QString& name = kMonths[size_t(month - 1)];
    return abbreviated ? name.left(3) : name;
}

QString WeekdayNameText(int weekday, bool abbreviated) {
    if (weekday < 1 || weekday > 7) return QString();
    const QString& name = kWeekdays[size_t(weekday - 1)];
    return abbreviated ? name.left(3) : name;
}
