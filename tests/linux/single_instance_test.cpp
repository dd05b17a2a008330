#include "linux/single_instance.h"

#include "fakes/recording_log.h"
#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"

#include <gmock/gmock.h>

#include <QTest>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BusInstanceTest, ALaterStartOpensThePanelWithItsPermissionToTakeTheFocus)
{
    RecordingLog log;
    std::vector<QByteArray> tokens;
    BusInstance instance("org.voltmere.Voltmere.Test");
    ASSERT_FALSE(instance.isLaterStart(log));
    const QDBusConnection other = sessionBus().connect();
    const auto activate = [&other](const QString& token) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            "org.voltmere.Voltmere.Test", "/org/voltmere/Voltmere/Test",
            "org.freedesktop.Application", "Activate");
        call << QVariantMap{{"activation-token", token}};
        const QDBusPendingCall reply = other.asyncCall(call);
        EXPECT_TRUE(QTest::qWaitFor([&reply] { return reply.isFinished(); }, 60'000));
        EXPECT_FALSE(reply.isError()) << reply.error().message().toStdString();
    };

    activate("too early");
    instance.onActivation([&tokens] { tokens.push_back(qgetenv("XDG_ACTIVATION_TOKEN")); });
    activate("token-7");
    activate("");

    EXPECT_THAT(tokens, ElementsAre("token-7", ""));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    EXPECT_THAT(log.lines, IsEmpty());
    QDBusConnection::sessionBus().unregisterService("org.voltmere.Voltmere.Test");
}

} // namespace
} // namespace voltmere
