#pragma once

#include "ports/peripherals.h"

#include <string_view>

namespace voltmere {

/// Reads the Bluetooth section of the profiler's report: the heading of each device and the first
/// address below it. Addresses are trimmed and put in upper case, and keep their separators (the
/// tool prints colons); names stay as printed. The time is linear in the text. A text that is not
/// UTF-8 has no names.
NameMap parseProfilerReport(std::string_view text);

} // namespace voltmere
