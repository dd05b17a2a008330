#include "devices/device_reader.h"

#include "fakes/fake_clock.h"
#include "fakes/fake_sources.h"

#include <gmock/gmock.h>

#include <array>
#include <latch>
#include <thread>

namespace voltmere {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const NameMap oldNames{{"AA", "Old"}};
const NameMap newNames{{"AA", "New"}, {"BB", "Other"}};

class BluetoothNameResolverTest : public testing::Test {
protected:
    BluetoothNameResolverTest() { clock.present = Instant(hours(24 * 365 * 50)); }

    /// Reads `oldNames` into the cache now and lets the source know `newNames` from then on.
    void fillCache()
    {
        source.names = oldNames;
        ASSERT_EQ(resolver.bluetoothNames(true, source), oldNames);
        ASSERT_EQ(source.readings, 1);
        source.names = newNames;
    }

    FakeClock clock;
    FakeNameSource source;
    BluetoothNameResolver resolver{clock};
};

TEST_F(BluetoothNameResolverTest, TheFirstRequestReadsEvenWhenTheCacheMayBeUsed)
{
    source.names = newNames;
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 1);
}

TEST_F(BluetoothNameResolverTest, ACacheWritten21599SecondsAgoIsServed)
{
    fillCache();
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
    EXPECT_EQ(source.readings, 1);
}

TEST_F(BluetoothNameResolverTest, ACacheWritten21600SecondsAgoIsNotServed)
{
    fillCache();
    clock.present += seconds(21600);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 2);
}

TEST_F(BluetoothNameResolverTest, FractionsOfASecondCountForTheAge)
{
    fillCache();
    clock.present += seconds(21600) - milliseconds(1);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
}

TEST_F(BluetoothNameResolverTest, ServingTheCacheDoesNotRenewIt)
{
    fillCache();
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
    clock.present += seconds(1);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
}

TEST_F(BluetoothNameResolverTest, ANegativeAgeCountsAsFresh)
{
    fillCache();
    clock.present -= hours(24 * 365);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
    EXPECT_EQ(source.readings, 1);
}

TEST_F(BluetoothNameResolverTest, WithoutTheCacheTheSourceIsAlwaysRead)
{
    fillCache();
    EXPECT_EQ(resolver.bluetoothNames(false, source), newNames);
    EXPECT_EQ(resolver.bluetoothNames(false, source), newNames);
    EXPECT_EQ(source.readings, 3);
}

TEST_F(BluetoothNameResolverTest, WithoutTheCacheTheCacheAndItsTimeAreReplaced)
{
    fillCache();
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(false, source), newNames);
    source.names = oldNames;
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 2);
    clock.present += seconds(1);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
}

TEST_F(BluetoothNameResolverTest, AnExpiredCacheIsReplacedWithItsTime)
{
    fillCache();
    clock.present += hours(7);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 2);
}

TEST_F(BluetoothNameResolverTest, AnEmptyCacheIsNeverServed)
{
    EXPECT_THAT(resolver.bluetoothNames(true, source), IsEmpty());
    EXPECT_THAT(resolver.bluetoothNames(true, source), IsEmpty());
    EXPECT_EQ(source.readings, 2);
    source.names = newNames;
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 3);
}

TEST_F(BluetoothNameResolverTest, AnEmptyReadingReplacesTheNames)
{
    fillCache();
    source.names.clear();
    EXPECT_THAT(resolver.bluetoothNames(false, source), IsEmpty());
    source.names = newNames;
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames) << "the old names are gone";
    EXPECT_EQ(source.readings, 3);
}

TEST_F(BluetoothNameResolverTest, AReadingReplacesTheNamesAndDoesNotAddToThem)
{
    fillCache();
    source.names = {{"CC", "Third"}};
    resolver.bluetoothNames(false, source);
    EXPECT_THAT(resolver.bluetoothNames(true, source), ElementsAre(Pair("CC", "Third")));
}

TEST_F(BluetoothNameResolverTest, TheAgeCountsFromTheEndOfTheReading)
{
    source.names = oldNames;
    source.whileReading = [this] { clock.present += seconds(40); };
    resolver.bluetoothNames(true, source);
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
    EXPECT_EQ(source.readings, 1);
}

TEST_F(BluetoothNameResolverTest, ASourceMayAskTheResolverAgainWhileItReads)
{
    FakeNameSource inner;
    inner.names = {{"CC", "Inner"}};
    NameMap seenInside;
    source.names = newNames;
    source.whileReading = [&] { seenInside = resolver.bluetoothNames(false, inner); };
    EXPECT_EQ(resolver.bluetoothNames(false, source), newNames);
    EXPECT_EQ(seenInside, inner.names);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames) << "the last to finish is kept";
}

TEST_F(BluetoothNameResolverTest, TheOldNamesAreServedWhileASourceReads)
{
    fillCache();
    FakeNameSource inner;
    NameMap seenInside;
    source.whileReading = [&] { seenInside = resolver.bluetoothNames(true, inner); };
    EXPECT_EQ(resolver.bluetoothNames(false, source), newNames);
    EXPECT_EQ(seenInside, oldNames);
    EXPECT_EQ(inner.readings, 0);
}

TEST_F(BluetoothNameResolverTest, TwoThreadsReadAtTheSameTime)
{
    // Each source waits for the other one to be reading too: a lock held meanwhile would hang here.
    std::latch bothReading(2);
    std::array<FakeNameSource, 2> sources;
    std::array<NameMap, 2> results;
    for (FakeNameSource& each : sources) {
        each.names = newNames;
        each.whileReading = [&] { bothReading.arrive_and_wait(); };
    }
    std::thread first([&] { results[0] = resolver.bluetoothNames(false, sources[0]); });
    std::thread second([&] { results[1] = resolver.bluetoothNames(true, sources[1]); });
    first.join();
    second.join();
    EXPECT_THAT(results, ElementsAre(newNames, newNames));
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
    EXPECT_EQ(source.readings, 0);
}

TEST_F(BluetoothNameResolverTest, AResultOutlivesTheCacheItCameFrom)
{
    fillCache();
    const NameMap served = resolver.bluetoothNames(true, source);
    source.names.clear();
    resolver.bluetoothNames(false, source);
    EXPECT_EQ(served, oldNames);
}

} // namespace
} // namespace voltmere
