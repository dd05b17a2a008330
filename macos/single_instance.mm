#include "macos/single_instance.h"

#include "macos/text.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

namespace voltmere {

namespace {

NSNotificationName const openPanelName = @"org.voltmere.Voltmere.openPanel";

void askForPanel()
{
    // The system holds back what it delivers to a program that is not active, as ours mostly is,
    // unless the sender says otherwise.
    [NSDistributedNotificationCenter.defaultCenter postNotificationName:openPanelName
                                                                 object:nil
                                                               userInfo:nil
                                                     deliverImmediately:YES];
    // The request leaves the process on a thread of the system.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}

} // namespace

LockedInstance::LockedInstance(std::filesystem::path lockFile, SystemLog& log)
    : lockFile(std::move(lockFile))
    , log(log)
{
}

LockedInstance::~LockedInstance()
{
    if (observer != nil) {
        [NSDistributedNotificationCenter.defaultCenter removeObserver:observer];
    }
}

SingleInstance::Role LockedInstance::start()
{
    std::error_code ignored;
    std::filesystem::create_directories(lockFile.parent_path(), ignored);
    lock = FileDescriptor(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0) {
        return Role::first;
    }
    if (lock && errno == EWOULDBLOCK) {
        askForPanel();
        return Role::later;
    }
    log.write("Voltmere: " + lockFile.string() + " cannot be locked (" + std::strerror(errno) +
              "), so a second start runs a second time");
    return Role::alone;
}

void LockedInstance::onActivation(std::function<void()> action)
{
    observer = [NSDistributedNotificationCenter.defaultCenter
        addObserverForName:openPanelName
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) { action(); }];
}

std::filesystem::path instanceLockPath()
{
    NSArray<NSString*>* const places =
        NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, YES);
    return std::filesystem::path(utf8Text(places.firstObject)) / applicationId / "instance.lock";
}

} // namespace voltmere
