#pragma once

#include "ports/peripherals.h"

#include <filesystem>
#include <memory>
#include <string>

namespace voltmere {

/// What the system itself tells of the peripherals where its tools are missing.
struct SystemSources {
    std::string label; ///< empty on a system that has nothing but its tools
    std::unique_ptr<BatterySource> batteries;
    std::unique_ptr<NameSource> names;
};

/// `root` stands where the kernel's file system of devices normally does.
SystemSources makeSystemSources(const std::filesystem::path& root);

} // namespace voltmere
