#include "app/Application.h"
#include "platform/Clock.h"
#include <gtest/gtest.h>

// Every test binary needs the application object: widgets, printing and fonts are
// real, and events are delivered inside the error trap as in the program.
int main(int argc, char** argv) {
    Clock::SettleTimeZone();
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    Application app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
