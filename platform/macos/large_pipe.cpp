#include "platform/posix/pipe.h"

#include <fcntl.h>

namespace voltmere {

std::optional<Pipe> openLargePipe()
{
    // The system has no call that makes a pipe larger or that opens it closed on exec. A child that
    // another thread starts in between is kept from it by POSIX_SPAWN_CLOEXEC_DEFAULT.
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) {
        return std::nullopt;
    }
    Pipe pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    ::fcntl(pipe.readEnd.get(), F_SETFD, FD_CLOEXEC);
    ::fcntl(pipe.writeEnd.get(), F_SETFD, FD_CLOEXEC);
    ::fcntl(pipe.readEnd.get(), F_SETFL, O_NONBLOCK);
    return pipe;
}

} // namespace voltmere
