#include "ui/icon.h"

#include "fakes/fake_preferred_languages.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <limits>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A font in which each character is 7.5 points wide.
TextSize measured(const std::string& label)
{
    return {7.5 * static_cast<double>(label.size()), 15};
}

IconShape shapeOf(const std::vector<BatteryDevice>& devices, std::int64_t threshold = 20,
                  std::optional<ColourScheme> scheme = ColourScheme::light)
{
    return iconShape(iconLevel(devices, threshold), scheme, &measured);
}

TEST(IconLevelTest, IsTheFirstOfTheWeakestDevices)
{
    EXPECT_EQ(iconLevel({}, 20), std::nullopt);
    EXPECT_EQ(iconLevel({mouse(40), keyboard(15), trackpad(15)}, 14), (IconLevel{15, false}));
    EXPECT_EQ(iconLevel({mouse(88), trackpad(40)}, 100), (IconLevel{40, true}));
}

TEST(IconLevelTest, IsLowAtTheThresholdAndNotAboveIt)
{
    struct Row {
        std::int64_t level;
        std::int64_t threshold;
        bool low;
    };
    for (const auto& [level, threshold, low] :
         {Row{20, 20, true}, Row{21, 20, false}, Row{0, 0, true}, Row{1, 0, false}}) {
        EXPECT_EQ(iconLevel({mouse(level)}, threshold), (IconLevel{level, low})) << level;
    }
}

TEST(IconShapeTest, WithoutADeviceIsTheStatusIconAlone)
{
    const IconShape shape = shapeOf({});
    EXPECT_EQ(shape.width, 20);
    EXPECT_EQ(shape.label, "");
    EXPECT_EQ(IconShape::height, 22);
    EXPECT_EQ(IconShape::iconSide, 20);
    EXPECT_EQ(IconShape::iconY, 1);
}

TEST(IconShapeTest, TheLabelStandsFivePointsFromTheIconInTheMiddleOfTheHeight)
{
    const IconShape shape = shapeOf({mouse(57)});
    EXPECT_EQ(shape.label, "57%");
    EXPECT_EQ(shape.labelX, 25);
    EXPECT_EQ(shape.labelY, 3.5);
    EXPECT_EQ(IconShape::fontSize, 13);
}

TEST(IconShapeTest, IsAsWideAsItsLabelNeedsInWholePoints)
{
    EXPECT_EQ(shapeOf({mouse(7)}).width, 25 + 15);
    EXPECT_EQ(shapeOf({mouse(57)}).width, 25 + 23); // 22.5
    EXPECT_EQ(shapeOf({mouse(100)}).width, 25 + 30);
}

TEST(IconShapeTest, TheLabelIsTheLevelAsItWasReported)
{
    EXPECT_EQ(shapeOf({mouse(-1)}).label, "-1%");
    EXPECT_EQ(shapeOf({mouse(1234)}).label, "1234%");
    EXPECT_EQ(shapeOf({mouse(std::numeric_limits<std::int64_t>::min())}).label,
              "-9223372036854775808%");
}

TEST(IconShapeTest, TheLabelIsRedWhenLowElseWhiteInTheDarkAndBlackInTheLightOrWithoutAScheme)
{
    const std::vector<std::optional<ColourScheme>> schemes{ColourScheme::dark, ColourScheme::light,
                                                           std::nullopt};
    std::vector<LabelColour> normal;
    for (const auto& scheme : schemes) {
        normal.push_back(shapeOf({mouse(21)}, 20, scheme).colour);
        EXPECT_EQ(shapeOf({mouse(20)}, 20, scheme).colour, LabelColour::red);
    }
    EXPECT_THAT(normal, ElementsAre(LabelColour::white, LabelColour::black, LabelColour::black));
}

TEST(IconTextsTest, NameEveryDeviceInTheOrderGiven)
{
    const LanguageGuard language("en");
    const IconTexts texts = iconTexts({mouse(100), trackpad(5)});
    EXPECT_THAT(texts.devices, ElementsAre("Magic Mouse 100%", "Magic Trackpad 5%"));
    EXPECT_EQ(texts.toolTip, "Cellsentry\nMagic Mouse 100%\nMagic Trackpad 5%");
    EXPECT_EQ(texts.accessible, "Cellsentry, Magic Mouse 100%, Magic Trackpad 5%");
    EXPECT_EQ(texts.open, "Open");
    EXPECT_EQ(texts.quit, "Quit");
}

TEST(IconTextsTest, AreInThePresentLanguage)
{
    const LanguageGuard language("zh");
    const IconTexts texts = iconTexts({mouse(9)});
    EXPECT_EQ(texts.toolTip, "续航哨兵\nMagic Mouse 9%");
    EXPECT_EQ(texts.accessible, "续航哨兵、Magic Mouse 9%");
    EXPECT_EQ(texts.open, "打开");
    EXPECT_EQ(texts.quit, "退出");
}

TEST(IconTextsTest, WithoutADeviceAreTheProgramsName)
{
    const LanguageGuard language("en");
    const IconTexts texts = iconTexts({});
    EXPECT_THAT(texts.devices, IsEmpty());
    EXPECT_EQ(texts.toolTip, "Cellsentry");
    EXPECT_EQ(texts.accessible, "Cellsentry");
}

TEST(IconTextsTest, ANameBreaksNoLine)
{
    const LanguageGuard language("en");
    BatteryDevice device = mouse(37);
    device.name = "a\nb\tc\x1b[31m\u2028\u202Ed";
    EXPECT_THAT(iconTexts({device}).devices, ElementsAre("a b c [31m d 37%"));
    EXPECT_EQ(iconTexts({device}).toolTip, "Cellsentry\na b c [31m d 37%");
}

} // namespace
} // namespace voltmere
