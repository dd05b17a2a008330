// The part of the macOS side that needs no macOS.

#include "macos/instance_choice.h"
#include "macos/login_item_status.h"
#include "macos/notification_rules.h"
#include "macos/screen_coordinates.h"

#include <gmock/gmock.h>

#include <limits>

namespace voltmere {
namespace {

using testing::Optional;
using Status = LoginItemService::Status;

NotificationRequest requestAfter(std::optional<Seconds> delay)
{
    NotificationRequest request;
    request.delay = delay;
    return request;
}

TEST(NotificationRulesTest, ADelayIsTheTriggersInterval)
{
    EXPECT_THAT(triggerInterval(requestAfter(Seconds(1200))), Optional(1200.0));
    EXPECT_THAT(triggerInterval(requestAfter(Seconds(0.001))), Optional(0.001));
}

TEST(NotificationRulesTest, WhatATriggerWouldThrowAtIsPostedAtOnce)
{
    EXPECT_EQ(triggerInterval(requestAfter(std::nullopt)), std::nullopt);
    for (const double seconds : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(triggerInterval(requestAfter(Seconds(seconds))), std::nullopt);
    }
}

TEST(LoginItemStatusTest, EachDocumentedValueHasItsMeaning)
{
    EXPECT_EQ(loginItemStatus(0), Status::notRegistered);
    EXPECT_EQ(loginItemStatus(1), Status::enabled);
    EXPECT_EQ(loginItemStatus(2), Status::requiresApproval);
    EXPECT_EQ(loginItemStatus(3), Status::notFound);
}

TEST(LoginItemStatusTest, AnUnknownValueIsNeverEnabled)
{
    EXPECT_EQ(loginItemStatus(4), Status::notFound);
    EXPECT_EQ(loginItemStatus(-1), Status::notFound);
}

TEST(ScreenCoordinatesTest, TheMenuBarIsAtTheTop)
{
    EXPECT_EQ(fromTopLeft({1200, 1056, 60, 24}, 1080), (ScreenRectangle{1200, 0, 60, 24}));
}

TEST(ScreenCoordinatesTest, AScreenAboveTheFirstHasNegativePlaces)
{
    EXPECT_EQ(fromTopLeft({-300, 1980, 60, 22}, 1080), (ScreenRectangle{-300, -922, 60, 22}));
}

TEST(InstanceChoiceTest, TheOnlyProcessStays)
{
    EXPECT_FALSE(givesWay(500, {}));
    EXPECT_FALSE(givesWay(500, {{500, false}}));
    EXPECT_FALSE(givesWay(500, {{500, true}}));
}

TEST(InstanceChoiceTest, AProcessGivesWayToOneThatRuns)
{
    EXPECT_TRUE(givesWay(500, {{500, false}, {900, true}}));
    EXPECT_TRUE(givesWay(500, {{30, true}}));
}

TEST(InstanceChoiceTest, OfTwoThatStartTogetherExactlyOneStays)
{
    const std::vector<RunningInstance> both{{500, false}, {501, false}};
    EXPECT_FALSE(givesWay(500, both));
    EXPECT_TRUE(givesWay(501, both));
}

} // namespace
} // namespace voltmere
