// Starts the built program beside an instance of it that this test plays.

#include "ports/desktop.h"
#include "tests/app/program_fixture.h"
#include "tests/linux/fake_bus_service.h"
#include "tests/linux/private_bus.h"

#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QTest>

namespace voltmere {
namespace {

using testing::SizeIs;

class SecondStartTest : public ProgramTest {
protected:
    SecondStartTest()
    {
        variables["DBUS_SESSION_BUS_ADDRESS"] = bus.busAddress().toStdString();
        variables["QT_QPA_PLATFORM"] = "offscreen";
        running.appear(applicationId);
    }

    /// Starts the program; returns what it handed over to the instance that runs.
    QVariantMap handedOver(const QStringList& words = {})
    {
        QProcess program;
        start(program, words);
        EXPECT_TRUE(QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; },
                                    60'000));
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_EQ(program.readAllStandardError().toStdString(), "");
        EXPECT_THAT(running.calls, SizeIs(1));
        return running.calls.empty()
            ? QVariantMap()
            : qdbus_cast<QVariantMap>(running.calls.back().arguments().value(0));
    }

    PrivateBus bus;
    FakeBusService running{bus.connect(), "/org/voltmere/Voltmere",
                           [](const QDBusMessage& call) { return call.createReply(); }};
};

TEST_F(SecondStartTest, AsksTheInstanceThatRunsForItsPanelAndEnds)
{
    handedOver();

    EXPECT_EQ(running.calls.back().member(), "Activate");
    EXPECT_EQ(running.calls.back().interface(), "org.freedesktop.Application");
}

TEST_F(SecondStartTest, PassesThePermissionToTakeTheFocusOn)
{
    variables["XDG_ACTIVATION_TOKEN"] = "token-7";

    EXPECT_EQ(handedOver({"--panel"}).value("activation-token").toString(), "token-7");
}

} // namespace
} // namespace voltmere
