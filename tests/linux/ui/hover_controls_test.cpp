#include "linux/ui/alert_fixture.h"

#include <QStyleOptionButton>

#include <algorithm>
#include <cmath>

namespace voltmere {
namespace {

/// A push button that tells how it would be drawn.
class LookingButton : public HoverButton {
public:
    using HoverButton::HoverButton;

    bool looksPressed() const
    {
        QStyleOptionButton option;
        initStyleOption(&option);
        return option.state.testFlag(QStyle::State_Sunken);
    }
};

QImage pictureOf(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// How much of a pixel a rounded rectangle covers that lies half a point inside `size`.
double coverage(int x, int y, const QSize& size, double radius)
{
    constexpr int samples = 8;
    constexpr double inset = 0.5;
    int inside = 0;
    for (int i = 0; i < samples * samples; ++i) {
        const double px = x + (i % samples + 0.5) / samples - inset;
        const double py = y + (i / samples + 0.5) / samples - inset;
        const double width = size.width() - 2 * inset;
        const double height = size.height() - 2 * inset;
        if (px < 0 || py < 0 || px > width || py > height) {
            continue;
        }
        const double dx = std::max({radius - px, px - (width - radius), 0.0});
        const double dy = std::max({radius - py, py - (height - radius), 0.0});
        inside += std::hypot(dx, dy) <= radius ? 1 : 0;
    }
    return static_cast<double>(inside) / (samples * samples);
}

/// The pop-up as a part of a window, so that nothing but it is in the picture.
class HoverPopUpButtonTest : public testing::Test {
protected:
    HoverPopUpButtonTest()
    {
        popUp.setParent(&window);
        popUp.addItem("15");
    }

    /// The largest difference, in one channel of one pixel, between the hovered pop-up and the
    /// plain one with the overlay over it that its rule demands.
    double worstDifference(int height, double radius, double alpha = 0.2)
    {
        popUp.setFixedSize(52, height);
        popUp.setHovering(false);
        const QImage plain = pictureOf(popUp);
        popUp.setHovering(true);
        const QImage hovered = pictureOf(popUp);
        const QColor colour = textColour(popUp);
        double worst = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < popUp.width(); ++x) {
                const double share = alpha * coverage(x, y, popUp.size(), radius);
                for (const int shift : {0, 8, 16}) {
                    const auto channel = [shift](QRgb pixel) {
                        return static_cast<int>(pixel >> shift & 0xFFU);
                    };
                    const double expected =
                        channel(plain.pixel(x, y)) * (1 - share) + channel(colour.rgb()) * share;
                    worst = std::max(worst, std::abs(channel(hovered.pixel(x, y)) - expected));
                }
            }
        }
        return worst;
    }

