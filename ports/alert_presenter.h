#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace voltmere {

/// What the reminder says and offers, ready to be drawn.
struct AlertContent {
    std::string applicationName;
    std::string title;
    std::string detail;
    bool detailIsRed = false;
    std::string prompt;
    std::vector<std::string> options; ///< titles of the fixed choices, top to bottom
    std::string customTimeCaption;
    int preselectedHour = 0;   ///< 0 to 23
    int preselectedMinute = 0; ///< 0 to 55, a multiple of 5
    std::string confirmTitle;
    std::string cancelTitle;

    bool operator==(const AlertContent&) const = default;
};

/// What the reminder's controls do.
struct AlertActions {
    std::function<void()> cancel;
    std::function<void(std::size_t option)> chooseOption; ///< index into the options
    std::function<void(int hour, int minute)> chooseTime;
};

/// A reminder on screen. Destroying it closes its window; that is safe in its own actions.
class Alert {
public:
    virtual ~Alert() = default;

    virtual bool isVisible() const = 0;

    /// Brings the window over all others and gives it the keyboard.
    virtual void bringToFront() = 0;

    /// Takes the window off the screen. It is never shown again.
    virtual void orderOut() = 0;
};

/// Puts reminders on screen: floating, centred, in front and with the keyboard, but never modal.
class AlertPresenter {
public:
    virtual ~AlertPresenter() = default;

    /// Null where no reminder can be shown.
    virtual std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) = 0;
};

} // namespace voltmere
