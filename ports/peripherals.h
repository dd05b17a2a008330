#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace voltmere {

/// One peripheral as an outside source shows it, before the program judges it. Nothing here is
/// checked: a level may be missing or beyond 100, a product may be unknown, a name may hold
/// anything.
struct BatteryEntry {
    std::string origin;                   ///< the place in the source, for diagnosis
    std::optional<std::int64_t> level;    ///< percent, as reported
    std::optional<std::int64_t> product;  ///< the maker's product identifier
    std::optional<std::string> address;   ///< Bluetooth address, as the source spells it
    std::optional<std::string> givenName; ///< the user's name for it, where the source knows one
    std::optional<std::string>
        rejection; ///< why the source itself leaves the entry out, if it does
};

/// Reads the battery levels of the peripherals. Blocks while it reads; may be called on any thread,
/// and by two threads at once. Every failure means fewer entries, never an exception.
class BatterySource {
public:
    virtual ~BatterySource() = default;

    virtual std::vector<BatteryEntry> readEntries() = 0;
};

/// Bluetooth address to the name that the user gave the device. Addresses are in upper case, with
/// the separators of their source; lookups use `normalisedAddress`, which has colons.
using NameMap = std::unordered_map<std::string, std::string>;

/// Reads the names of the paired Bluetooth devices. Blocks while it reads; may be called on any
/// thread, and by two threads at once. Every failure means fewer names, never an exception.
class NameSource {
public:
    virtual ~NameSource() = default;

    virtual NameMap readNames() = 0;
};

/// A tool to run, and its limit of time.
struct ProcessRequest {
    enum class ErrorOutput {
        inherited, ///< standard error is this program's own
        swallowed, ///< standard error is a pipe that nobody reads
    };

    std::string executable; ///< absolute path; no search, no shell
    std::vector<std::string> arguments;
    ErrorOutput errorOutput = ErrorOutput::inherited;
    std::chrono::milliseconds limit; ///< must be set; a child still running then is ended with its
                                     ///< process group
};

/// Runs a program and returns what it wrote to its standard output, whatever its exit status; an
/// empty text where it cannot be started. Of a child that was ended at its limit only the whole
/// lines are returned. The output must fit into a pipe (64 KiB; 1 MiB on Linux): a child that
/// writes more runs into its limit. Blocks; may be called on any thread.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    virtual std::string run(const ProcessRequest& request) = 0;

    /// Whether `path` names a regular file that this user may execute.
    virtual bool isExecutable(const std::string& path) const = 0;
};

} // namespace voltmere
