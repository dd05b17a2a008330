#pragma once

#include "year/year.h"

#include <functional>

namespace voltmere::year {

/// The texts of the program that the oracle expects, by its own names for them.
struct Texts {
    std::string waiting, noDevice, normal, lowDetail;
    std::string kinds[3];
    std::string separator;
    std::string titleBeforeName, titleAfterName, titleMany, titleNormal;
    std::string normalList, singleBefore, singleAfter, chargeSuffix;
    std::string firstAction, launchAtLogin;
};

/// What the program must do, written down once more from its rules, without its code: its own
/// catalogue, texts, calendar and timers.
class YearOracle : public Run {
public:
    explicit YearOracle(const Beginning& beginning);

    void settleLaunch() override;
    void stayAwake(Millis span) override;
    void sleep(Millis span) override;
    void moveClock(Millis by) override { now += by; }
    void moveTo(const Zone& newZone) override { zone = &newZone; }
    void setPeripherals(const std::vector<Peripheral>& found) override { peripherals = found; }
    void setNames(const Names& found) override { names = found; }
    void setThreshold(std::int64_t value) override;
    void setCheckHour(std::int64_t value) override;
    void setCheckMinute(std::int64_t value) override;
    void setEnabled(bool value) override;
    void setInstantEnabled(bool value) override;
    void setLanguage(const std::string& value) override;
    void setLoginService(LoginService behaviour) override { loginService = behaviour; }
    void setLaunchAtLogin(bool value) override;
    void showPanel() override;
    void testAlert() override;
    void cancelAlert() override { view.alertVisible = false; }
    void chooseOption(std::size_t option) override;
    void chooseTime(int hour, int minute) override;
    View look() override;

    /// What the script needs to aim at something: the wait until the daily check's minute begins.
    Millis untilCheck() const;
    bool alertIsVisible() const { return view.alertVisible; }

private:
    /// A timer. What is due at the same moment fires in the order in which it was set.
    struct Pending {
        int number;
        Millis due; ///< by the uptime
        bool repeats;
        std::function<void()> action;
    };

    int wait(Millis span, bool repeats, std::function<void()> action);
    void cancel(int number);
    void fire(int number);
    void passTime(Millis span);
    void restartTimer();
    void tick();
    void read(bool mayUseCache, bool alert, bool mayAlertAtOnce);
    std::vector<BatteryDevice> devicesFound() const;
    void judge(const std::vector<BatteryDevice>& reading, bool alert, bool mayAlertAtOnce);
    std::vector<BatteryDevice> lowOnes() const;
    void tellStatus();
    void showAlert(const std::vector<BatteryDevice>& devices, bool low);
    void alertOfPresent();
    void snooze(Millis span);
    void mirrorLogin();
    void save();
    void happened(const std::string& what) { view.events.push_back({now, what}); }
    const Texts& text() const;

    View view;
    Millis now;
    Millis uptime = 0;
    const Zone* zone;
    std::vector<Pending> pending;
    int nextNumber = 0;
    std::optional<int> timer, snoozeTimer;
    int ticks = 0;
    bool settled = false;
    bool prefersChinese;
    std::string storedLanguage;
    std::vector<Peripheral> peripherals;
    Names names, cachedNames;
    std::optional<Millis> cachedAt;
    std::set<std::int64_t> alerted;
    LoginService loginService = LoginService::obeys;
    bool registered;
};

} // namespace voltmere::year
