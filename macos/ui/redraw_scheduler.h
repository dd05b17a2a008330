#pragma once

#include "model/published.h"

#include <dispatch/dispatch.h>

#include <functional>
#include <memory>
#include <utility>

namespace voltmere {

/// Redraws a view once per turn of the run loop, however many properties of the model changed in
/// it. The model announces a change before it stores the value, so the redraw comes afterwards.
class RedrawScheduler {
public:
    RedrawScheduler(ChangeAnnouncer& announcer, std::function<void()> redraw)
        : redraw(std::make_shared<std::function<void()>>(std::move(redraw)))
        , subscription(announcer.subscribe([this] { schedule(); }))
    {
    }

private:
    void schedule()
    {
        if (std::exchange(scheduled, true)) {
            return;
        }
        const std::weak_ptr<std::function<void()>> later = redraw;
        dispatch_async(dispatch_get_main_queue(), ^{
            if (const auto existing = later.lock()) {
                scheduled = false;
                (*existing)();
            }
        });
    }

    std::shared_ptr<std::function<void()>> redraw; ///< gone as soon as the view is
    bool scheduled = false;
    Subscription subscription;
};

} // namespace voltmere
