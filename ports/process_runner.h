#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace voltmere {

/// What to run, and for how long at most.
struct ProcessRequest {
    enum class ErrorOutput {
        inherited, ///< complaints go where this program's own go
        swallowed, ///< complaints go into a pipe that nobody reads
    };

    std::string executable; ///< absolute path; no search, no shell
    std::vector<std::string> arguments;
    ErrorOutput errorOutput = ErrorOutput::inherited;
    std::chrono::milliseconds limit; ///< must be set; a child still running then is ended with its
                                     ///< process group
};

/// Runs a program to its end and returns what it wrote to its standard output, whatever its exit
/// status. A program that cannot be started wrote nothing. Blocks; may be called on any thread.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    virtual std::string run(const ProcessRequest& request) = 0;

    /// Whether `path` names a regular file that this user may execute.
    virtual bool isExecutable(const std::string& path) const = 0;
};

} // namespace voltmere
