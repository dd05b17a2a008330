#pragma once

#include <map>
#include <string>

// A small runtime for the ABI that clang emits with -fobjc-runtime=objfw. It checks ownership as it
// goes: a message to a destroyed object, to an unknown method, or a release too many ends the
// process with the names of both. One thread only.

namespace voltmere::objc {

/// The objects that were made and not destroyed yet, by the name of their class.
std::map<std::string, long>& liveObjects();

/// Is called for each message, with the names of the receiver's class and of the method.
void noteMessage(const std::string& className, const std::string& selector);

/// Releases what was autoreleased outside of every pool.
void drainPool();

} // namespace voltmere::objc
