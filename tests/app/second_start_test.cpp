// Starts the built program beside an instance of it that this test plays.

#include "ports/desktop.h"
#include "tests/app/program_fixture.h"
#include "tests/linux/fake_bus_service.h"
#include "tests/linux/private_bus.h"

#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusError>
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
    FakeBusService::Answer answer = [](const QDBusMessage& call) { return call.createReply(); };
    FakeBusService running{bus.connect(), "/org/voltmere/Voltmere",
                           [this](const QDBusMessage& call) { return answer(call); }};
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

TEST_F(SecondStartTest, OfADemonstrationAsksTheDemonstrationThatRuns)
{
    FakeBusService demonstration(bus.connect(), "/org/voltmere/Voltmere/Demo",
                                 [](const QDBusMessage& call) { return call.createReply(); });
    demonstration.appear("org.voltmere.Voltmere.Demo");
    QProcess program;
    start(program, {"--demo"});

    EXPECT_TRUE(
        QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; }, 60'000));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_THAT(demonstration.calls, SizeIs(1));
    EXPECT_THAT(running.calls, SizeIs(0));
}

TEST_F(SecondStartTest, EndsAlsoWhereTheInstanceThatRunsIsTooBusyToAnswer)
{
    answer = [](const QDBusMessage&) { return std::nullopt; };

    handedOver();
}

TEST_F(SecondStartTest, TakesThePlaceOfAnInstanceThatEndsMeanwhile)
{
    QDBusConnection connection = running.connection();
    answer = [&connection](const QDBusMessage& call) {
        connection.unregisterService(applicationId);
        return call.createErrorReply(QDBusError::NoReply, "it ends");
    };
    QProcess program;
    start(program, {"--sysfs", "/nowhere"});

    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return !running.calls.empty() &&
                connection.interface()->isServiceRegistered(applicationId);
        },
        60'000));
    program.kill();
    EXPECT_TRUE(program.waitForFinished(60'000));
}

} // namespace
} // namespace voltmere
