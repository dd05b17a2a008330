#pragma once

namespace voltmere {

/// Tells the system that what the calling thread does is wanted, but that nobody waits for it.
void becomeUtilityThread();

} // namespace voltmere