    QWidget window;
    HoverPopUpButton popUp;
};

constexpr double roundingError = 5; // of 255; antialiasing differs a little from exact coverage

TEST_F(HoverPopUpButtonTest, APopUpOfHeight28DrawsTheOverlayWithCornerRadius6InsetByHalfAPoint)
{
    EXPECT_LE(worstDifference(28, 6), roundingError);
    EXPECT_GT(worstDifference(28, 5), roundingError);
    EXPECT_GT(worstDifference(28, 7), roundingError);
}

TEST_F(HoverPopUpButtonTest, APopUpOfHeight10DrawsTheOverlayWithCornerRadius4)
{
    EXPECT_LE(worstDifference(10, 4), roundingError);
    EXPECT_GT(worstDifference(10, 3), roundingError);
    EXPECT_GT(worstDifference(10, 5), roundingError);
}

TEST_F(HoverPopUpButtonTest, APopUpOfHeight13IsTheTallestWithASmallerRadius)
{
    EXPECT_LE(worstDifference(13, 5.5), roundingError);
    EXPECT_LE(worstDifference(14, 6), roundingError);
}

TEST_F(HoverPopUpButtonTest, TheOverlayIsTheLabelColourAtAFifth)
{
    EXPECT_LE(worstDifference(28, 6, 0.2), roundingError);
    EXPECT_GT(worstDifference(28, 6, 0.15), roundingError);
    EXPECT_GT(worstDifference(28, 6, 0.25), roundingError);
}

TEST_F(HoverPopUpButtonTest, TheOverlayFollowsTheLabelColourOfADarkWindow)
{
    window.setPalette(paletteFor(ColourScheme::dark));
    ASSERT_GT(textColour(popUp).lightness(), 200);

    EXPECT_LE(worstDifference(28, 6), roundingError);
}

TEST_F(HoverPopUpButtonTest, TheCornerPixelStaysAndTheCentreIsCovered)
{
    popUp.setFixedSize(52, 28);
    const QImage plain = pictureOf(popUp);
    popUp.setHovering(true);
    const QImage hovered = pictureOf(popUp);

    for (const QPoint corner : {QPoint(0, 0), QPoint(51, 0), QPoint(0, 27), QPoint(51, 27)}) {
        EXPECT_EQ(hovered.pixel(corner), plain.pixel(corner));
    }
    const QPoint centre(30, 14);
    EXPECT_LT(qGray(hovered.pixel(centre)), qGray(plain.pixel(centre)));
}

TEST_F(HoverPopUpButtonTest, WithoutHoveringThereIsNoOverlay)
{
    popUp.setFixedSize(52, 28);
    const QImage plain = pictureOf(popUp);
    popUp.setHovering(true);
    popUp.setHovering(false);

    EXPECT_EQ(pictureOf(popUp), plain);
}

TEST_F(HoverPopUpButtonTest, TheWheelDoesNotChangeTheChoice)
{
    popUp.addItem("16");
    QWheelEvent wheel({10, 10}, {10, 10}, {0, -120}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&popUp, &wheel);

    EXPECT_EQ(popUp.currentText(), "15");
}

TEST(HoverButtonTest, LooksPressedWhileItIsHovered)
{
    LookingButton button("In 20 minutes");
    EXPECT_FALSE(button.looksPressed());

    button.setHovering(true);
    EXPECT_TRUE(button.looksPressed());
    EXPECT_FALSE(button.isDown());

    button.setHovering(false);
    EXPECT_FALSE(button.looksPressed());
}

TEST(HoverButtonTest, TheHighlightIsSeenInALightAndInADarkWindow)
{
    constexpr int visible = 10; // of 255
    const QPoint besideTheTitle(20, 14);
    for (const ColourScheme scheme : {ColourScheme::light, ColourScheme::dark}) {
        HoverButton button("In 20 minutes");
        button.setPalette(paletteFor(scheme));
        button.resize(237, 28);
        const int plain = qGray(pictureOf(button).pixel(besideTheTitle));
        button.setHovering(true);

        EXPECT_LT(qGray(pictureOf(button).pixel(besideTheTitle)), plain - visible);
    }
}

TEST(HoverButtonTest, AClickedButtonKeepsItsHoverLook)
{
    LookingButton button("In 20 minutes");
    button.setHovering(true);
    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_TRUE(button.looksPressed());
}

TEST(HoverButtonTest, AClickedButtonThatThePointerHasLeftIsPlain)
{
    LookingButton button("In 20 minutes");
    button.setHovering(true);
    QTest::mousePress(&button, Qt::LeftButton);
    button.setHovering(false);
    QTest::mouseRelease(&button, Qt::LeftButton);

    EXPECT_FALSE(button.looksPressed());
}

TEST(HoverButtonTest, AnAmpersandInATitleIsNoMnemonic)
{
    const HoverButton button("Now & then");
    EXPECT_EQ(button.text(), "Now && then");
    EXPECT_EQ(button.accessibleName(), "Now & then");
    EXPECT_TRUE(button.shortcut().isEmpty());
}

TEST(HighlightButtonTest, ClickSpaceAndReturnFireTheTarget)
{
    int fired = 0;
    const auto target = std::make_shared<ActionTarget>([&fired] { ++fired; });
    HighlightButton button("OK");
    button.setTarget(target);

    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(fired, 1);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(fired, 2);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(fired, 3);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(fired, 4);
}

TEST(HighlightButtonTest, HoldsItsTargetWeakly)
{
    int fired = 0;
    auto target = std::make_shared<ActionTarget>([&fired] { ++fired; });
    HighlightButton button("OK");
    button.setTarget(target);
    target.reset();

    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(fired, 0);
}

TEST(ActionTargetTest, StaysAliveWhileItsActionRuns)
{
    std::shared_ptr<ActionTarget> only;
    std::weak_ptr<ActionTarget> watched;
    bool aliveWithin = false;
    only = std::make_shared<ActionTarget>([&] {
        only.reset();
        aliveWithin = !watched.expired();
    });
    watched = only;
    only->fire();

    EXPECT_TRUE(aliveWithin);
    EXPECT_TRUE(watched.expired());
}

TEST(NativeButtonHoverTest, HighlightsAButtonThatIsNotItsOwn)
{
    HighlightButton button("Cancel");
    NativeButtonHover hover(&button);

    hover.setHovering(true);
    EXPECT_TRUE(button.isHighlighted());
    hover.setHovering(false);
    EXPECT_FALSE(button.isHighlighted());
}

TEST(NativeButtonHoverTest, AButtonThatIsGoneIsLeftAlone)
{
    auto button = std::make_unique<HighlightButton>("Cancel");
    NativeButtonHover hover(button.get());
    button.reset();

    EXPECT_NO_THROW(hover.setHovering(true));
}

} // namespace
} // namespace voltmere
