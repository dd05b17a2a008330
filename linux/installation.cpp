#include "linux/installation.h"

#include <system_error>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

constexpr const char* desktopProgramBelow = "libexec/voltmere/voltmere-desktop";

/// The directory above both programs: the prefix of an installation, or the directory of a build,
/// where "voltmere" stands outside "bin".
fs::path root()
{
    std::error_code error;
    fs::path directory = fs::read_symlink("/proc/self/exe", error).parent_path();
    for (const fs::path& candidate :
         {directory.parent_path(), directory.parent_path().parent_path()}) {
        if (fs::exists(candidate / desktopProgramBelow, error)) {
            return candidate;
        }
    }
    return directory;
}

} // namespace

fs::path terminalProgram()
{
    std::error_code error;
    const fs::path installed = root() / "bin/voltmere";
    return fs::exists(installed, error) ? installed : root() / "voltmere";
}

fs::path desktopProgram()
{
    return root() / desktopProgramBelow;
}

fs::path demoDirectory()
{
    return root() / "share/voltmere/demo";
}

} // namespace voltmere
