#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace voltmere {

/// What a desktop knows the program by: the name of its desktop entry, its icon in the theme and
/// its name on the session bus; on macOS the bundle's identifier.
inline constexpr const char* applicationId = "org.voltmere.Voltmere";

/// The program as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// Brings the program to the front, with its open window if there is one.
    virtual void activate() = 0;
};

/// The user's languages as tags such as "zh-Hans-CN" or "en-GB", the most wanted first.
/// Empty when the user asked for none.
class PreferredLanguages {
public:
    virtual ~PreferredLanguages() = default;

    virtual std::vector<std::string> tags() const = 0;
};

/// A position on the desktop, in points.
struct PointerPosition {
    double x = 0;
    double y = 0;
};

/// The mouse pointer.
class Pointer {
public:
    virtual ~Pointer() = default;

    /// Where the pointer is; nothing where the desktop does not tell (Wayland tells a program only
    /// about its own windows). A desktop that tells once tells always.
    virtual std::optional<PointerPosition> position() const = 0;
};

/// Whether the desktop is dark or light.
enum class ColourScheme { light, dark };

/// The desktop's appearance.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// The scheme that the desktop uses now; nothing where it has none.
    virtual std::optional<ColourScheme> bestMatch() const = 0;

    /// Calls `action` on the main thread after each change. One action; a new one replaces it.
    virtual void onChange(std::function<void()> action) = 0;
};

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

/// Sees to it that the program runs once for each user session.
class SingleInstance {
public:
    enum class Role {
        first, ///< no other process runs the program
        later, ///< another one does, and was asked to open its panel
        alone, ///< the processes of the program cannot know of each other here
    };

    virtual ~SingleInstance() = default;

    /// Becomes the one instance, or asks the one that is there for its panel.
    virtual Role start() = 0;

    /// Calls `action` whenever a later start asks for the panel.
    virtual void onActivation(std::function<void()> action) = 0;
};

} // namespace voltmere
