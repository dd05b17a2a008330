#include "linux/ui/panel_fixture.h"

#include "linux/ui/views.h"

#include <QTextDocument>

namespace voltmere {
namespace {

/// Names that people, or mischief, give to a device.
class HostileNamesTest : public PanelTest {
protected:
    void openWithName(const std::string& name)
    {
        world.setLevels({{mouse, 15}});
        world.batteries.entries.front().givenName = name;
        open();
    }

    std::string shownToolTip()
    {
        QTextDocument document;
        document.setHtml(find("deviceName").toolTip());
        return document.toPlainText().toStdString();
    }
};

TEST_F(HostileNamesTest, ALongNameIsElidedInTheMiddleAndKeptWholeInTooltipAndAccessibleName)
{
    const std::string name = "Begin " + std::string(60, 'm') + " End";
    openWithName(name);
    const QString shown = find<QLabel>("deviceName").text();
    EXPECT_TRUE(shown.startsWith("Begin ")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(" End")) << shown.toStdString();
    EXPECT_EQ(accessibleName("deviceName"), name);
    EXPECT_EQ(shownToolTip(), name);
    EXPECT_EQ(view->width(), 320);
}

TEST_F(HostileNamesTest, ANameThatFitsStandsWholeAndNeedsNoTooltip)
{
    openWithName("Ann's mouse");
    EXPECT_EQ(textOf("deviceName"), "Ann's mouse");
    EXPECT_EQ(accessibleName("deviceName"), "Ann's mouse");
    EXPECT_EQ(find("deviceName").toolTip(), "");
}

TEST_F(HostileNamesTest, MarkupAndAmpersandsAreShownAsTheyStand)
{
    const std::string name = "<b>x</b> & &amp; &Quit";
    openWithName(name);
    EXPECT_EQ(textOf("deviceName"), name);
    EXPECT_EQ(find<QLabel>("deviceName").textFormat(), Qt::PlainText);
    EXPECT_EQ(find<QLabel>("status").textFormat(), Qt::PlainText);
    EXPECT_EQ(textOf("status"), "Low battery: " + name + " 15%");
    EXPECT_EQ(accessibleName("deviceName"), name);
}

TEST_F(HostileNamesTest, MarkupInATooltipIsShownAsItStands)
{
    const std::string name = "<b>x</b> & &amp; <img src=\"file:///x\"> " + std::string(60, 'm');
    openWithName(name);
    EXPECT_EQ(shownToolTip(), name);
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
    EXPECT_EQ(accessibleName("deviceName"), "a b c [31m d ");
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

TEST(ElidedLabel, ShowsTheWholeTextAgainWhenThereIsRoom)
{
    ElidedLabel label(nullptr);
    label.setFullText("a name of some length");
    label.resize(60, 20);
    EXPECT_TRUE(label.grab().size().isValid());
    EXPECT_NE(label.text(), "a name of some length");
    label.resize(600, 20);
    EXPECT_TRUE(label.grab().size().isValid());
    EXPECT_EQ(label.text(), "a name of some length");
    EXPECT_EQ(label.toolTip(), "");
}

} // namespace
} // namespace voltmere
