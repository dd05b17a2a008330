#pragma once

#include "model/published.h"

#include <QObject>

#include <functional>

namespace voltmere {

/// Redraws a view once per turn of the event loop, however many properties of the model changed in
/// it. The model announces a change before it stores the value, so the redraw comes afterwards.
class RedrawScheduler {
public:
    RedrawScheduler(ChangeAnnouncer& announcer, std::function<void()> redraw);

    /// Redraws in the next turn, for a reason that the model does not announce.
    void schedule();

private:
    QObject context; ///< drops a redraw that is still posted when the view goes away
    std::function<void()> redraw;
    Subscription subscription;
    bool scheduled = false;
};

} // namespace voltmere
