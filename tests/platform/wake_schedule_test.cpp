#include "platform/wake_schedule.h"

#include <gtest/gtest.h>

namespace voltmere {
namespace {

TEST(WakeScheduleTest, ItIsDueOnceItsDelayHasPassed)
{
    const WakeSchedule schedule(Seconds(1000), Seconds(1800), Seconds(0));

    EXPECT_FALSE(schedule.repeats());
    EXPECT_FALSE(schedule.isDue(Seconds(2799)));
    EXPECT_EQ(schedule.remaining(Seconds(2799)), Seconds(1));
    EXPECT_TRUE(schedule.isDue(Seconds(2800)));
}

TEST(WakeScheduleTest, WhatFellDueDuringASleepIsDueAtOnce)
{
    const WakeSchedule schedule(Seconds(0), Seconds(1800), Seconds(0));

    EXPECT_TRUE(schedule.isDue(Seconds(9000)));
    EXPECT_EQ(schedule.remaining(Seconds(9000)), Seconds(0));
}

TEST(WakeScheduleTest, ARepeatingOneComesBackAfterEachInterval)
{
    WakeSchedule schedule(Seconds(0), Seconds(60), Seconds(60));
    EXPECT_TRUE(schedule.repeats());
    schedule.advancePast(Seconds(60));
    EXPECT_EQ(schedule.remaining(Seconds(60)), Seconds(60));
    schedule.advancePast(Seconds(121));
    EXPECT_EQ(schedule.remaining(Seconds(121)), Seconds(59));
}

TEST(WakeScheduleTest, MissedPeriodsCountAsOne)
{
    WakeSchedule schedule(Seconds(0), Seconds(60), Seconds(60));
    schedule.advancePast(Seconds(3630));

    EXPECT_FALSE(schedule.isDue(Seconds(3630)));
    EXPECT_EQ(schedule.remaining(Seconds(3630)), Seconds(30));
}

} // namespace
} // namespace voltmere
