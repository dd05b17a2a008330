// For tests of what stands on the session bus or the system bus: both are one bus of their own.

#include "linux/session_bus.h"

#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    voltmere::sessionBus();
    const int status = RUN_ALL_TESTS();
    voltmere::sessionBus().stop();
    return status;
}
