#pragma once

#include "platform/posix/file_descriptor.h"

#include <optional>

namespace voltmere {

/// Both ends of a pipe, closed on exec.
struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
};

/// A pipe that holds as much unread data as the system lets this user have, with a read end that
/// never blocks. Nothing when the system refuses one.
std::optional<Pipe> openLargePipe();

} // namespace voltmere
