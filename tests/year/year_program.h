#pragma once

#include "fakes/model_world.h"
#include "fakes/time_zones.h"
#include "posix/calendar.h"
#include "year/year.h"

namespace voltmere::year {

/// The program's model in a world of fakes, with the calendar of the C library.
class YearProgram : public Run {
public:
    explicit YearProgram(const Beginning& beginning);

    void settleLaunch() override;
    void stayAwake(Millis span) override;
    void sleep(Millis span) override;
    void moveClock(Millis by) override;
    void moveTo(const Zone& zone) override;
    void setPeripherals(const std::vector<Peripheral>& peripherals) override;
    void setNames(const Names& names) override;
    void setThreshold(std::int64_t value) override;
    void setCheckHour(std::int64_t value) override;
    void setCheckMinute(std::int64_t value) override;
    void setEnabled(bool value) override;
    void setInstantEnabled(bool value) override;
    void setLanguage(const std::string& value) override;
    void setLoginService(LoginService behaviour) override;
    void setLaunchAtLogin(bool value) override;
    void showPanel() override;
    void testAlert() override;
    void cancelAlert() override;
    void chooseOption(std::size_t option) override;
    void chooseTime(int hour, int minute) override;
    View look() override;

private:
    /// Notes every reading of levels.
    class Levels : public BatterySource {
    public:
        explicit Levels(YearProgram& owner)
            : owner(owner)
        {
        }

        std::vector<BatteryEntry> readEntries() override;

    private:
        YearProgram& owner;
    };

    /// Notes every snooze alert, and each time that an alert comes to the front.
    class Alerts : public AlertPresenter {
    public:
        explicit Alerts(YearProgram& owner)
            : owner(owner)
        {
        }

        std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override;

        AlertActions actions; ///< of the latest
        std::shared_ptr<bool> visible = std::make_shared<bool>(false);

    private:
        YearProgram& owner;
    };

    /// Notes what is logged.
    class Log : public SystemLog {
    public:
        explicit Log(YearProgram& owner)
            : owner(owner)
        {
        }

        void write(std::string_view line) override { owner.happened("log " + std::string(line)); }

    private:
        YearProgram& owner;
    };

    void happened(const std::string& what);
    Millis millis(Instant instant) const;
    void noteNotifications();

    ZoneGuard zoneGuard;
    ModelWorld world;
    FakePreferredLanguages languages;
    PosixCalendar calendar;
    Levels levels{*this};
    Alerts alerts{*this};
    Log log{*this};
    std::vector<Event> events;
    std::unique_ptr<BatteryModel> model;
};

} // namespace voltmere::year
