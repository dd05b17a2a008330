#include "devices/peripheral_tools.h"

#include "devices/profiler_parser.h"
#include "devices/registry_parser.h"

namespace voltmere {

namespace {

// The runner waits for a tool before it reads the output, so a tool that never exits would block
// its reading for ever. The registry tool answers within a second: after 30 s it hangs. The
// profiler may have to wake the Bluetooth controller and takes up to half a minute on a busy
// machine, hence 60 s.
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
