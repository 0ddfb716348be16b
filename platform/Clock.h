#pragma once

#include <QDate>
#include <QDateTime>

// The program's sense of "now". Tests pin it so that due dates and expiries
// are decided the same way on every run.
namespace Clock {
QDateTime Now();
QDate Today();
void Pin(const QDateTime& when);
void Unpin();
// Called once before anything else: with no TZ set, the C library looks at
// the zone file again for every local time it works out, which makes a walk
// over thousands of dates spend its time in the file system.
void SettleTimeZone();
}  // namespace Clock
