#include "linux/ui/alert_fixture.h"
#include "linux/ui/pictures.h"

#include <QEnterEvent>
#include <QStyleOptionButton>

#include <algorithm>
#include <cmath>

namespace voltmere {
namespace {

using testing::ElementsAre;

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
    HoverPopUpButtonTest() { popUp.addItem("15"); }

    /// Whether the hovered pop-up looks like the plain one with the overlay that its rule demands.
    bool hasOverlay(int height, double radius, double alpha = 0.2)
    {
        constexpr int roundingError = 5; // antialiasing differs a little from exact coverage
        popUp.setFixedSize(52, height);
        popUp.setHovering(false);
        QImage expected = pictureOf(popUp);
        const QColor colour = textColour(popUp);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < popUp.width(); ++x) {
                const double share = alpha * coverage(x, y, popUp.size(), radius);
                const QColor plain = expected.pixelColor(x, y);
                const auto mix = [share](int below, int above) {
                    return qRound(below * (1 - share) + above * share);
                };
                expected.setPixelColor(x, y,
                                       QColor(mix(plain.red(), colour.red()),
                                              mix(plain.green(), colour.green()),
                                              mix(plain.blue(), colour.blue())));
            }
        }
        popUp.setHovering(true);
        return differingPixels(pictureOf(popUp), expected, roundingError) == 0;
    }

    QWidget window;
    HoverPopUpButton popUp{&window};
};

TEST_F(HoverPopUpButtonTest, TheOverlayIsInsetByHalfAPointWithACornerRadiusOf6OrHalfTheHeightLess1)
{
    for (const auto& [height, radius] :
         {std::pair(28, 6.0), std::pair(14, 6.0), std::pair(13, 5.5), std::pair(10, 4.0)}) {
        EXPECT_TRUE(hasOverlay(height, radius)) << height;
    }
    EXPECT_FALSE(hasOverlay(28, 5));
    EXPECT_FALSE(hasOverlay(28, 7));
    EXPECT_FALSE(hasOverlay(10, 3));
    EXPECT_FALSE(hasOverlay(10, 5));
}

/// How often a control is painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    int painted = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        painted += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(HoverPopUpButtonTest, ControlsArePlainAtFirstAndPaintedAnewWhenThePointerComesOrGoes)
{
    HoverButton button("OK", &window);
    button.move(0, 100);
    window.resize(200, 200);
    window.show();
    QCoreApplication::processEvents();
    const QImage plain = pictureOf(popUp);
    PaintWatch popUpWatch(popUp);
    PaintWatch buttonWatch(button);
    for (const bool hovering : {true, true, false}) {
        popUp.setHovering(hovering);
        button.setHovering(hovering);
        QCoreApplication::processEvents();
    }

    EXPECT_GE(popUpWatch.painted, 2);
    EXPECT_EQ(buttonWatch.painted, 2);
    EXPECT_EQ(pictureOf(popUp), plain);
}

TEST_F(HoverPopUpButtonTest, TheOverlayIsTheLabelColourAtAFifthInALightAndInADarkWindow)
{
    EXPECT_FALSE(hasOverlay(28, 6, 0.15));
    EXPECT_FALSE(hasOverlay(28, 6, 0.25));
    window.setPalette(paletteFor(ColourScheme::dark));
    ASSERT_GT(textColour(popUp).lightness(), 200);

    EXPECT_TRUE(hasOverlay(28, 6));
}

TEST(HoverButtonTest, LooksPressedWhileItIsHoveredAlsoAfterAClick)
{
    LookingButton button("In 20 minutes", nullptr);
    EXPECT_FALSE(button.looksPressed());
    button.setHovering(true);
    EXPECT_TRUE(button.looksPressed());
    EXPECT_FALSE(button.isDown());
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_TRUE(button.looksPressed());

    QTest::mousePress(&button, Qt::LeftButton);
    button.setHovering(false);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_FALSE(button.looksPressed());
}

TEST(HoverButtonTest, TheHighlightIsSeenAtOnceInALightAndInADarkWindow)
{
    constexpr int visible = 10; // of 255
    const QPoint besideTheTitle(20, 14);
    for (const ColourScheme scheme : {ColourScheme::light, ColourScheme::dark}) {
        HoverButton button("In 20 minutes", nullptr);
        button.setPalette(paletteFor(scheme));
        button.resize(237, 28);
        const int plain = qGray(pictureOf(button).pixel(besideTheTitle));
        button.setHovering(true);

        EXPECT_LT(qGray(pictureOf(button).pixel(besideTheTitle)), plain - visible);
    }
}

/// Keeps what it is told.
class RecordingHover : public HoverHighlighting {
public:
    void setHovering(bool hovering) override { told.push_back(hovering); }

    std::vector<bool> told;
};

/// Two controls side by side in a window.
class HoverPollerTest : public testing::Test {
protected:
    HoverPollerTest()
    {
        left.setGeometry(10, 10, 50, 28);
        right.setGeometry(70, 10, 50, 28);
        window.setGeometry(100, 100, 200, 50);
        window.show();
        QCoreApplication::processEvents();
    }

    void start()
    {
        poller = std::make_unique<HoverPoller>(
            std::vector<HoverPoller::Item>{{&left, &leftHover}, {&right, &rightHover}}, pointer,
            runLoop);
    }

