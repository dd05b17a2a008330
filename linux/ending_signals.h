#pragma once

#include "posix/file_descriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace voltmere {

/// Ends the program in good order when the system or a terminal asks it to: the first SIGTERM,
/// SIGINT or SIGHUP calls `end` from the event loop, so that what waits to be written is written. A
/// second one ends the process at once, should it hang. One object at a time.
class EndingSignals {
public:
    explicit EndingSignals(std::function<void()> end);
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

private:
    std::function<void()> end;
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
    std::optional<QSocketNotifier> notifier;
};

} // namespace voltmere
