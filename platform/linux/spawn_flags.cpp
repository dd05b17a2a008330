#include "platform/posix/spawn_flags.h"

namespace voltmere {

const int closeByDefaultFlag = 0;

void inheritDescriptor(posix_spawn_file_actions_t& /*actions*/, int /*descriptor*/)
{
    // Every descriptor of this program but the standard three is opened closed on exec.
}

} // namespace voltmere
