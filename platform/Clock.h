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
}  // namespace Clock
