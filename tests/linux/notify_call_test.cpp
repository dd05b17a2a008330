#include "linux/notify_call.h"

#include <gmock/gmock.h>

#include <QVariantMap>

namespace voltmere {
namespace {

const QStringList everything{"actions", "body", "body-markup"};

DesktopNotification sampleNotification()
{
    return {"Program", "program-icon", "Title",
            "Body",    false,          {{"A", "First", false}, {"B", "Second", true}}};
}

QVariantList argumentsFor(const DesktopNotification& notification,
                          const QStringList& capabilities = everything)
{
    return notifyCall(":1.7", capabilities, notification).arguments();
}

QString bodyFor(const std::string& body, const QStringList& capabilities)
{
    DesktopNotification notification = sampleNotification();
    notification.body = body;
    return argumentsFor(notification, capabilities)[4].toString();
}

TEST(NotifyCall, GoesToTheOwnerOfTheNameInTheFormThatTheStandardGives)
{
    const QDBusMessage call = notifyCall(":1.7", everything, sampleNotification());

    EXPECT_EQ(call.service(), ":1.7");
    EXPECT_EQ(call.path(), "/org/freedesktop/Notifications");
    EXPECT_EQ(call.interface(), "org.freedesktop.Notifications");
    EXPECT_EQ(call.member(), "Notify");
    const QVariantList arguments = call.arguments();
    ASSERT_EQ(arguments.size(), 8);
    EXPECT_EQ(arguments[0], QVariant("Program"));
    EXPECT_EQ(arguments[1], QVariant(0U));
    EXPECT_EQ(arguments[2], QVariant("program-icon"));
    EXPECT_EQ(arguments[3], QVariant("Title"));
    EXPECT_EQ(arguments[4], QVariant("Body"));
    EXPECT_EQ(arguments[7], QVariant(-1));
}

TEST(NotifyCall, NamesTheDesktopEntryAndANormalUrgencyAsAByte)
{
    const QVariantMap hints = argumentsFor(sampleNotification())[6].toMap();

    EXPECT_EQ(hints["desktop-entry"], QVariant("org.voltmere.Voltmere"));
    EXPECT_EQ(hints["urgency"], QVariant::fromValue(uchar(1)));
    EXPECT_EQ(hints["urgency"].metaType(), QMetaType::fromType<uchar>());
}

TEST(NotifyCall, AsksForTheSoundByItsNameInTheNamingStandard)
{
    DesktopNotification notification = sampleNotification();
    notification.sound = true;
    const QVariantMap hints = argumentsFor(notification)[6].toMap();

    EXPECT_EQ(hints["sound-name"], QVariant("message-new-instant"));
    EXPECT_FALSE(hints.contains("suppress-sound"));
}

TEST(NotifyCall, AsksForSilenceWithoutASound)
{
    const QVariantMap hints = argumentsFor(sampleNotification())[6].toMap();

    EXPECT_EQ(hints["suppress-sound"], QVariant(true));
    EXPECT_FALSE(hints.contains("sound-name"));
}

TEST(NotifyCall, OffersTheClickOnItselfAndThenTheActionsInTheirOrder)
{
    EXPECT_EQ(argumentsFor(sampleNotification())[5].toStringList(),
              QStringList({"default", "", "A", "First", "B", "Second"}));
}

TEST(NotifyCall, OffersNothingToADaemonWithoutButtons)
{
    EXPECT_EQ(argumentsFor(sampleNotification(), {"body"})[5].toStringList(), QStringList());
}

TEST(NotifyCall, EscapesTheBodyForADaemonThatReadsMarkup)
{
    EXPECT_EQ(bodyFor("<b>&amp; \"x\"</b>", everything),
              "&lt;b&gt;&amp;amp; &quot;x&quot;&lt;/b&gt;");
}

TEST(NotifyCall, LeavesTheBodyAloneForADaemonThatShowsItAsItIs)
{
    EXPECT_EQ(bodyFor("<b>&amp; \"x\"</b>", {"actions", "body"}), "<b>&amp; \"x\"</b>");
}

TEST(NotifyCall, NeverEscapesTheTitle)
{
    DesktopNotification notification = sampleNotification();
    notification.summary = "A < B & C";

    EXPECT_EQ(argumentsFor(notification)[3], QVariant("A < B & C"));
}

TEST(NotifyCall, TakesNoTextForAFormat)
{
    EXPECT_EQ(bodyFor("100%s %n %1 {} %@", everything), "100%s %n %1 {} %@");
}

TEST(NotifyCall, KeepsLettersOfEveryScript)
{
    EXPECT_EQ(bodyFor("请给鼠标 🔋充电", everything), QString::fromUtf8("请给鼠标 🔋充电"));
}

TEST(NotifyCall, LeavesOutWhatNeitherTheBusNorMarkupCanHold)
{
    EXPECT_EQ(bodyFor(std::string("a\0b\x1B[c\u202E\x7F", 10), everything), "a b [c ");
    EXPECT_EQ(bodyFor("broken \xFF\xC3", everything), QString::fromUtf8("broken \uFFFD\uFFFD"));
}

} // namespace
} // namespace voltmere
