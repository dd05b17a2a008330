#include "platform/posix/child_process.h"

#include "platform/posix/file_descriptor.h"

#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace voltmere {

namespace {

using Deadline = std::chrono::steady_clock::time_point;

int millisecondsUntil(Deadline deadline)
{
    using std::chrono::milliseconds;
    const auto left =
        std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    return static_cast<int>(std::clamp<milliseconds::rep>(left, 0, INT_MAX));
}

/// Whether the process behind the descriptor exited before the deadline. A descriptor that the
/// kernel could not give (before Linux 5.3) never tells: the wait then has no limit.
bool exitsBefore(Deadline deadline, int pidDescriptor)
{
    if (pidDescriptor < 0) {
        return true;
    }
    pollfd exit{pidDescriptor, POLLIN, 0};
    for (;;) {
        const int ready = ::poll(&exit, 1, millisecondsUntil(deadline));
        if (ready >= 0 || errno != EINTR) {
            return ready != 0;
        }
    }
}

} // namespace

void waitForChild(pid_t pid, std::chrono::milliseconds limit)
{
    const Deadline deadline = std::chrono::steady_clock::now() + limit;
    const FileDescriptor exit(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
    if (!exitsBefore(deadline, exit.get())) {
        ::kill(-pid, SIGKILL);
        ::kill(pid, SIGKILL); // in case it has left its group
    }
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) { }
}

} // namespace voltmere
