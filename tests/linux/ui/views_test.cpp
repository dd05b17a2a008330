#include "linux/ui/panel_fixture.h"

#include "linux/ui/views.h"

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Names that people, or mischief, give to a device.
class HostileNamesTest : public PanelTest {
protected:
    void openWithName(const std::string& name)
    {
        world.setLevels({{mouse, 15}});
        world.batteries.entries.front().givenName = name;
        open();
    }
};

TEST_F(HostileNamesTest, ALongNameIsElidedInTheMiddleAndKeptWholeInTooltipAndAccessibleName)
{
    const std::string name = "Begin <b>x</b> &amp; " + std::string(60, 'm') + " End";
    openWithName(name);
    const QString shown = find<QLabel>("deviceName").text();
    EXPECT_TRUE(shown.startsWith("Begin <b>x")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(" End")) << shown.toStdString();
    EXPECT_EQ(spokenName(find("deviceName")), name);
    EXPECT_EQ(find("deviceName").accessibleDescription().toStdString(), name);
    EXPECT_EQ(shownToolTip(find("deviceName")).toStdString(), name);
    EXPECT_EQ(view->width(), 320);
}

TEST_F(HostileNamesTest, MarkupAndAmpersandsThatFitAreShownAsTheyStandAndNeedNoTooltip)
{
    const std::string name = "<b>x</b> & &amp; &Quit";
    openWithName(name);
    EXPECT_EQ(textOf("deviceName"), name);
    EXPECT_EQ(find<QLabel>("deviceName").textFormat(), Qt::PlainText);
    EXPECT_EQ(find<QLabel>("status").textFormat(), Qt::PlainText);
    EXPECT_EQ(textOf("status"), "Low battery: " + name + " 15%");
    EXPECT_EQ(spokenName(find("deviceName")), name);
    EXPECT_EQ(find("deviceName").toolTip(), "");
}

TEST_F(HostileNamesTest, ARightToLeftNameReadsFromTheRightButStandsAtTheLeft)
{
    openWithName("עכבר 2");
    const auto& label = find<QLabel>("deviceName");
    EXPECT_EQ(label.layoutDirection(), Qt::RightToLeft);
    EXPECT_TRUE(label.alignment() & Qt::AlignAbsolute);
    EXPECT_EQ(textOf("deviceName"), "עכבר 2");
}

TEST_F(HostileNamesTest, LineEndsAndControlCharactersBecomeBlanks)
{
    openWithName("a\nb\r\tc\x1b[31m\u2028d\u0085");
    EXPECT_EQ(textOf("deviceName"), "a b c [31m d ");
    EXPECT_EQ(textOf("status"), "Low battery: a b c [31m d  15%");
    EXPECT_EQ(spokenName(find("deviceName")), "a b c [31m d ");
}

TEST_F(HostileNamesTest, TheStatusLineWrapsAlsoWithinAWordThatIsLongerThanALine)
{
    openWithName("x");
    const int oneLine = find("status").height();
    openWithName(std::string(120, 'W'));
    EXPECT_GE(find("status").height(), 4 * oneLine);
    EXPECT_EQ(find("status").width(), view->width() - 32);
    EXPECT_GE(view->height(), find("quit").geometry().bottom());
}

TEST(ElidedLabel, ShowsTheWholeTextAgainWhenThereIsRoomOrTheFontIsSmaller)
{
    ElidedLabel label(nullptr);
    label.setFullText("a name of some length");
    label.resize(60, 20);
    label.grab();
    EXPECT_NE(label.text(), "a name of some length");
    label.resize(600, 20);
    label.grab();
    EXPECT_EQ(label.text(), "a name of some length");
    EXPECT_EQ(label.toolTip(), "");
    QFont font = label.font();
    font.setPixelSize(80);
    label.setFont(font);
    EXPECT_NE(label.text(), "a name of some length");
}

class RedrawSchedulerTest : public testing::Test {
protected:
    static void turn() { QCoreApplication::processEvents(); }

    ChangeAnnouncer announcer;
    Published<int> first{announcer, 1};
    Published<int> second{announcer, 2};
    std::vector<int> seen;
    std::unique_ptr<RedrawScheduler> scheduler = std::make_unique<RedrawScheduler>(
        announcer, [this] { seen.push_back(first.get() * 10 + second.get()); });
};

TEST_F(RedrawSchedulerTest, ManyChangesInOneTurnRedrawOnceWithTheNewValues)
{
    first = 3;
    first = 4;
    second = 5;
    EXPECT_THAT(seen, IsEmpty());
    turn();
    EXPECT_THAT(seen, ElementsAre(45));
    turn();
    first = 6;
    turn();
    EXPECT_THAT(seen, ElementsAre(45, 65));
}

TEST_F(RedrawSchedulerTest, AChangeMadeByARedrawIsDrawnInTheTurnAfter)
{
    scheduler = std::make_unique<RedrawScheduler>(announcer, [this] {
        seen.push_back(first);
        if (first < 3) {
            first = first + 1;
        }
    });
    scheduler->schedule();
    turn();
    turn();
    turn();
    EXPECT_THAT(seen, ElementsAre(1, 2, 3));
}

TEST_F(RedrawSchedulerTest, NothingIsDrawnAndNoSubscriptionIsLeftOnceItIsGone)
{
    first = 3;
    scheduler.reset();
    second = 4;
    turn();
    EXPECT_THAT(seen, IsEmpty());
}

} // namespace
} // namespace voltmere