    void pointAt(const QPoint& inWindow)
    {
        const QPoint point = window.mapToGlobal(inWindow);
        pointer.place =
            PointerPosition{static_cast<double>(point.x()), static_cast<double>(point.y())};
    }

    void tick() { runLoop.advance(HoverPoller::interval); }

    FakePointer pointer;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    QWidget window;
    QWidget left{&window};
    QWidget right{&window};
    RecordingHover leftHover;
    RecordingHover rightHover;
    std::unique_ptr<HoverPoller> poller;
};

TEST_F(HoverPollerTest, AtOnceAndOnEveryTickEachControlIsToldWhetherItIsUnderThePointer)
{
    pointAt({20, 20});
    start();
    EXPECT_THAT(leftHover.told, ElementsAre(true));
    tick();
    pointAt({80, 20});
    tick();
    right.setGeometry(left.geometry());
    pointAt({20, 20});
    tick();
    window.move(400, 300);
    tick();

    EXPECT_THAT(leftHover.told, ElementsAre(true, true, false, true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(false, false, true, true, false));
}

TEST_F(HoverPollerTest, ATickComesEvery120MillisecondsAndAsksForThePointerOnceUntilThePollerGoes)
{
    start();
    runLoop.advance(Seconds(0.119));
    EXPECT_EQ(pointer.questions, 1);
    runLoop.advance(Seconds(0.002));
    EXPECT_EQ(pointer.questions, 2);
    runLoop.advance(Seconds(1.2));
    EXPECT_EQ(pointer.questions, 12);
    poller.reset();
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(HoverPollerTest, ThePointerOnTheControlsLastPixelsCountsAndJustOutsideDoesNot)
{
    pointAt({10, 10});
    start();
    for (const QPoint outside : {QPoint(9, 10), QPoint(10, 9), QPoint(60, 20), QPoint(20, 38)}) {
        pointAt(outside);
        tick();
        pointAt({59, 37});
        tick();
    }

    EXPECT_THAT(leftHover.told,
                ElementsAre(true, false, true, false, true, false, true, false, true));
}

TEST_F(HoverPollerTest, WhereThePointerCannotBeAskedQtsEventsOfTheControlCount)
{
    pointer.place.reset();
    start();
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QApplication::sendEvent(&left, &enter);
    tick();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&left, &leave);
    tick();

    EXPECT_THAT(leftHover.told, ElementsAre(false, true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(false, false, false));
}

class AlertHoverTest : public AlertWindowTest { };

TEST_F(AlertHoverTest, APointerThatAlreadyRestsWhereTheWindowAppearsHighlightsAtOnce)
{
    pointAt(showOneLow().button("Cancel"));

    EXPECT_TRUE(showOneLow().button("Cancel").isHovering());
}

TEST_F(AlertHoverTest, EveryButtonHighlightsAloneCancelIncludedAndKeepsItAfterAClick)
{
    const AlertView view = showOneLow();
    const std::vector<QString> titles{
        "In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK", "Cancel"};
    for (const QString& hovered : titles) {
        pointAt(view.button(hovered));
        view.click(hovered);
        tick();
        for (const QString& title : titles) {
            EXPECT_EQ(view.button(title).isHovering(), title == hovered)
                << title.toStdString() << " while over " << hovered.toStdString();
        }
    }
}

TEST_F(AlertHoverTest, MovingFromOnePopUpToTheOtherMovesTheOverlayOnTheSameTick)
{
    const AlertView view = showOneLow();
    const QImage plainHour = pictureOf(view.hour());
    const QImage plainMinute = pictureOf(view.minute());

    pointAt(view.hour());
    EXPECT_NE(pictureOf(view.hour()), plainHour);
    EXPECT_EQ(pictureOf(view.minute()), plainMinute);

    pointAt(view.minute());
    EXPECT_EQ(pictureOf(view.hour()), plainHour);
    EXPECT_NE(pictureOf(view.minute()), plainMinute);
}

TEST_F(AlertHoverTest, ATickEatsNoPressOfAKeyOrOfTheMouse)
{
    const AlertView view = showOneLow();
    HoverButton& byKey = view.button("In 30 minutes");
    byKey.setFocus();
    QTest::keyPress(&byKey, Qt::Key_Space);
    pointAt(byKey);
    pointAway();
    EXPECT_TRUE(byKey.isDown());
    QTest::keyRelease(&byKey, Qt::Key_Space);

    HoverButton& byMouse = view.button("In 1 hour");
    QTest::mousePress(&byMouse, Qt::LeftButton);
    pointAway();
    EXPECT_TRUE(byMouse.isDown());
    pointAt(byMouse);
    QTest::mouseRelease(&byMouse, Qt::LeftButton);

    EXPECT_THAT(done, ElementsAre("option 1", "option 2"));
}

TEST_F(AlertHoverTest, ThePollerRunsOnWhileTheListOfAPopUpIsOpen)
{
    const AlertView view = showOneLow();
    view.hour().showPopup();
    ASSERT_TRUE(view.hour().view()->isVisible());
    pointAt(view.button("In 20 minutes"));

    EXPECT_TRUE(view.button("In 20 minutes").isHovering());
    view.hour().hidePopup();
}

} // namespace
} // namespace voltmere
