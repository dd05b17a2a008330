#include "platform/posix/pipe.h"

#include <fcntl.h>

namespace voltmere {

namespace {

/// The kernel's default for /proc/sys/fs/pipe-max-size, the most that a user without privileges may
/// ask for. Where an administrator lowered it, smaller sizes are tried.
constexpr int largestPipe = 1 << 20;
constexpr int defaultPipe = 1 << 16;

void enlarge(int descriptor)
{
    for (int size = largestPipe; size > defaultPipe; size /= 2) {
        if (::fcntl(descriptor, F_SETPIPE_SZ, size) >= 0) {
            return;
        }
    }
}

} // namespace

std::optional<Pipe> openLargePipe()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    Pipe pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    enlarge(pipe.writeEnd.get());
    ::fcntl(pipe.readEnd.get(), F_SETFL, O_NONBLOCK);
    return pipe;
}

} // namespace voltmere
