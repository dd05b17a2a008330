#pragma once

#include "ports/time.h"

#include <array>
#include <string_view>

namespace voltmere {

/// One fixed choice of when to be reminded again.
struct SnoozeOption {
    std::string_view labelKey;
    Seconds delay;
};

/// The fixed choices, in display order.
inline constexpr std::array<SnoozeOption, 4> snoozeOptions{{
    {"alert.in20", Seconds(1200)},
    {"alert.in30", Seconds(1800)},
    {"alert.in60", Seconds(3600)},
    {"alert.in120", Seconds(7200)},
}};

} // namespace voltmere
