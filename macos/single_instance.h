#pragma once

#include "ports/log.h"
#include "posix/file_descriptor.h"

#import <Foundation/Foundation.h>

#include <filesystem>
#include <functional>

namespace voltmere {

/// One instance over a locked file: the first process holds the lock, and a later start asks it to
/// open its panel. The system frees the lock when the process ends, however that happens.
class LockedInstance {
public:
    ~LockedInstance();

    /// Takes the lock of `file`, or asks the process that holds it. Makes the file where it is
    /// missing. Returns whether another process runs the program. A file that cannot be locked gets
    /// a line in the log.
    bool isLaterStart(const std::filesystem::path& file, SystemLog& log);

    /// Calls `action` whenever a later start asks for the panel.
    void onActivation(std::function<void()> action);

private:
    FileDescriptor lock;
    id<NSObject> observer = nil;
};

/// The file for the user's one instance, in Application Support.
std::filesystem::path instanceLockPath();

} // namespace voltmere
