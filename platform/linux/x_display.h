#pragma once

namespace voltmere {

/// Whether the X display that $DISPLAY names accepts this program.
bool canOpenXDisplay();

} // namespace voltmere
