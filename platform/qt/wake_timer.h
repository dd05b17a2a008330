#pragma once

#include "platform/run_loop.h"

#include <functional>
#include <memory>

namespace voltmere {

/// A timer on the main event loop whose time runs on while the machine sleeps. It is precise. With
/// an interval of zero it fires once; else it repeats, and makes up for no missed period. It may be
/// destroyed by its own action.
std::unique_ptr<Timer> makeWakeTimer(Seconds delay, Seconds interval, std::function<void()> action);

} // namespace voltmere
