#pragma once

#include "ports/log.h"
#include "ports/peripherals.h"

#include <mutex>
#include <string>
#include <vector>

namespace voltmere {

/// Runs programs with posix_spawn, each in a process group of its own.
///
/// The child is waited for first and its output is read afterwards, so the output must fit into the
/// pipe. A child that is still running at the limit is killed with its group, and of what it wrote
/// the part before its last line feed counts: the rest may be cut anywhere. Only what is in the
/// pipe after the exit is read: a grandchild that keeps the pipe open holds nobody up.
class PosixProcessRunner : public ProcessRunner {
public:
    /// Copies the environment for every child, since the main thread changes it while readings
    /// run. The log gets one line for each program that cannot be started.
    explicit PosixProcessRunner(SystemLog& log);

    std::string run(const ProcessRequest& request) override;
    bool isExecutable(const std::string& path) const override;

private:
    void reportFailure(const std::string& executable, int error);

    std::vector<std::string> environment;
    std::mutex logGuard; ///< readings that overlap report from threads of their own
    OnceLog log;
};

/// Whether `path` names a regular file that this user may execute.
bool isExecutableFile(const std::string& path);

} // namespace voltmere
