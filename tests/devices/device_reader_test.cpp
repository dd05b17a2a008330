#include "devices/device_reader.h"

#include "devices/peripheral_tools.h"
#include "devices/registry_text.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_process_runner.h"
#include "fakes/fake_sources.h"
#include "fakes/sample_devices.h"

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

BatteryEntry mouseOf(std::string address)
{
    BatteryEntry entry;
    entry.level = 55;
    entry.product = 803;
    entry.address = std::move(address);
    return entry;
}

class DeviceReaderTest : public testing::Test {
protected:
    FakeClock clock;
    FakeBatterySource batteries;
    FakeNameSource names;
    DeviceReader reader{[this] { return PeripheralSources{"fake", &batteries, &names}; }, clock};
};

TEST_F(DeviceReaderTest, TheNamesOfTheSourceReachTheDevices)
{
    batteries.entries = {mouseOf("aa-bb")};
    names.names = {{"AA:BB", "Mouse of Ann"}};
    EXPECT_THAT(reader.readDevices(true),
                ElementsAre(BatteryDevice{803, "Mouse of Ann", 55, "magicmouse", 0}));
}

TEST_F(DeviceReaderTest, NamesAreReadBeforeTheLevelsThoughThereAreNone)
{
    int readingsBefore = -1;
    names.whileReading = [&] { readingsBefore = batteries.readings; };
    reader.readDevices(true);
    EXPECT_EQ(readingsBefore, 0);
    EXPECT_EQ(batteries.readings, 1);
}

TEST_F(DeviceReaderTest, TheCacheServesNamesOnlyWhenItMayBeUsed)
{
    batteries.entries = {mouseOf("aa-bb")};
    names.names = {{"AA:BB", "Old"}};
    EXPECT_THAT(namesOf(reader.readDevices(false)), ElementsAre("Old"));
    names.names = {{"AA:BB", "New"}};
    EXPECT_THAT(namesOf(reader.readDevices(true)), ElementsAre("Old"));
    EXPECT_THAT(namesOf(reader.readDevices(false)), ElementsAre("New"));
    EXPECT_EQ(names.readings, 2);
}

TEST_F(DeviceReaderTest, TheSourcesAreChosenForEachReading)
{
    FakeBatterySource others;
    others.entries = {mouseOf("")};
    bool useOthers = false;
    int choices = 0;
    DeviceReader choosy(
        [&] {
            ++choices;
            return PeripheralSources{"fake", useOthers ? &others : &batteries, &names};
        },
        clock);
    EXPECT_EQ(choices, 0);
    EXPECT_THAT(choosy.readDevices(true), IsEmpty());
    useOthers = true;
    EXPECT_THAT(namesOf(choosy.readDevices(true)), ElementsAre("Magic Mouse"));
    EXPECT_EQ(choices, 2);
}

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

TEST_F(BluetoothNameResolverTest, ACacheWritten21599SecondsAgoIsServedAndOneOf21600SecondsIsNot)
{
    fillCache();
    clock.present += seconds(21599);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames);
    clock.present += milliseconds(999);
    EXPECT_EQ(resolver.bluetoothNames(true, source), oldNames) << "fractions count for the age";
    clock.present += milliseconds(1);
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames) << "serving it does not renew it";
    EXPECT_EQ(source.readings, 2);
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

TEST_F(BluetoothNameResolverTest, AnEmptyCacheIsNeverServed)
{
    EXPECT_THAT(resolver.bluetoothNames(true, source), IsEmpty());
    EXPECT_THAT(resolver.bluetoothNames(true, source), IsEmpty());
    EXPECT_EQ(source.readings, 2);
    source.names = newNames;
    EXPECT_EQ(resolver.bluetoothNames(true, source), newNames);
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

/// The reader on top of both tools, as it works where they exist. The outputs are synthetic.
class DeviceReaderWithTools : public testing::Test {
protected:
    std::vector<BatteryDevice> read() { return reader.readDevices(false); }

    void print(std::string registryText, std::string report = {})
    {
        processes.outputs["/usr/sbin/ioreg"] = std::move(registryText);
        processes.outputs["/usr/sbin/system_profiler"] = std::move(report);
    }

    FakeClock clock;
    FakeProcessRunner processes;
    RegistryToolSource registry{processes, systemToolsDirectory};
    ProfilerToolSource profiler{processes, systemToolsDirectory};
    DeviceReader reader{[this] { return PeripheralSources{"tools", &registry, &profiler}; }, clock};
};

const std::string annsReport = "          Mouse of Ann:\n"
                               "              Address: AA:BB:CC:DD:EE:FF\n";

TEST_F(DeviceReaderWithTools, EmptyOutputYieldsAnEmptyList)
{
    print("");
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(DeviceReaderWithTools, TheSerialNumberElseTheDeviceAddressFindsTheNameThatTheUserGave)
{
    for (const char* const key : {"SerialNumber", "DeviceAddress"}) {
        print(registryBlock({percent55, product803, textProperty(key, "aa-bb-cc-dd-ee-ff")}),
              annsReport);
        EXPECT_THAT(namesOf(read()), ElementsAre("Mouse of Ann")) << key;
    }
}

TEST_F(DeviceReaderWithTools, ASerialNumberThatMatchesNothingIsTheOnlyAddressTried)
{
    for (const char* const serialNumber : {"F0T0000X", "00-00-00-00-00-00", ""}) {
        print(registryBlock({percent55, product803, textProperty("SerialNumber", serialNumber),
                             textProperty("DeviceAddress", "aa-bb-cc-dd-ee-ff")}),
              annsReport);
        EXPECT_THAT(namesOf(read()), ElementsAre("Magic Mouse")) << serialNumber;
    }
}

} // namespace
} // namespace voltmere
