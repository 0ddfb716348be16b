#include "platform/Clock.h"
#include <QApplication>
#include <gtest/gtest.h>

// Every test binary needs a QApplication: widgets, printing and fonts are real.
int main(int argc, char** argv) {
    Clock::SettleTimeZone();
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                   : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
