#pragma once

#include "platform/process_runner.h"

namespace voltmere {

/// Runs programs with posix_spawn, each in a process group of its own.
///
/// The child is waited for first and its output is read afterwards, so the output must fit into the
/// pipe; one that does not is cut there when the limit ends the child. Only what is in the pipe
/// after the exit is read: a grandchild that keeps the pipe open holds nobody up.
class PosixProcessRunner : public ProcessRunner {
public:
    std::string run(const ProcessRequest& request) override;
    bool isExecutable(const std::string& path) const override;
};

} // namespace voltmere
