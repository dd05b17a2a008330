#include "platform/qt/thread_class.h"

#include <pthread.h>

namespace voltmere {

void becomeUtilityThread()
{
    // Source: pthread/qos.h. What fails leaves the thread in the class of its maker.
    ::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
}

} // namespace voltmere
