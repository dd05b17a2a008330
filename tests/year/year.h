#pragma once

#include "devices/battery_device.h"
#include "year/year_zone.h"

#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace voltmere::year {

/// One peripheral as the outside shows it.
struct Peripheral {
    std::optional<std::int64_t> product;
    std::optional<std::int64_t> level;
    std::string address;
};

using Names = std::map<std::string, std::string>;

/// What the program finds when it starts.
struct Beginning {
    Millis now = 0;
    const Zone* zone = nullptr;
    std::string storedLanguage; ///< empty for none
    bool prefersChinese = false;
    bool registeredAtLogin = false;
};

/// How the login-item service behaves from now on.
enum class LoginService { obeys, wantsApproval, fails };

/// Something that happened, and when by the wall clock.
struct Event {
    Millis at;
    std::string what;

    bool operator==(const Event&) const = default;
};

/// All that a user or a test can see of the program.
struct View {
    std::vector<BatteryDevice> devices;
    std::int64_t threshold = 0;
    std::int64_t checkHour = 0;
    std::int64_t checkMinute = 0;
    bool enabled = false;
    bool instantEnabled = false;
    std::optional<Millis> lastChecked;
    std::string status;
    std::string language;
    bool launchAtLogin = false;
    std::int64_t customHour = 0;
    std::int64_t customMinute = 0;
    bool alertVisible = false;
    std::set<std::string> saved; ///< "key=value" of each stored setting
    std::string actionTitle;     ///< of the first notification action that is registered
    std::vector<Event> events;   ///< since the last look

    bool operator==(const View&) const = default;
};

std::ostream& operator<<(std::ostream& out, const View& view);

/// A run of the program that a script drives: the program itself, or the oracle that knows what it
/// must do.
class Run {
public:
    virtual ~Run() = default;

    virtual void settleLaunch() = 0;
    virtual void stayAwake(Millis span) = 0;
    virtual void sleep(Millis span) = 0;
    virtual void moveClock(Millis by) = 0;
    virtual void moveTo(const Zone& zone) = 0;
    virtual void setPeripherals(const std::vector<Peripheral>& peripherals) = 0;
    virtual void setNames(const Names& names) = 0;
    virtual void setThreshold(std::int64_t value) = 0;
    virtual void setCheckHour(std::int64_t value) = 0;
    virtual void setCheckMinute(std::int64_t value) = 0;
    virtual void setEnabled(bool value) = 0;
    virtual void setInstantEnabled(bool value) = 0;
    virtual void setLanguage(const std::string& value) = 0;
    virtual void setLoginService(LoginService behaviour) = 0;
    virtual void setLaunchAtLogin(bool value) = 0;
    virtual void showPanel() = 0;
    virtual void testAlert() = 0;
    virtual void cancelAlert() = 0;
    virtual void chooseOption(std::size_t option) = 0;
    virtual void chooseTime(int hour, int minute) = 0;

    /// What can be seen now. Takes the events.
    virtual View look() = 0;
};

/// A run of the program itself.
std::unique_ptr<Run> runProgram(const Beginning& beginning);

} // namespace voltmere::year
