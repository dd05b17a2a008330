#include "linux/ui/redraw_scheduler.h"

#include <QMetaObject>

#include <utility>

namespace voltmere {

RedrawScheduler::RedrawScheduler(ChangeAnnouncer& announcer, std::function<void()> redraw)
    : redraw(std::move(redraw))
    , subscription(announcer.subscribe([this] { schedule(); }))
{
}

void RedrawScheduler::schedule()
{
    if (scheduled) {
        return;
    }
    scheduled = true;
    QMetaObject::invokeMethod(
        &context,
        [this] {
            scheduled = false;
            redraw();
        },
        Qt::QueuedConnection);
}

} // namespace voltmere
