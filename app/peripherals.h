#pragma once

#include "app/command_line.h"
#include "app/platform.h"
#include "devices/device_reader.h"
#include "devices/peripheral_tools.h"
#include "posix/process_runner.h"

#include <string>

namespace voltmere {

/// Where this run of the program reads the peripherals, as the command line and the system decide.
class Peripherals {
public:
    /// `systemTools` is where the tools of this system are.
    Peripherals(const CommandLine& commandLine, SystemLog& log,
                const std::string& systemTools = systemToolsDirectory);

    /// The sources for one reading: the tools where the registry tool can be run, else the system's
    /// own. With a place named on the command line, that place and no other.
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
