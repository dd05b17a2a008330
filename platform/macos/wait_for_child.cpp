#include "platform/posix/child_process.h"

#include "platform/posix/file_descriptor.h"

#include <signal.h>
#include <sys/event.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

namespace voltmere {

namespace {

using Deadline = std::chrono::steady_clock::time_point;

timespec timeUntil(Deadline deadline)
{
    using namespace std::chrono;
    const nanoseconds left = std::max(nanoseconds(deadline - steady_clock::now()), 0ns);
    const auto whole = floor<seconds>(left);
    return {whole.count(), nanoseconds(left - whole).count()};
}

/// Whether the process exited before the deadline. Where the kernel cannot tell, because the
/// process has exited already or there is no descriptor to ask through, the wait has no limit.
bool exitsBefore(Deadline deadline, pid_t pid)
{
    const FileDescriptor queue(::kqueue());
    struct kevent exit { };
    EV_SET(&exit, pid, EVFILT_PROC, EV_ADD | EV_ONESHOT, NOTE_EXIT, 0, nullptr);
    if (::kevent(queue.get(), &exit, 1, nullptr, 0, nullptr) != 0) {
        return true;
    }
    for (;;) {
        const timespec wait = timeUntil(deadline);
        const int ready = ::kevent(queue.get(), nullptr, 0, &exit, 1, &wait);
        if (ready >= 0 || errno != EINTR) {
            return ready != 0;
        }
    }
}

} // namespace

void waitForChild(pid_t pid, std::chrono::milliseconds limit)
{
    const Deadline deadline = std::chrono::steady_clock::now() + limit;
    if (!exitsBefore(deadline, pid)) {
        ::kill(-pid, SIGKILL);
        ::kill(pid, SIGKILL); // in case it has left its group
    }
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) { }
}

} // namespace voltmere
