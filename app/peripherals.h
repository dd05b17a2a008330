#pragma once

#include "app/command_line.h"
#include "app/platform.h"
#include "devices/device_reader.h"
#include "devices/peripheral_tools.h"
#include "posix/process_runner.h"

#include <string>

namespace voltmere {

/// The tools that "--demo" needs and that are not in `demoToolsDirectory()`, as a list in words.
std::string missingDemoTools();

/// The place where this run reads the peripherals, by the command line or else the system.
class Peripherals {
public:
    /// `systemTools` is the directory of this system's tools.
    Peripherals(const CommandLine& commandLine, SystemLog& log,
                const std::string& systemTools = systemToolsDirectory);

    /// The sources for one reading. A place named on the command line is the only one. Without it
    /// the tools count where the registry tool can be run, else the system's own sources.
    PeripheralSources choose();

private:
    bool usesTools() const;

    bool toolsOnly;
    bool systemOnly;
    PosixProcessRunner processes;
    RegistryToolSource registry;
    ProfilerToolSource profiler;
    SystemSources system;
};

} // namespace voltmere
