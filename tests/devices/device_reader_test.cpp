#include "devices/device_reader.h"

#include "devices/peripheral_tools.h"
#include "devices/registry_text.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_process_runner.h"
#include "fakes/fake_sources.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <latch>
#include <thread>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

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

TEST_F(DeviceReaderTest, NoEntriesYieldAnEmptyList)
{
    EXPECT_THAT(reader.readDevices(true), IsEmpty());
}

TEST_F(DeviceReaderTest, TheNamesOfTheSourceReachTheDevices)
{
    batteries.entries = {mouseOf("aa-bb")};
    names.names = {{"AA:BB", "Mouse of Ann"}};
    EXPECT_THAT(reader.readDevices(true),
                ElementsAre(BatteryDevice{803, "Mouse of Ann", 55, "magicmouse", 0}));
}

TEST_F(DeviceReaderTest, NamesAreReadBeforeTheLevels)
{
    int readingsBefore = -1;
    names.whileReading = [&] { readingsBefore = batteries.readings; };
    reader.readDevices(true);
    EXPECT_EQ(readingsBefore, 0);
    EXPECT_EQ(batteries.readings, 1);
}

TEST_F(DeviceReaderTest, NamesAreReadEvenWhenThereAreNoEntries)
{
    reader.readDevices(true);
    EXPECT_EQ(names.readings, 1);
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

TEST_F(DeviceReaderTest, LevelsAreReadAnewEachTime)
{
    names.names = {{"AA:BB", "Mouse of Ann"}};
    batteries.entries = {mouseOf("aa-bb")};
    reader.readDevices(true);
    batteries.entries.front().level = 54;
    EXPECT_THAT(reader.readDevices(true), ElementsAre(Field(&BatteryDevice::level, 54)));
    EXPECT_EQ(batteries.readings, 2);
}

TEST_F(DeviceReaderTest, TheDevicesComeInDisplayOrder)
{
    for (const std::int64_t product : {804, 805, 803}) {
        batteries.entries.push_back(mouseOf(""));
        batteries.entries.back().product = product;
    }
    EXPECT_THAT(namesOf(reader.readDevices(true)),
                ElementsAre("Magic Mouse", "Magic Keyboard", "Magic Trackpad"));
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

TEST_F(DeviceReaderTest, AReadingThatHangsDoesNotHoldUpTheNext)
{
    std::latch hanging(1);
    std::latch released(1);
    FakeNameSource slowNames;
    slowNames.names = {{"AA:BB", "Slow"}};
    slowNames.whileReading = [&] {
        hanging.count_down();
        released.wait();
    };
    FakeBatterySource slowBatteries;
    slowBatteries.entries = {mouseOf("aa-bb")};
    batteries.entries = {mouseOf("aa-bb")};
    names.names = {{"AA:BB", "Quick"}};
    const std::thread::id testThread = std::this_thread::get_id();
    DeviceReader shared(
        [&] {
            return std::this_thread::get_id() == testThread
                ? PeripheralSources{"quick", &batteries, &names}
                : PeripheralSources{"slow", &slowBatteries, &slowNames};
        },
        clock);
    std::vector<BatteryDevice> slowResult;
    std::thread slow([&] { slowResult = shared.readDevices(false); });
    hanging.wait();
    EXPECT_THAT(namesOf(shared.readDevices(false)), ElementsAre("Quick"));
    released.count_down();
    slow.join();
    EXPECT_THAT(namesOf(slowResult), ElementsAre("Slow"));
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

TEST_F(DeviceReaderWithTools, TheProfilerRunsBeforeTheRegistryTool)
{
    read();
    EXPECT_THAT(processes.requests,
                ElementsAre(Field(&ProcessRequest::executable, "/usr/sbin/system_profiler"),
                            Field(&ProcessRequest::executable, "/usr/sbin/ioreg")));
}

TEST_F(DeviceReaderWithTools, ToolsThatCannotBeStartedYieldAnEmptyList)
{
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(DeviceReaderWithTools, EmptyOutputYieldsAnEmptyList)
{
    print("");
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(DeviceReaderWithTools, OutputThatIsNotUtf8YieldsAnEmptyList)
{
    print(registryBlock({percent55, product803}) + "\xC3", annsReport);
    EXPECT_THAT(read(), IsEmpty());
}

TEST_F(DeviceReaderWithTools, AReportThatIsNotUtf8LeavesTheCatalogueNames)
{
    print(registryBlock({percent55, product803, textProperty("SerialNumber", "aa-bb-cc-dd-ee-ff")}),
          annsReport + "\xC3");
    EXPECT_THAT(namesOf(read()), ElementsAre("Magic Mouse"));
}

TEST_F(DeviceReaderWithTools, ABlockWithNeitherLevelIsDropped)
{
    print(registryBlock({product803}) + registryBlock({percent55, property("ProductID", "805")}));
    EXPECT_THAT(read(), ElementsAre(Field(&BatteryDevice::id, 805)));
}

TEST_F(DeviceReaderWithTools, TheSerialNumberFindsTheNameThatTheUserGave)
{
    print(registryBlock({percent55, product803, textProperty("SerialNumber", "aa-bb-cc-dd-ee-ff")}),
          annsReport);
    EXPECT_THAT(namesOf(read()), ElementsAre("Mouse of Ann"));
}

TEST_F(DeviceReaderWithTools, TheDeviceAddressFindsItWhenThereIsNoSerialNumber)
{
    print(
        registryBlock({percent55, product803, textProperty("DeviceAddress", "aa-bb-cc-dd-ee-ff")}),
        annsReport);
    EXPECT_THAT(namesOf(read()), ElementsAre("Mouse of Ann"));
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

TEST_F(DeviceReaderWithTools, AReportThatPrintsHyphensNamesNoDevice)
{
    print(registryBlock({percent55, product803, textProperty("SerialNumber", "aa-bb-cc-dd-ee-ff")}),
          "          Mouse of Ann:\n              Address: aa-bb-cc-dd-ee-ff\n");
    EXPECT_THAT(namesOf(read()), ElementsAre("Magic Mouse"));
}

TEST_F(DeviceReaderWithTools, TwoMagicMiceAreReportedAsTheFirst)
{
    print(registryBlock({product803}) + registryBlock({percent55, product803}) +
          registryBlock({property("BatteryPercent", "9"), product803}));
    EXPECT_THAT(read(), ElementsAre(BatteryDevice{803, "Magic Mouse", 55, "magicmouse", 0}));
}

} // namespace
} // namespace voltmere
