#include "platform/qt/thread_class.h"

namespace voltmere {

void becomeUtilityThread()
{
    // Linux has no such classes.
}

} // namespace voltmere
