#include "macos/single_instance.h"

#include "macos/text.h"
#include "ports/desktop.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <thread>

namespace voltmere {

static NSNotificationName const openPanelName = @"org.voltmere.Voltmere.openPanel";

LockedInstance::~LockedInstance()
{
    if (observer != nil) {
        [NSDistributedNotificationCenter.defaultCenter removeObserver:observer];
    }
}

bool LockedInstance::isLaterStart(const std::filesystem::path& file, SystemLog& log)
{
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    lock = FileDescriptor(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0) {
        return false;
    }
    if (!lock || errno != EWOULDBLOCK) {
        log.write("Voltmere: " + file.string() + " cannot be locked (" + std::strerror(errno) +
                  "), so a second start runs a second time");
        return false;
    }
    // Unless told otherwise, the system holds a notification back from a program that is not
    // active.
    [NSDistributedNotificationCenter.defaultCenter postNotificationName:openPanelName
                                                                 object:nil
                                                               userInfo:nil
                                                     deliverImmediately:YES];
    // The system may deliver it only after the call has returned, and this process is about to end.
    // How long that takes was not measured on a Mac.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return true;
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
