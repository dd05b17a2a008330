#include "platform/posix/spawn_flags.h"

namespace voltmere {

const int closeByDefaultFlag = POSIX_SPAWN_CLOEXEC_DEFAULT;

void inheritDescriptor(posix_spawn_file_actions_t& actions, int descriptor)
{
    ::posix_spawn_file_actions_addinherit_np(&actions, descriptor);
}

} // namespace voltmere
