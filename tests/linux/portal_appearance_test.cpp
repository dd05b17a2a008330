#include "linux/ui/portal_appearance.h"

#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"

#include <gmock/gmock.h>

#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QTest>

#include <memory>
#include <optional>
#include <vector>

namespace voltmere {
namespace {

using testing::Optional;

const QString settingsInterface = "org.freedesktop.portal.Settings";
const QString appearanceSpace = "org.freedesktop.appearance";
const QString schemeKey = "color-scheme";

class PortalAppearanceTest : public testing::Test {
protected:
    ~PortalAppearanceTest() override { QGuiApplication::setPalette(QPalette()); }

    /// The answer of a portal that tells `value`, wrapped as "Read" wraps it.
    static FakeBusService::Answer telling(const QVariant& value)
    {
        return [value](const QDBusMessage& call) {
            const QVariant inner = QVariant::fromValue(QDBusVariant(value));
            return call.createReply(QVariant::fromValue(QDBusVariant(inner)));
        };
    }

    void startPortal(const QVariant& value) { startPortalThat(telling(value)); }

    void startPortalThat(FakeBusService::Answer answer)
    {
        portal = std::make_unique<FakeBusService>(
            sessionBus().connect(), "/org/freedesktop/portal/desktop", std::move(answer));
        portal->appear("org.freedesktop.portal.Desktop");
    }

    void startProgram()
    {
        appearance.emplace();
        appearance->onChange([this] { ++changes; });
    }

    /// Tells a change, and returns once the program has dealt with it.
    void announce(const QString& space, const QString& key, const QVariant& value)
    {
        portal->emitSignal(settingsInterface, "SettingChanged",
                           {space, key, QVariant::fromValue(QDBusVariant(value))});
        catchUp();
    }

    /// Until all that the portal sent so far has been dealt with.
    void catchUp() { portal->waitUntilDealtWith(QDBusConnection::sessionBus()); }

    /// Until the program's question has been asked and its answer dealt with.
    void waitForQuestion()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !portal->calls.empty(); }, 60'000));
        catchUp();
    }

    bool becomes(ColourScheme scheme)
    {
        return QTest::qWaitFor([this, scheme] { return appearance->bestMatch() == scheme; },
                               60'000);
    }

    static void setPalette(Qt::GlobalColor text, Qt::GlobalColor window)
    {
        QPalette palette;
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Window, window);
        QGuiApplication::setPalette(palette);
    }

    std::unique_ptr<FakeBusService> portal;
    std::optional<PortalAppearance> appearance;
    int changes = 0;
};

TEST_F(PortalAppearanceTest, WithoutAPortalThePaletteOfTheStartTells)
{
    setPalette(Qt::white, Qt::black);
    startProgram();
    setPalette(Qt::black, Qt::white); // as the program itself does later
    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::dark));

    startProgram();
    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::light));
}

TEST_F(PortalAppearanceTest, DarkIsAnnouncedOnceOverALightPalette)
{
    setPalette(Qt::black, Qt::white);
    startPortal(1U);
    startProgram();
    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::light)) << "waited for the portal";

    EXPECT_TRUE(becomes(ColourScheme::dark));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, LightIsAnnouncedOnceOverADarkPalette)
{
    setPalette(Qt::white, Qt::black);
    startPortal(2U);
    startProgram();

    EXPECT_TRUE(becomes(ColourScheme::light));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, ThePortalIsAskedForTheOneSetting)
{
    startPortal(0U);
    startProgram();
    waitForQuestion();

    EXPECT_EQ(portal->calls.front().interface(), settingsInterface);
    EXPECT_EQ(portal->calls.front().member(), "Read");
    EXPECT_EQ(portal->calls.front().arguments(), (QVariantList{appearanceSpace, schemeKey}));
}

TEST_F(PortalAppearanceTest, NoPreferenceARefusalOrNonsenseLeavesItToThePalette)
{
    using Answer = FakeBusService::Answer;
    setPalette(Qt::white, Qt::black);
    std::vector<Answer> answers{[](const QDBusMessage& call) {
                                    return call.createErrorReply(
                                        "org.freedesktop.portal.Error.NotFound", "no");
                                },
                                [](const QDBusMessage& call) { return call.createReply(); },
                                [](const QDBusMessage& call) { return call.createReply(2U); },
                                [](const QDBusMessage&) { return std::nullopt; }};
    for (const QVariant& value : {QVariant(0U), QVariant(3U), QVariant("dark"), QVariant(-1)}) {
        answers.push_back(telling(value));
    }
    for (const Answer& answer : answers) {
        startPortalThat(answer);
        startProgram();
        waitForQuestion();

        EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::dark));
        EXPECT_EQ(changes, 0);
    }
}

TEST_F(PortalAppearanceTest, EachChangeIsAnnouncedOnce)
{
    setPalette(Qt::black, Qt::white);
    startPortal(2U);
    startProgram();
    waitForQuestion();
    ASSERT_EQ(changes, 0);

    announce(appearanceSpace, schemeKey, 1U);
    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::dark));
    EXPECT_EQ(changes, 1);
    announce(appearanceSpace, schemeKey, 1U);
    EXPECT_EQ(changes, 1) << "announced a change to the same";
    announce(appearanceSpace, schemeKey, 0U);
    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::light));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalAppearanceTest, OtherSettingsAreIgnored)
{
    setPalette(Qt::black, Qt::white);
    startPortal(0U);
    startProgram();
    waitForQuestion();

    announce(appearanceSpace, "accent-color", 1U);
    announce("org.gnome.desktop.interface", schemeKey, 1U);
    announce("org.gnome.desktop.interface", "color-scheme", "prefer-dark");

    EXPECT_THAT(appearance->bestMatch(), Optional(ColourScheme::light));
    EXPECT_EQ(changes, 0);
}

TEST_F(PortalAppearanceTest, OthersThatSendTheSignalAreIgnored)
{
    setPalette(Qt::black, Qt::white);
    startPortal(0U);
    startProgram();
    waitForQuestion();
    FakeBusService other(sessionBus().connect(), "/org/freedesktop/portal/desktop",
                         [](const QDBusMessage& call) { return call.createReply(); });
    other.emitSignal(settingsInterface, "SettingChanged",
                     {appearanceSpace, schemeKey, QVariant::fromValue(QDBusVariant(1U))});
    announce(appearanceSpace, "other", 1U);

    EXPECT_EQ(changes, 0);
}

TEST_F(PortalAppearanceTest, APortalThatStartsLaterIsHeard)
{
    setPalette(Qt::black, Qt::white);
    startProgram();
    startPortal(1U);
    announce(appearanceSpace, schemeKey, 1U);

    EXPECT_TRUE(becomes(ColourScheme::dark));
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalAppearanceTest, AFloodOfChangesLeavesTheLastOne)
{
    setPalette(Qt::black, Qt::white);
    startPortal(0U);
    startProgram();
    waitForQuestion();
    for (int sent = 0; sent < 10'000; ++sent) {
        portal->emitSignal(settingsInterface, "SettingChanged",
                           {appearanceSpace, schemeKey,
                            QVariant::fromValue(QDBusVariant(sent % 2 == 0 ? 1U : 2U))});
    }
    announce(appearanceSpace, schemeKey, 1U);

    EXPECT_TRUE(becomes(ColourScheme::dark));
    EXPECT_EQ(changes, 10'001);
}

} // namespace
} // namespace voltmere
