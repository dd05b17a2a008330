#include "linux/ui/tray_host_watcher.h"

#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"

#include <gmock/gmock.h>

#include <QDBusVariant>
#include <QTest>

#include <memory>

namespace voltmere {
namespace {

const QString watcherName = "org.kde.StatusNotifierWatcher";

/// The side of the session bus. The X selection is not reached on the platform of these tests.
class TrayHostWatcherTest : public testing::Test {
protected:
    /// The desktop's list of tray hosts and icons appears.
    void startWatcher(bool withHost)
    {
        hasHost = withHost;
        service = std::make_unique<FakeBusService>(
            sessionBus().connect(), "/StatusNotifierWatcher",
            [this](const QDBusMessage& call) -> std::optional<QDBusMessage> {
                if (hangs) {
                    return std::nullopt;
                }
                return call.createReply(QVariant::fromValue(QDBusVariant(hasHost)));
            });
        service->appear(watcherName);
    }

    void registerHost()
    {
        hasHost = true;
        service->emitSignal(watcherName, "StatusNotifierHostRegistered");
    }

    void startProgram()
    {
        program = std::make_unique<TrayHostWatcher>([this] { ++reports; });
    }

    bool isReported()
    {
        return QTest::qWaitFor([this] { return reports > 0; }, 60'000);
    }

    /// Until the program's question has been asked and its answer dealt with.
    void waitForQuestion()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !service->calls.empty(); }, 60'000));
        catchUp();
    }

    /// Until all that was sent to the program so far has been dealt with.
    void catchUp() { service->waitUntilDealtWith(QDBusConnection::sessionBus()); }

    bool hasHost = false;
    bool hangs = false;
    int reports = 0;
    std::unique_ptr<FakeBusService> service;
    std::unique_ptr<TrayHostWatcher> program;
};

TEST_F(TrayHostWatcherTest, AHostThatIsThereIsReportedOnceAndNotAtOnce)
{
    startWatcher(true);
    startProgram();
    EXPECT_EQ(reports, 0);

    EXPECT_TRUE(isReported());
    registerHost();
    catchUp();
    EXPECT_EQ(reports, 1);
}

TEST_F(TrayHostWatcherTest, AHostThatRegistersLaterIsReportedOnce)
{
    startWatcher(false);
    startProgram();
    waitForQuestion();
    EXPECT_EQ(reports, 0);
    registerHost();
    EXPECT_TRUE(isReported());

    registerHost();
    catchUp();
    EXPECT_EQ(reports, 1);
}

TEST_F(TrayHostWatcherTest, AWatcherThatAppearsLaterWithAHostIsReported)
{
    startProgram();
    startWatcher(true);

    EXPECT_TRUE(isReported());
    EXPECT_EQ(reports, 1);
}

TEST_F(TrayHostWatcherTest, AWatcherThatAppearsLaterAndItsHostLaterStill)
{
    startProgram();
    startWatcher(false);
    waitForQuestion();
    EXPECT_EQ(reports, 0);
    registerHost();

    EXPECT_TRUE(isReported());
}

TEST_F(TrayHostWatcherTest, AWatcherThatRestartsWithAHostIsReported)
{
    startWatcher(false);
    startProgram();
    waitForQuestion();
    service.reset();
    startWatcher(true);

    EXPECT_TRUE(isReported());
}

TEST_F(TrayHostWatcherTest, AWatcherThatDoesNotAnswerHoldsNothingUp)
{
    hangs = true;
    startWatcher(false);
    startProgram();
    waitForQuestion();
    EXPECT_EQ(reports, 0);
    registerHost();

    EXPECT_TRUE(isReported());
}

TEST_F(TrayHostWatcherTest, AFloodOfHostsIsReportedOnce)
{
    startWatcher(false);
    startProgram();
    waitForQuestion();
    for (int sent = 0; sent < 10'000; ++sent) {
        registerHost();
    }
    catchUp();

    EXPECT_EQ(reports, 1);
    EXPECT_EQ(service->calls.size(), 1U);
}

TEST_F(TrayHostWatcherTest, NothingIsReportedOnceTheWatchingHasEnded)
{
    startWatcher(true);
    startProgram();
    program.reset();
    registerHost();
    catchUp();

    EXPECT_EQ(reports, 0);
}

TEST_F(TrayHostWatcherTest, TheReportMayEndTheWatching)
{
    startWatcher(true);
    program = std::make_unique<TrayHostWatcher>([this] {
        ++reports;
        program.release()->deleteLater();
    });

    EXPECT_TRUE(isReported());
}

} // namespace
} // namespace voltmere
