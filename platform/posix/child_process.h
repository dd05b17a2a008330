#pragma once

#include <sys/types.h>

#include <chrono>

namespace voltmere {

/// Waits until the child `pid`, the leader of its own process group, has exited, and reaps it. A
/// child that is still running after `limit` is killed with its group.
void waitForChild(pid_t pid, std::chrono::milliseconds limit);

} // namespace voltmere
