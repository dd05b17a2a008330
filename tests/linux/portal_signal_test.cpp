// A program of its own: which types the bus library knows depends on what the process did before.

#include "linux/ui/portal_appearance.h"

#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"

#include <QDBusVariant>
#include <QTest>

namespace voltmere {
namespace {

TEST(PortalSignalTest, ASwitchIsFollowedInAProgramThatUsesTheBusForNothingElse)
{
    const PortalAppearance appearance;
    ASSERT_EQ(appearance.bestMatch(), ColourScheme::light);

    FakeBusService portal(sessionBus().connect(), "/org/freedesktop/portal/desktop",
                          [](const QDBusMessage&) { return std::nullopt; });
    portal.appear("org.freedesktop.portal.Desktop");

    // The bus library may drop a signal that follows its sender's name too closely, so the user
    // goes on switching.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            portal.emitSignal("org.freedesktop.portal.Settings", "SettingChanged",
                              {"org.freedesktop.appearance", "color-scheme",
                               QVariant::fromValue(QDBusVariant(1U))});
            return appearance.bestMatch() == ColourScheme::dark;
        },
        60'000));
}

} // namespace
} // namespace voltmere
