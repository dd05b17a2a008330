#include "platform/posix/child_process.h"

#include "platform/posix/file_descriptor.h"

#include <signal.h>
#include <sys/event.h>
#include <sys/wait.h>

#include <cerrno>

namespace voltmere {

namespace {

/// Whether the process exited within the limit, told by the kernel's event queue.
bool exitsWithin(std::chrono::milliseconds limit, pid_t pid)
{
    const FileDescriptor queue(::kqueue());
    struct kevent exit { };
    EV_SET(&exit, pid, EVFILT_PROC, EV_ADD | EV_ONESHOT, NOTE_EXIT, 0, nullptr);
    if (::kevent(queue.get(), &exit, 1, nullptr, 0, nullptr) != 0) {
        return true; // It has exited already.
    }
    const auto seconds = std::chrono::floor<std::chrono::seconds>(limit);
    const timespec wait{seconds.count(), std::chrono::nanoseconds(limit - seconds).count()};
    return ::kevent(queue.get(), nullptr, 0, &exit, 1, &wait) != 0;
}

} // namespace

void waitForChild(pid_t pid, std::chrono::milliseconds limit)
{
    if (!exitsWithin(limit, pid)) {
        ::kill(-pid, SIGKILL);
        ::kill(pid, SIGKILL); // in case it has left its group
    }
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) { }
}

} // namespace voltmere
