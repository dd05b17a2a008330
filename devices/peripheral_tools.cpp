#include "devices/peripheral_tools.h"

#include "devices/profiler_parser.h"
#include "devices/registry_parser.h"

namespace voltmere {

namespace {

// The runner reads a tool's output only after the tool has exited, so each tool needs a limit.
// ioreg normally answers within a second; one that runs for 30 s hangs. system_profiler may wake
// the Bluetooth controller and take 30 s on a busy machine, hence 60 s.
constexpr std::chrono::seconds registryLimit{30};
constexpr std::chrono::seconds profilerLimit{60};

} // namespace

RegistryToolSource::RegistryToolSource(ProcessRunner& processes, const std::string& toolsDirectory)
    : processes(processes)
    , executable(toolsDirectory + "/ioreg")
{
}

std::vector<BatteryEntry> RegistryToolSource::readEntries()
{
    return parseRegistry(
        processes.run({.executable = executable,
                       .arguments = {"-r", "-c", "AppleDeviceManagementHIDEventService", "-l"},
                       .errorOutput = ProcessRequest::ErrorOutput::inherited,
                       .limit = registryLimit}));
}

bool RegistryToolSource::isAvailable() const
{
    return processes.isExecutable(executable);
}

ProfilerToolSource::ProfilerToolSource(ProcessRunner& processes, const std::string& toolsDirectory)
    : processes(processes)
    , executable(toolsDirectory + "/system_profiler")
{
}

NameMap ProfilerToolSource::readNames()
{
    return parseProfilerReport(processes.run({.executable = executable,
                                              .arguments = {"SPBluetoothDataType"},
                                              .errorOutput = ProcessRequest::ErrorOutput::swallowed,
                                              .limit = profilerLimit}));
}

} // namespace voltmere
