#include "core/Dates.h"

#include "core/Values.h"
#include "platform/Currency.h"
#include "platform/DateText.h"
#include "platform/RuntimeError.h"

#include <cmath>

namespace {

const QDate kDayZero(1899, 12, 30);
const QString kInvalidCall = QStringLiteral("Invalid procedure call or argument");

// Seconds on a clock that ignores time zones and daylight saving, so that
// differences and sums behave as written dates do.
qint64 NaiveSeconds(const QDateTime& dt) {
    return dt.date().toJulianDay() * 86400 + dt.time().msecsSinceStartOfDay() / 1000;
}

QDateTime FromNaiveSeconds(qint64 s) {
    const qint64 day = s >= 0 ? s / 86400 : -((-s + 86399) / 86400);
    const qint64 rest = s - day * 86400;
    return QDateTime(QDate::fromJulianDay(day), QTime(0, 0).addSecs(int(rest)));
}

QDateTime Checked(const QDateTime& dt) {
    if (!dt.isValid() || dt.date().year() < 100 || dt.date().year() > 9999) throw RuntimeError(Err::Overflow);
    return dt;
}

// Days from the Sunday that starts the week of d (Sunday = 0).
int DaysFromSunday(const QDate& d) { return d.dayOfWeek() % 7; }

}  // namespace

int Weekday(const QDate& d) { return DaysFromSunday(d) + 1; }

int WeekOfYear(const QDate& d) {
    const QDate jan1(d.year(), 1, 1);
    return (d.dayOfYear() - 1 + DaysFromSunday(jan1)) / 7 + 1;
}

double ToDateSerial(const QDateTime& dt) {
    const qint64 days = kDayZero.daysTo(dt.date());
    const double frac = dt.time().msecsSinceStartOfDay() / 86400000.0;
    // Before day zero the whole part counts back while the time still runs
    // forward, so -1.25 is 6 AM on the day before.
    return days >= 0 ? double(days) + frac : double(days) - frac;
}

QDateTime FromDateSerial(double serial) {
    if (!std::isfinite(serial) || serial > 2958465.999999 || serial < -657434.0) throw RuntimeError(Err::Overflow);
    const double whole = std::trunc(serial);
    qint64 secs = std::llround(std::fabs(serial - whole) * 86400.0);
    qint64 days = qint64(whole);
    if (secs >= 86400) {  // a fraction that rounds to the next midnight
        secs -= 86400;
        days += serial < 0 ? -1 : 1;
    }
    return QDateTime(kDayZero.addDays(days), QTime(0, 0).addSecs(int(secs)));
}

bool IsDate(const QVariant& v) {
    switch (v.typeId()) {
    case QMetaType::QDate:
        return v.toDate().isValid();
    case QMetaType::QDateTime:
        return v.toDateTime().isValid();
    case QMetaType::QString:
        return ParseDateText(v.toString()).has_value() || ParseTimeText(v.toString()).has_value();
    default:
        return false;
    }
}

QDateTime CDate(const QVariant& v) {
    if (IsNull(v)) throw RuntimeError(Err::InvalidUseOfNull);
    if (IsEmpty(v)) return QDateTime(kDayZero, QTime(0, 0));
    switch (v.typeId()) {
    case QMetaType::QDate:
        if (v.toDate().isValid()) return QDateTime(v.toDate(), QTime(0, 0));
        break;
    case QMetaType::QDateTime:
        if (v.toDateTime().isValid()) return v.toDateTime();
        break;
    case QMetaType::QString: {
        const QString text = v.toString();
        if (const auto dt = ParseDateText(text)) return *dt;
        if (const auto t = ParseTimeText(text)) return QDateTime(kDayZero, *t);
        break;
    }
    case QMetaType::Bool:
        return FromDateSerial(v.toBool() ? -1.0 : 0.0);
    default:
        if (v.metaType() == QMetaType::fromType<Currency>()) return FromDateSerial(v.value<Currency>().toDouble());
        if (IsNumeric(v)) return FromDateSerial(CDbl(v));
        break;
    }
    throw RuntimeError(Err::TypeMismatch);
}

qint64 DateDiff(const QString& interval, const QDateTime& a, const QDateTime& b) {
    const QString unit = interval.toLower();
    const QDate da = a.date(), db = b.date();
    if (unit == QLatin1String("d") || unit == QLatin1String("y")) return da.daysTo(db);
    if (unit == QLatin1String("w")) return da.daysTo(db) / 7;
    if (unit == QLatin1String("ww")) return da.addDays(-DaysFromSunday(da)).daysTo(db.addDays(-DaysFromSunday(db))) / 7;
    if (unit == QLatin1String("m")) return qint64(db.year() - da.year()) * 12 + (db.month() - da.month());
    if (unit == QLatin1String("q"))
        return qint64(db.year() - da.year()) * 4 + ((db.month() - 1) / 3 - (da.month() - 1) / 3);
    if (unit == QLatin1String("yyyy")) return db.year() - da.year();
    auto floorDiv = [](qint64 x, qint64 d) { return x >= 0 ? x / d : -((-x + d - 1) / d); };
    const qint64 sa = NaiveSeconds(a), sb = NaiveSeconds(b);
    if (unit == QLatin1String("h")) return floorDiv(sb, 3600) - floorDiv(sa, 3600);
    if (unit == QLatin1String("n")) return floorDiv(sb, 60) - floorDiv(sa, 60);
    if (unit == QLatin1String("s")) return sb - sa;
    throw RuntimeError(kInvalidCall);
}

QDateTime DateAdd(const QString& interval, qint64 n, const QDateTime& d) {
    const QString unit = interval.toLower();
    // Bounds the count before any multiplication, so huge counts overflow cleanly.
    if (n > 3650000 * 86400LL || n < -3650000 * 86400LL) throw RuntimeError(Err::Overflow);
    auto months = [&](qint64 m) {
        if (m > 120000 || m < -120000) throw RuntimeError(Err::Overflow);
        return Checked(QDateTime(d.date().addMonths(int(m)), d.time()));
    };
    auto seconds = [&](qint64 s) { return Checked(FromNaiveSeconds(NaiveSeconds(d) + s)); };
    if (unit == QLatin1String("yyyy")) return months(n * 12);
    if (unit == QLatin1String("q")) return months(n * 3);
    if (unit == QLatin1String("m")) return months(n);
    if (unit == QLatin1String("d") || unit == QLatin1String("y") || unit == QLatin1String("w"))
        return seconds(n * 86400);
    if (unit == QLatin1String("ww")) return seconds(n * 7 * 86400);
    if (unit == QLatin1String("h")) return seconds(n * 3600);
    if (unit == QLatin1String("n")) return seconds(n * 60);
    if (unit == QLatin1String("s")) return seconds(n);
    throw RuntimeError(kInvalidCall);
}
