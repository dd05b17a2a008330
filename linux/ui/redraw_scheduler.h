#pragma once

#include "model/published.h"

#include <QMetaObject>
#include <QObject>

#include <functional>
#include <utility>

namespace voltmere {

/// Redraws a view once per turn of the event loop, however many properties of the model changed in
/// it. The model announces a change before it stores the value, so the redraw comes afterwards.
class RedrawScheduler {
public:
    RedrawScheduler(ChangeAnnouncer& announcer, std::function<void()> redraw)
        : redraw(std::move(redraw))
        , subscription(announcer.subscribe([this] { schedule(); }))
    {
    }

    /// Redraws in the next turn, for a reason that the model does not announce.
    void schedule()
    {
        if (!std::exchange(scheduled, true)) {
            QMetaObject::invokeMethod(
                &context,
                [this] {
                    scheduled = false;
                    redraw();
                },
                Qt::QueuedConnection);
        }
    }

private:
    QObject context; ///< drops a redraw that is still posted when the view goes away
    std::function<void()> redraw;
    Subscription subscription;
    bool scheduled = false;
};

} // namespace voltmere
