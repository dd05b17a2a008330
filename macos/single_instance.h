#pragma once

#include "ports/desktop.h"
#include "ports/log.h"
#include "posix/file_descriptor.h"

#import <Foundation/Foundation.h>

#include <filesystem>

namespace voltmere {

/// One instance over a locked file: the first process holds the lock, and a later start asks it to
/// open its panel. The system frees the lock when the process ends, however that happens.
class LockedInstance : public SingleInstance {
public:
    /// Makes `lockFile` where it is missing. `log` must outlive this object.
    LockedInstance(std::filesystem::path lockFile, SystemLog& log);
    ~LockedInstance() override;
    LockedInstance(const LockedInstance&) = delete;
    LockedInstance& operator=(const LockedInstance&) = delete;

    Role start() override;
    void onActivation(std::function<void()> action) override;

private:
    std::filesystem::path lockFile;
    SystemLog& log;
    FileDescriptor lock;
    id<NSObject> observer = nil;
};

/// The file for the user's one instance, in Application Support.
std::filesystem::path instanceLockPath();

} // namespace voltmere
