#include "devices/peripheral_tools.h"

#include "devices/registry_text.h"
#include "fakes/fake_process_runner.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class PeripheralTools : public testing::Test {
protected:
    FakeProcessRunner processes;
    RegistryToolSource registry{processes, systemToolsDirectory};
    ProfilerToolSource profiler{processes, systemToolsDirectory};
};

TEST_F(PeripheralTools, TheRegistryToolIsRunOnceWithItsExactRequest)
{
    registry.readEntries();
    ASSERT_THAT(processes.requests, SizeIs(1));
    const ProcessRequest& request = processes.requests.front();
    EXPECT_EQ(request.executable, "/usr/sbin/ioreg");
    EXPECT_THAT(request.arguments,
                ElementsAre("-r", "-c", "AppleDeviceManagementHIDEventService", "-l"));
    EXPECT_EQ(request.errorOutput, ProcessRequest::ErrorOutput::inherited);
    EXPECT_EQ(request.limit, seconds(30));
}

TEST_F(PeripheralTools, TheProfilerIsRunOnceWithItsExactRequest)
{
    profiler.readNames();
    ASSERT_THAT(processes.requests, SizeIs(1));
    const ProcessRequest& request = processes.requests.front();
    EXPECT_EQ(request.executable, "/usr/sbin/system_profiler");
    EXPECT_THAT(request.arguments, ElementsAre("SPBluetoothDataType"));
    EXPECT_EQ(request.errorOutput, ProcessRequest::ErrorOutput::swallowed);
    EXPECT_EQ(request.limit, seconds(60));
}

TEST_F(PeripheralTools, TheToolsAreTakenFromTheGivenDirectory)
{
    processes.outputs["/opt/tools/ioreg"] = "";
    RegistryToolSource elsewhere(processes, "/opt/tools");
    elsewhere.readEntries();
    ProfilerToolSource(processes, "/opt/tools").readNames();
    ASSERT_THAT(processes.requests, SizeIs(2));
    EXPECT_EQ(processes.requests[0].executable, "/opt/tools/ioreg");
    EXPECT_EQ(processes.requests[1].executable, "/opt/tools/system_profiler");
    EXPECT_TRUE(elsewhere.isAvailable());
}

TEST_F(PeripheralTools, TheRegistryToolIsAvailableWhenItCanBeRun)
{
    EXPECT_FALSE(registry.isAvailable());
    processes.outputs["/usr/sbin/system_profiler"] = "";
    EXPECT_FALSE(registry.isAvailable()) << "the other tool does not count";
    processes.outputs["/usr/sbin/ioreg"] = "";
    EXPECT_TRUE(registry.isAvailable());
    EXPECT_THAT(processes.requests, IsEmpty()) << "asking does not run it";
}

TEST_F(PeripheralTools, TheOutputOfTheRegistryToolIsRead)
{
    processes.outputs["/usr/sbin/ioreg"] =
        registryBlock({property("BatteryPercent", "55"), property("ProductID", "803")});
    const std::vector<BatteryEntry> entries = registry.readEntries();
    ASSERT_THAT(entries, SizeIs(1));
    EXPECT_THAT(entries.front().level, Optional(55));
    EXPECT_THAT(entries.front().product, Optional(803));
}

TEST_F(PeripheralTools, TheOutputOfTheProfilerIsRead)
{
    processes.outputs["/usr/sbin/system_profiler"] =
        "          Mouse of Ann:\n              Address: aa:bb:cc:dd:ee:ff\n";
    EXPECT_THAT(profiler.readNames(),
                UnorderedElementsAre(Pair("AA:BB:CC:DD:EE:FF", "Mouse of Ann")));
}

TEST_F(PeripheralTools, AToolThatCannotBeStartedYieldsNothing)
{
    EXPECT_THAT(registry.readEntries(), IsEmpty());
    EXPECT_THAT(profiler.readNames(), IsEmpty());
}

} // namespace
} // namespace voltmere
