#pragma once

#include "ports/peripherals.h"

#include <string>

namespace voltmere {

/// The directory of the system's tools.
inline constexpr const char* systemToolsDirectory = "/usr/sbin";

/// Battery levels from the device-registry tool, `ioreg`.
class RegistryToolSource : public BatterySource {
public:
    RegistryToolSource(ProcessRunner& processes, const std::string& toolsDirectory);

    std::vector<BatteryEntry> readEntries() override;

    /// Whether the tool is there and can be run.
    bool isAvailable() const;

private:
    ProcessRunner& processes;
    std::string executable;
};

/// Names from the hardware-profile tool, `system_profiler`. Slow: a run takes seconds.
class ProfilerToolSource : public NameSource {
public:
    ProfilerToolSource(ProcessRunner& processes, const std::string& toolsDirectory);

    NameMap readNames() override;

private:
    ProcessRunner& processes;
    std::string executable;
};

} // namespace voltmere
