#include "platform/qt/thread_class.h"

namespace voltmere {

void becomeUtilityThread()
{
    // Linux has no such classes. Its scheduler favours whoever slept for long, which is the main
    // thread.
}

} // namespace voltmere
