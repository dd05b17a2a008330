#include "linux/ui/panel_placement.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>

namespace voltmere {
namespace {

constexpr QSize panel(320, 400);

struct Placement {
    std::string name;
    QRect anchor;
    QRect workArea;
    QPoint expected;
};

void PrintTo(const Placement& placement, std::ostream* out)
{
    *out << placement.name;
}

class PanelPlacementTest : public testing::TestWithParam<Placement> { };

TEST_P(PanelPlacementTest, StandsWhereItShould)
{
    const auto& [name, anchor, workArea, expected] = GetParam();
    const QPoint place = placePanel(anchor, panel, workArea);
    EXPECT_EQ(place.x(), expected.x());
    EXPECT_EQ(place.y(), expected.y());
}

/// A screen of 1920 x 1080 with a bar of 30 points at the named edge, and one of the same size at
/// its right.
const QRect belowTopBar(0, 30, 1920, 1050);
const QRect aboveBottomBar(0, 0, 1920, 1050);
const QRect rightOfLeftBar(30, 0, 1890, 1080);
const QRect leftOfRightBar(0, 0, 1890, 1080);
const QRect secondScreen = belowTopBar.translated(1920, 0);
const QRect leftScreen = aboveBottomBar.translated(-1920, -200);

INSTANTIATE_TEST_SUITE_P(
    Icons, PanelPlacementTest,
    testing::Values(
        Placement{"centred below an icon at the top", {1000, 4, 22, 22}, belowTopBar, {850, 30}},
        Placement{"a gap between icon and work area", {1000, 0, 20, 20}, belowTopBar, {849, 30}},
        Placement{"at the right end of a top bar", {1890, 4, 22, 22}, belowTopBar, {1600, 30}},
        Placement{"at the left end of a top bar", {4, 4, 22, 22}, belowTopBar, {0, 30}},
        Placement{"above an icon at the bottom", {1000, 1054, 22, 22}, aboveBottomBar, {850, 650}},
        Placement{"bottom right corner", {1894, 1054, 22, 22}, aboveBottomBar, {1600, 650}},
        Placement{"bottom left corner", {4, 1054, 22, 22}, aboveBottomBar, {0, 650}},
        Placement{"high in a left bar", {4, 100, 22, 22}, rightOfLeftBar, {30, 122}},
        Placement{"low in a left bar", {4, 1000, 22, 22}, rightOfLeftBar, {30, 600}},
        Placement{"high in a right bar", {1894, 100, 22, 22}, leftOfRightBar, {1570, 122}},
        Placement{"low in a right bar", {1894, 1000, 22, 22}, leftOfRightBar, {1570, 600}},
        Placement{"the middle counts as the upper half", {900, 529, 1, 1}, belowTopBar, {740, 530}},
        Placement{"just below the middle", {900, 556, 1, 1}, belowTopBar, {740, 156}},
        Placement{"a pointer in the open", {500, 200, 1, 1}, belowTopBar, {340, 201}},
        Placement{"second screen, top", {2900, 4, 22, 22}, secondScreen, {2750, 30}},
        Placement{"second screen, left end", {1924, 4, 22, 22}, secondScreen, {1920, 30}},
        Placement{"second screen, right end", {3810, 4, 22, 22}, secondScreen, {3520, 30}},
        Placement{"a screen at the left", {-1000, 854, 22, 22}, leftScreen, {-1149, 450}},
        Placement{"a screen at the left, its corner", {-26, 854, 22, 22}, leftScreen, {-320, 450}},
        Placement{"no room below", {100, 150, 20, 20}, {0, 0, 800, 420}, {0, 20}},
        Placement{"exactly as large", {100, 0, 20, 20}, {0, 0, 320, 400}, {0, 0}},
        Placement{"too low a work area", {100, 0, 20, 20}, {0, 24, 800, 300}, {0, 24}},
        Placement{"too low, icon at the bottom", {100, 330, 20, 20}, {0, 24, 800, 300}, {0, 24}},
        Placement{"too narrow a work area", {150, 0, 20, 20}, {10, 24, 200, 900}, {10, 24}},
        Placement{"no work area at all", {150, 0, 20, 20}, {7, 9, 0, 0}, {7, 9}}));

TEST(PanelPlacement, StaysInsideEveryWorkAreaThatIsLargeEnough)
{
    for (const QRect& area : {belowTopBar, aboveBottomBar, rightOfLeftBar, secondScreen}) {
        for (int x = area.left() - 40; x < area.right() + 40; x += 97) {
            for (int y = area.top() - 40; y < area.bottom() + 40; y += 89) {
                const QRect placed(placePanel({x, y, 22, 22}, panel, area), panel);
                EXPECT_TRUE(area.contains(placed)) << x << ' ' << y;
            }
        }
    }
}

TEST(PanelPlacement, DoesNotCoverAnIconInABar)
{
    for (const auto& [icon, area] : {std::pair(QRect(1000, 4, 22, 22), belowTopBar),
                                     std::pair(QRect(1000, 1054, 22, 22), aboveBottomBar)}) {
        EXPECT_FALSE(QRect(placePanel(icon, panel, area), panel).intersects(icon));
    }
}

} // namespace
} // namespace voltmere
