#pragma once

#include "fakes/fake_run_loop.h"
#include "fakes/recording_log.h"
#include "linux/desktop_notifications.h"
#include "linux/fake_notification_daemon.h"
#include "linux/private_bus.h"

#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QDBusPendingCall>
#include <QTest>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// Keeps what it is told, and allows what the test says.
class RecordingDelegate : public NotificationCentreDelegate {
public:
    void willPresent(std::function<void(std::uint32_t presentation)> completion) override
    {
        ++presentations;
        if (answersAtOnce) {
            completion(allowed);
        } else {
            kept.push_back(std::move(completion));
        }
    }

    void didReceive(NotificationCentre& centre, const std::string& actionIdentifier,
                    std::function<void()> completion) override
    {
        centres.push_back(&centre);
        answers.push_back(actionIdentifier);
        tokens.push_back(qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
        completion();
    }

    std::uint32_t allowed = presentation::banner | presentation::sound;
    bool answersAtOnce = true;
    int presentations = 0;
    std::vector<std::function<void(std::uint32_t)>> kept;
    std::vector<NotificationCentre*> centres;
    std::vector<std::string> answers;
    std::vector<std::string> tokens; ///< what the environment held at each answer
};

/// The desktop's notifications between a fake daemon on a bus of their own and virtual time.
class NotificationsTest : public testing::Test {
protected:
    NotificationsTest()
        : client(bus.connect())
        , daemon(bus.connect())
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        clock.present = Instant(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2));
        start();
    }

    ~NotificationsTest() override { qunsetenv("XDG_ACTIVATION_TOKEN"); }

    /// Starts the centre, after what is left of an earlier one has gone.
    void start(std::chrono::milliseconds replyLimit = std::chrono::hours(24))
    {
        centre.reset();
        centre = std::make_unique<DesktopNotifications>(
            DesktopNotificationsSetup{client, [this] { return applicationName; },
                                      [] { return "program-icon"; },
                                      QString::fromStdString(remindersFile), replyLimit},
            runLoop, clock, log);
        centre->setDelegate(&delegate);
        centre->setCategories(
            {{"CHOICE", {{"LATER", "Later", false}, {"FRONT", "To the front…", true}}},
             {"MARKER", {{"MARK", "Mark", false}}}});
    }

    static NotificationRequest request(const std::string& title, const std::string& category = "")
    {
        return {"id-" + title, {title, "Body", false, category}, std::nullopt};
    }

    static NotificationRequest delayed(const std::string& title, double seconds)
    {
        NotificationRequest result = request(title);
        result.delay = Seconds(seconds);
        return result;
    }

    [[nodiscard]] static bool waitFor(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, 30'000);
    }

    [[nodiscard]] bool waitForShown(std::size_t count)
    {
        return waitFor([this, count] { return daemon.shown.size() == count; });
    }

    /// Waits until the centre has taken in everything that the daemon has sent so far: a further
    /// notification makes the whole way there and back.
    void roundTrip()
    {
        centre->add(request("marker", "MARKER"));
        ASSERT_TRUE(waitFor(
            [this] { return !daemon.shown.empty() && daemon.shown.back().summary == "marker"; }));
        daemon.emitActionInvoked(daemon.shown.back().id, "MARK");
        ASSERT_TRUE(waitFor(
            [this] { return !delegate.answers.empty() && delegate.answers.back() == "MARK"; }));
        daemon.shown.pop_back();
        delegate.answers.pop_back();
        delegate.tokens.pop_back();
        --delegate.presentations;
    }

    /// Waits until the daemon has taken in every call that the centre has sent so far.
    void settleCalls()
    {
        const QDBusPendingCall call = client.asyncCall(QDBusMessage::createMethodCall(
            daemon.uniqueName(), daemon.path, daemon.name, "GetServerInformation"));
        ASSERT_TRUE(waitFor([&call] { return call.isFinished(); }));
    }

    std::vector<std::string> shownTitles() const
    {
        std::vector<std::string> titles;
        for (const FakeNotificationDaemon::Notification& notification : daemon.shown) {
            titles.push_back(notification.summary.toStdString());
        }
        return titles;
    }

    /// The rules of the centre's own connection for messages of the daemon's interface.
    QStringList matchRules() const
    {
        const QDBusMessage reply = client.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                           "org.freedesktop.DBus.Debug.Stats", "GetAllMatchRules"));
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
        const auto rules = qdbus_cast<QMap<QString, QStringList>>(reply.arguments().value(0));
        return rules.value(client.baseService())
            .filter("interface='org.freedesktop.Notifications'");
    }

    PrivateBus bus;
    QDBusConnection client;
    FakeNotificationDaemon daemon;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    RecordingLog log;
    RecordingDelegate delegate;
    std::string applicationName = "Program";
    TemporaryDirectory state;
    std::string remindersFile = state / "voltmere" / "reminders.json";
    std::unique_ptr<DesktopNotifications> centre;
};

} // namespace voltmere
