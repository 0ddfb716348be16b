#include "platform/Clock.h"

#include <ctime>

namespace {
QDateTime g_pinned;
}

namespace Clock {

QDateTime Now() { return g_pinned.isValid() ? g_pinned : QDateTime::currentDateTime(); }
QDate Today() { return Now().date(); }
void Pin(const QDateTime& when) { g_pinned = when; }
void Unpin() { g_pinned = QDateTime(); }

void SettleTimeZone() {
    if (qEnvironmentVariableIsEmpty("TZ")) {
        qputenv("TZ", ":/etc/localtime");
        tzset();
    }
}

}  // namespace Clock
