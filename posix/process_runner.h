#pragma once

#include "ports/log.h"
#include "ports/peripherals.h"

#include <mutex>
#include <string>
#include <vector>

namespace voltmere {

/// Runs programs with posix_spawn, each in a process group of its own.
///
/// The runner waits for the child first and reads its output afterwards, so the output must fit
/// into the pipe. A child that is still running at the limit is killed with its group; only its
/// output before the last line feed counts, since the rest may be cut anywhere. A grandchild that
/// keeps the pipe open delays nothing: the runner reads only the bytes that are there after the
/// exit.
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

} // namespace voltmere
