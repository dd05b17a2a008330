#pragma once

#include "model/published.h"

#include <dispatch/dispatch.h>

#include <functional>
#include <memory>
#include <utility>

namespace voltmere {

/// Calls `redraw` once per turn of the run loop, however many properties of the model changed in
/// it, until the result is gone. The model announces a change before it stores the value, so the
/// redraw comes afterwards.
inline Subscription redrawAfterChanges(ChangeAnnouncer& announcer, std::function<void()> redraw)
{
    auto pending = std::make_shared<bool>(false);
    return announcer.subscribe([pending, redraw = std::move(redraw)] {
        if (std::exchange(*pending, true)) {
            return;
        }
        const std::weak_ptr<bool> later = pending;
        dispatch_async(dispatch_get_main_queue(), ^{
            if (const auto existing = later.lock()) {
                *existing = false;
                redraw();
            }
        });
    });
}

} // namespace voltmere
