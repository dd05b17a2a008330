#include "linux/ui/theme.h"

#include "linux/ui/pictures.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QWidget>

namespace voltmere {
namespace {

constexpr double recognisable = 2;

class ThemeTest : public testing::TestWithParam<ColourScheme> {
protected:
    void TearDown() override { QApplication::setPalette(QPalette()); }

    QPalette palette = paletteFor(GetParam());
};

TEST_P(ThemeTest, EveryTextIsReadableOnItsBackground)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[]{
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        for (const auto& [text, background] : pairs) {
            EXPECT_GE(contrast(palette.color(group, text), palette.color(group, background)),
                      readable)
                << text;
        }
    }
    EXPECT_GE(contrast(secondaryTextColour(palette), palette.color(QPalette::Window)), readable);
}

TEST_P(ThemeTest, TheTextsOfAWindowAreThoseOfAnActiveOneBeforeItBecomesActive)
{
    QPalette waiting = palette;
    for (const auto group : {QPalette::Inactive, QPalette::Disabled}) {
        waiting.setColor(group, QPalette::WindowText, palette.color(QPalette::Window));
    }
    waiting.setCurrentColorGroup(QPalette::Inactive);
    EXPECT_EQ(secondaryTextColour(waiting), secondaryTextColour(palette));
    EXPECT_EQ(dividerColour(waiting), dividerColour(palette));
}

TEST_P(ThemeTest, DisabledTextStandsBackButCanBeRecognised)
{
    for (const auto& [text, background] : {std::pair(QPalette::WindowText, QPalette::Window),
                                           std::pair(QPalette::Text, QPalette::Base),
                                           std::pair(QPalette::ButtonText, QPalette::Button)}) {
        const double disabled = contrast(palette.color(QPalette::Disabled, text),
                                         palette.color(QPalette::Disabled, background));
        EXPECT_GE(disabled, recognisable);
        EXPECT_LT(disabled,
                  contrast(palette.color(QPalette::Active, text), palette.color(background)));
    }
}

TEST_P(ThemeTest, ADividerIsSeenButFainterThanSecondaryTextWhichIsFainterThanText)
{
    const QColor window = palette.color(QPalette::Window);
    EXPECT_LT(contrast(secondaryTextColour(palette), window),
              contrast(palette.color(QPalette::WindowText), window));
    EXPECT_GT(contrast(dividerColour(palette), window), 1.2);
    EXPECT_LT(contrast(dividerColour(palette), window),
              contrast(secondaryTextColour(palette), window));
}

TEST_P(ThemeTest, ColoursOfTheOtherSchemeAreReplacedAndFittingOnesStay)
{
    QPalette desktop = palette;
    desktop.setColor(QPalette::Window, desktop.color(QPalette::Window).lighter(101));
    QApplication::setPalette(desktop);
    applyPalette(GetParam());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), desktop.color(QPalette::Window));
    applyPalette(std::nullopt);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), desktop.color(QPalette::Window));
    const ColourScheme other =
        GetParam() == ColourScheme::dark ? ColourScheme::light : ColourScheme::dark;
    applyPalette(other);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              paletteFor(other).color(QPalette::Window));
}

INSTANTIATE_TEST_SUITE_P(Schemes, ThemeTest,
                         testing::Values(ColourScheme::light, ColourScheme::dark));

TEST(Theme, TheRedIsTheSystemsOwnOfEachScheme)
{
    EXPECT_EQ(systemRed(ColourScheme::light), QColor("#FF3B30"));
    EXPECT_EQ(systemRed(ColourScheme::dark), QColor("#FF453A"));
    EXPECT_EQ(systemRed(std::nullopt), QColor("#FF3B30"));
}

TEST_P(ThemeTest, AWarningIsRedAndReadableOnEveryGround)
{
    for (const int level : {0, 60, 110, 130, 190, 255}) {
        QPalette ground = palette;
        ground.setColor(QPalette::Window, QColor(level, level, level));
        const QColor red = warningTextColour(ground, GetParam());
        EXPECT_GE(contrast(red, ground.color(QPalette::Window)), readable) << level;
        EXPECT_GE(red.red(), red.green()) << level;
    }
    const QColor red = warningTextColour(palette, GetParam());
    EXPECT_GT(red.hsvSaturation(), 100);
    EXPECT_LT(contrast(red, palette.color(QPalette::Window)), readable + 0.5);
}

TEST_P(ThemeTest, PaleTextsOfInactiveWindowsBecomeReadable)
{
    QPalette pale = palette;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        pale.setColor(QPalette::Inactive, role, QColor(0x80, 0x80, 0x80));
    }
    QApplication::setPalette(pale);
    applyPalette(GetParam());
    const QPalette shown = QApplication::palette();
    for (const auto& [text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                       std::pair(QPalette::Text, QPalette::Base),
                                       std::pair(QPalette::ButtonText, QPalette::Button)}) {
        EXPECT_GE(contrast(shown.color(QPalette::Inactive, text),
                           shown.color(QPalette::Inactive, ground)),
                  readable);
        EXPECT_EQ(shown.color(QPalette::Active, text), palette.color(QPalette::Active, text));
    }
}

TEST(Theme, ATextColourIsTakenBack)
{
    QWidget widget;
    setTextColour(widget, QColor(Qt::red));
    EXPECT_EQ(widget.palette().color(QPalette::WindowText), QColor(Qt::red));
    setTextColour(widget, std::nullopt);
    EXPECT_EQ(widget.palette().color(QPalette::WindowText),
              QApplication::palette().color(QPalette::WindowText));
}

TEST(Theme, HeadlinesAreBoldAndTitlesLargerTooInPointsAndInPixels)
{
    QFont body;
    body.setPointSizeF(13);
    EXPECT_TRUE(headlineFont(body).bold());
    EXPECT_DOUBLE_EQ(headlineFont(body).pointSizeF(), 13);
    EXPECT_TRUE(title3Font(body).bold());
    EXPECT_DOUBLE_EQ(title3Font(body).pointSizeF(), 15);
    body.setPixelSize(26);
    EXPECT_EQ(title3Font(body).pixelSize(), 30);
}

} // namespace
} // namespace voltmere
