#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// The program's identifier: the name of its desktop entry, of its icon in the theme and of its
/// connection to the session bus; on macOS the bundle's identifier.
inline constexpr const char* applicationId = "org.voltmere.Voltmere";

/// The program as the desktop sees it.
class Application {
public:
    virtual ~Application() = default;

    /// Brings the program to the front, with its open window if there is one.
    virtual void activate() = 0;
};

/// The user's languages as tags such as "zh-Hans-CN" or "en-GB", the preferred one first.
/// Empty when the user asked for none.
class PreferredLanguages {
public:
    virtual ~PreferredLanguages() = default;

    virtual std::vector<std::string> tags() const = 0;
};

/// A position on the desktop in points, to the right and down. A point is one device-independent
/// pixel, the unit of layout in Qt (where pixel sizes of fonts are points) and in AppKit.
struct PointerPosition {
    double x = 0;
    double y = 0;
};

/// The mouse pointer.
class Pointer {
public:
    virtual ~Pointer() = default;

    /// The pointer's position; nothing where the desktop hides it (Wayland tells a program only
    /// about its own windows). A desktop either always gives a position or never.
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

/// A text that holds a device's name. A front end may shorten the name by its own measure, and
/// keeps the message around it.
struct NamedText {
    std::string before;
    std::string name; ///< fit to be shown; empty in a text without a name
    std::string after;

    std::string whole() const { return before + name + after; }

    bool operator==(const NamedText&) const = default;
};

/// A pop-up button: fixed choices, of which at most one is selected.
template<typename Value>
struct PopUp {
    std::string name;                    ///< accessible name
    std::vector<std::string> titles;     ///< top to bottom
    std::vector<Value> values;           ///< the value of each title
    std::optional<std::size_t> selected; ///< nothing where the present value is not among them

    /// Offers `value`, and selects it where it is the present one.
    void add(std::string title, Value value, const Value& present)
    {
        if (value == present) {
            selected = values.size();
        }
        titles.push_back(std::move(title));
        values.push_back(std::move(value));
    }

    bool operator==(const PopUp&) const = default;
};

/// The texts and choices of the snooze alert, top to bottom, ready to be drawn.
struct AlertContent {
    std::string applicationName;
    NamedText title;
    std::string detail;
    bool detailIsRed = false;
    std::string prompt;
    std::vector<std::string> options; ///< titles of the fixed choices
    std::string customTimeCaption;
    PopUp<std::int64_t> hour;
    PopUp<std::int64_t> minute;
    std::string confirmTitle;
    std::string cancelTitle;

    bool operator==(const AlertContent&) const = default;
};

/// The actions of the snooze alert's controls, on the main thread. An alert that a person can use
/// has all of them.
struct AlertActions {
    std::function<void()> cancel;
    std::function<void(std::size_t option)> chooseOption; ///< index into the options
    /// Hour 0 to 23, minute 0 to 59.
    std::function<void(std::int64_t hour, std::int64_t minute)> chooseTime;
};

/// A snooze alert on screen. Destroying it closes its window; that is safe in its own actions.
class Alert {
public:
    virtual ~Alert() = default;

    virtual bool isVisible() const = 0;

    /// Raises the window above all others and gives it the keyboard.
    virtual void bringToFront() = 0;

    /// Takes the window off the screen. It is never shown again.
    virtual void orderOut() = 0;
};

/// Puts snooze alerts on screen: floating, centred, in front and with the keyboard, but never
/// modal.
class AlertPresenter {
public:
    virtual ~AlertPresenter() = default;

    /// Null where no alert can be shown.
    virtual std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) = 0;
};

} // namespace voltmere
