#include "measures/modConvert.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "platform/Clock.h"
#include "platform/Recordset.h"

#include <cmath>

Currency FractionToDecimal(const QString& quantity) {
    Currency result;
    Trap(QStringLiteral("Convert.FractionToDecimal"), [&] {
        const Split words(quantity.trimmed(), QStringLiteral(" "));
        if (Val(words[0]) > 0 && !words[0].contains(QLatin1Char('/'))) result = CCur(words[0]);
        // The second word is read whatever the first was: a lone fraction fails here.
        const Split fraction(words[1], QStringLiteral("/"));
        const double denominator = Val(fraction[1]);
        if (denominator != 0) result += CCur(Val(fraction[0]) / denominator);
    });
    return result;
}

QString DecimalToFraction(Currency& value) {
    QString result;
    Trap(QStringLiteral("Convert.DecimalToFraction"), [&] {
        const QString text = value.toString();
        const int point = int(text.indexOf(QLatin1Char('.')));
        if (point > 0 && value > Currency(1)) {
            const QString whole = text.left(point);
            result = whole;
            value -= CCur(whole);
        }
        if (value <= Currency(0)) return;  // no positive fraction reaches it
        // Numerators are tried upward, each with denominators upward. For one
        // numerator the quotients of neighbouring denominators differ by more than
        // the rounding step, so only the denominators next to n/value can match;
        // trying those in order finds the same first pair as trying all 64.
        const double target = value.toDouble();
        for (int n = 1; n <= 64; ++n) {
            const int centre = int(std::floor(n / target));
            for (int d = qMax(1, centre - 1); d <= qMin(64, centre + 2); ++d) {
                if (Currency(n) / Currency(d) != value) continue;
                if (d == 1)
                    result += QString::number(n);
                else
                    result += QStringLiteral(" %1/%2").arg(n).arg(d);
                return;
            }
        }
    });
    return result;
}

QString ConvertUnit(const QString& from, const QString& quantity, const QString& to) {
    QString result;
    Trap(QStringLiteral("Convert.ConvertUnit"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Conversion WHERE [RowDescription] = '") + QuoteSql(from) +
                    QStringLiteral("' AND [ColumnDescription] = '") + QuoteSql(to) + QLatin1Char('\''),
                ConnectionMain(), adOpenKeyset, adLockReadOnly);
        if (rs.IsEOF()) return;
        const double number = quantity.contains(QLatin1Char('/'))
                                  ? CDbl(CStr(QVariant::fromValue(FractionToDecimal(quantity))))
                                  : Val(quantity);
        // An empty cell is a pair with no known constant, read as the 0 that
        // merging and the conversion screen both take for "none known".
        const QVariant constant = rs.Field(QStringLiteral("conversionconstant"));
        result = IsNull(constant) ? QStringLiteral("0") : CStr(CDbl(constant) * number);
    });
    return result;
}

qint32 YearWeek(const QDate& date) {
    QString text = Format(QVariant(date), QStringLiteral("yyyy ww"));
    // A one-digit week gets its leading zero, so keys sort as weeks do.
    if (text.size() < 7)
        text.replace(QLatin1Char(' '), QLatin1Char('0'));
    else
        text.remove(QLatin1Char(' '));
    return text.toInt();
}

QDate WeekStart(qint32 key) {
    // The latest week the calendar screen offers begins a year from today;
    // a week more covers it, and a key never met ends the search there.
    constexpr int kSearchDays = 371;
    const QDate today = Clock::Today();
    for (int days = 0; days <= kSearchDays; ++days) {
        const QDate day = today.addDays(days);
        if (YearWeek(day) == key) return day;
    }
    return QDate();
}
