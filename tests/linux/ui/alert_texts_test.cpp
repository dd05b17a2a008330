#include "linux/ui/alert_fixture.h"

#include "linux/ui/theme.h"

#include <QAccessible>
#include <QTextDocument>

namespace voltmere {
namespace {

using testing::ElementsAre;

class AlertTextsTest : public AlertWindowTest {
protected:
    static std::vector<std::string> texts(const AlertView& view)
    {
        return {view.name().text().toStdString(), view.title().text().toStdString(),
                view.detail().text().toStdString(), view.prompt().text().toStdString()};
    }

    static std::vector<std::string> buttons(const AlertView& view)
    {
        std::vector<std::string> titles;
        for (const QPushButton* button : view.window.findChildren<QPushButton*>()) {
            titles.push_back(button->text().toStdString());
        }
        std::sort(titles.begin(), titles.end());
        return titles;
    }

    static std::string caption(const AlertView& view)
    {
        return view.rows().back()->findChildren<QLabel*>().front()->text().toStdString();
    }

    /// What a screen reader says that a picker is for.
    static std::string labelOf(QWidget& picker)
    {
        auto* const control = QAccessible::queryAccessibleInterface(&picker);
        const auto labels = control->relations(QAccessible::Label);
        return labels.isEmpty() ? "" : labels.front().first->text(QAccessible::Name).toStdString();
    }

    AlertView showNamed(const std::string& name)
    {
        BatteryDevice device = mouse(12);
        device.name = name;
        return show({device}, true);
    }
};

TEST_F(AlertTextsTest, OneLowDeviceNamedMagicMouseAt12InEnglishIsInRed)
{
    const AlertView view = showOneLow();

    EXPECT_THAT(texts(view),
                ElementsAre("Cellsentry", "Magic Mouse battery alert",
                            "Battery at 12%. Please charge.", "Remind me again"));
    EXPECT_EQ(textColour(view.detail()), systemRed(ColourScheme::light));
}

TEST_F(AlertTextsTest, NothingLowWithTwoDevicesInEnglishIsInTheLabelColour)
{
    const AlertView view = show({mouse(80), keyboard(64)}, false);

    EXPECT_EQ(view.title().text(), "Peripheral battery");
    EXPECT_EQ(view.detail().text(), "All good: Mouse80%, Keyboard64%");
    EXPECT_EQ(textColour(view.detail()), textColour(view.window));
}

TEST_F(AlertTextsTest, OnlyTheDetailIsRed)
{
    const AlertView view = showOneLow();
    for (const QLabel* label : {&view.name(), &view.title(), &view.prompt()}) {
        EXPECT_EQ(textColour(*label), textColour(view.window));
    }
}

TEST_F(AlertTextsTest, TheButtonsAndTheCaptionInEnglish)
{
    const AlertView view = showOneLow();

    EXPECT_THAT(
        buttons(view),
        ElementsAre("Cancel", "In 1 hour", "In 2 hours", "In 20 minutes", "In 30 minutes", "OK"));
    EXPECT_EQ(caption(view), "At a time");
}

TEST_F(AlertTextsTest, TheRedIsTheDarkOneOnADarkDesktop)
{
    useScheme(ColourScheme::dark);
    const AlertView view = showOneLow();

    EXPECT_EQ(textColour(view.detail()), systemRed(ColourScheme::dark));
    EXPECT_GT(textColour(view.title()).lightness(), 200);
}

TEST_F(AlertTextsTest, TheColoursFollowADesktopThatChangesWhileTheWindowIsOpen)
{
    useScheme(ColourScheme::light);
    const AlertView view = showOneLow();
    const QPoint margin(4, 4);
    ASSERT_GT(view.window.grab().toImage().pixelColor(margin).lightness(), 200);

    useScheme(ColourScheme::dark);
    EXPECT_EQ(textColour(view.detail()), systemRed(ColourScheme::dark));
    EXPECT_GT(textColour(view.title()).lightness(), 200);
    EXPECT_LT(view.window.grab().toImage().pixelColor(margin).lightness(), 80);
    EXPECT_LT(view.hour().grab().toImage().pixelColor(30, 14).lightness(), 130);

    useScheme(ColourScheme::light);
    EXPECT_EQ(textColour(view.detail()), systemRed(ColourScheme::light));
    EXPECT_LT(textColour(view.title()).lightness(), 80);
    EXPECT_GT(view.hour().grab().toImage().pixelColor(30, 14).lightness(), 200);
}

TEST_F(AlertTextsTest, ADetailInTheLabelColourFollowsTheDesktopToo)
{
    useScheme(ColourScheme::light);
    const AlertView view = show({mouse(80)}, false);
    useScheme(ColourScheme::dark);

    EXPECT_EQ(textColour(view.detail()), textColour(view.window));
    EXPECT_GT(textColour(view.detail()).lightness(), 200);
}

TEST_F(AlertTextsTest, TheChosenTimeIsPreselected)
{
    const AlertView view = showOneLow();

    EXPECT_EQ(view.hour().currentText(), "15");
    EXPECT_EQ(view.minute().currentText(), "35");
}

TEST_F(AlertTextsTest, TheWindowsTitleNamesTheProgramAndTheMatter)
{
    EXPECT_EQ(showOneLow().window.windowTitle(), "Cellsentry — Magic Mouse battery alert");
}

TEST_F(AlertTextsTest, TheWindowHasTheProgramsIcon)
{
    EXPECT_FALSE(showOneLow().window.windowIcon().isNull());
}

TEST_F(AlertTextsTest, AScreenReaderFindsADialogWithNamedControls)
{
    const AlertView view = showOneLow();
    auto* const dialog = QAccessible::queryAccessibleInterface(&view.window);

    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), "Magic Mouse battery alert");
    EXPECT_EQ(dialog->text(QAccessible::Description), "Battery at 12%. Please charge.");
    EXPECT_EQ(labelOf(view.hour()), "Hour");
    EXPECT_EQ(labelOf(view.minute()), "Minute");
    const LanguageGuard guard("zh");
    const AlertView chinese = showOneLow();
    EXPECT_EQ(labelOf(chinese.hour()), "小时");
    EXPECT_EQ(labelOf(chinese.minute()), "分钟");
}

TEST_F(AlertTextsTest, MarkupAndAmpersandsInANameAreShownAsTheyStand)
{
    const AlertView view = showNamed("<b>x</b> &amp; &Quit");

    EXPECT_EQ(view.title().text(), "<b>x</b> &amp; &Quit battery alert");
    EXPECT_EQ(view.title().textFormat(), Qt::PlainText);
    EXPECT_EQ(view.detail().textFormat(), Qt::PlainText);
}

TEST_F(AlertTextsTest, MarkupInATooltipIsShownAsItStands)
{
    const QString name = "<img src=\"file:///x\"><b>" + QString(80, 'm');
    const AlertView view = showNamed(name.toStdString());
    QTextDocument tip;
    tip.setHtml(view.title().toolTip());

    EXPECT_EQ(tip.toPlainText(), name + " battery alert");
}

TEST_F(AlertTextsTest, AnEndlessNameIsCut)
{
    const AlertView view = showNamed(std::string(100'000, 'W'));

    EXPECT_LE(view.container().width(), 420);
    EXPECT_EQ(view.container().height(), 252);
    EXPECT_LT(view.title().text().size(), 100);
}

} // namespace
} // namespace voltmere
