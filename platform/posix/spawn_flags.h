#pragma once

#include <spawn.h>

namespace voltmere {

/// The attribute flag that closes every descriptor of the child which no file action names, where
/// the system has one; 0 elsewhere.
extern const int closeByDefaultFlag;

/// Lets the child keep one of this program's descriptors although others are closed by default.
void inheritDescriptor(posix_spawn_file_actions_t& actions, int descriptor);

} // namespace voltmere
