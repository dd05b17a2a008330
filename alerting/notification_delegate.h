#pragma once

#include "ports/desktop.h"
#include "ports/notifications.h"
#include "ports/time.h"

namespace voltmere {

/// Answers the notification centre for the program. There is one. It has no state: a reminder that
/// it schedules lives in the notification centre.
class NotificationDelegate : public NotificationCentreDelegate {
public:
    NotificationDelegate(RunLoop& runLoop, Application& application);

    void willPresent(std::function<void(std::uint32_t presentation)> completion) override;
    void didReceive(NotificationCentre& centre, const std::string& actionIdentifier,
                    std::function<void()> completion) override;

private:
    RunLoop& runLoop;
    Application& application;
};

} // namespace voltmere
