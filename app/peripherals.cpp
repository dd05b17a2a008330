#include "app/peripherals.h"

#include <unistd.h>

namespace voltmere {

namespace {

std::string toolsDirectory(const CommandLine& commandLine, const std::string& systemTools)
{
    if (commandLine.demo) {
        return demoToolsDirectory();
    }
    return commandLine.toolsDirectory.value_or(systemTools);
}

} // namespace

std::string missingDemoTools()
{
    std::string missing;
    for (const char* const tool : {"ioreg", "system_profiler"}) {
        if (::access((demoToolsDirectory() + '/' + tool).c_str(), X_OK) != 0) {
            missing += std::string(missing.empty() ? "" : " and ") + tool;
        }
    }
    return missing;
}

Peripherals::Peripherals(const CommandLine& commandLine, SystemLog& log,
                         const std::string& systemTools)
    : toolsOnly(commandLine.demo || commandLine.toolsDirectory)
    , systemOnly(commandLine.sysfsRoot.has_value())
    , processes(log)
    , registry(processes, toolsDirectory(commandLine, systemTools))
    , profiler(processes, toolsDirectory(commandLine, systemTools))
    , system(makeSystemSources(commandLine.sysfsRoot.value_or("/sys")))
{
}

PeripheralSources Peripherals::choose()
{
    if (usesTools()) {
        return {"tools", &registry, &profiler};
    }
    return {system.label, system.batteries.get(), system.names.get()};
}

bool Peripherals::usesTools() const
{
    if (toolsOnly || system.batteries == nullptr) {
        return true;
    }
    return !systemOnly && registry.isAvailable();
}

} // namespace voltmere
