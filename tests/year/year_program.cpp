#include "alerting/notifications.h"
#include "fakes/model_world.h"
#include "fakes/time_zones.h"
#include "posix/calendar.h"
#include "year/year.h"

#include <ostream>

namespace voltmere::year {

namespace {

class NotedAlert : public Alert {
public:
    NotedAlert(std::shared_ptr<bool> visible, std::function<void()> cameToFront)
        : visible(std::move(visible))
        , cameToFront(std::move(cameToFront))
    {
    }

    ~NotedAlert() override { *visible = false; }
    bool isVisible() const override { return *visible; }
    void bringToFront() override { cameToFront(); }
    void orderOut() override { *visible = false; }

private:
    std::shared_ptr<bool> visible;
    std::function<void()> cameToFront;
};

std::set<std::string> storedIn(const DefaultsStore& store)
{
    std::set<std::string> saved;
    for (const std::string key : {"threshold", "hour", "minute"}) {
        if (const auto value = store.integer(key)) {
            saved.insert(key + "=" + std::to_string(*value));
        }
    }
    for (const std::string key : {"enabled", "instant"}) {
        if (const auto value = store.boolean(key)) {
            saved.insert(key + (*value ? "=true" : "=false"));
        }
    }
    if (const auto value = store.text("language")) {
        saved.insert("language=" + *value);
    }
    return saved;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const View& view)
{
    for (const BatteryDevice& device : view.devices) {
        out << device.id << " " << device.name << " " << device.level << "%, ";
    }
    out << "\nthreshold " << view.threshold << ", check " << view.checkHour << ":"
        << view.checkMinute << (view.enabled ? " on" : " off")
        << (view.instantEnabled ? ", at once" : "") << ", last " << view.lastChecked.value_or(-1)
        << ", status " << view.status << ", language " << view.language
        << (view.launchAtLogin ? ", at login" : "") << ", custom " << view.customHour << ":"
        << view.customMinute << (view.alertVisible ? ", alert" : "") << ", action "
        << view.actionTitle << "\nsaved";
    for (const std::string& setting : view.saved) {
        out << " " << setting;
    }
    for (const Event& event : view.events) {
        out << "\n  " << event.at << " " << event.what;
    }
    return out;
}

namespace {

/// The program's model in a world of fakes, with the calendar of the C library. It notes readings,
/// alerts, lines of the log and notifications.
class YearProgram : public Run, BatterySource, AlertPresenter, SystemLog {
public:
    explicit YearProgram(const Beginning& beginning)
        : zoneGuard(beginning.zone->name)
    {
        BatteryModel::launchSettled = false;
        world.clock.present = Instant(std::chrono::milliseconds(beginning.now));
        world.defaults = MemoryDefaults();
        if (!beginning.storedLanguage.empty()) {
            world.defaults.set("language", beginning.storedLanguage);
        }
        languages.wanted = {beginning.prefersChinese ? "zh-Hant-TW" : "de-DE"};
        L10n::usePreferredLanguages(&languages);
        if (beginning.registeredAtLogin) {
            world.loginItems.enabled = true;
        }
        world.names.whileReading = [this] { happened("names read"); };
        const auto reader = std::make_shared<DeviceReader>(
            [this] {
                return PeripheralSources{"fake", this, &world.names};
            },
            world.clock);
        model = std::make_unique<BatteryModel>(
            ModelServices{world.defaults, world.runLoop, world.clock, calendar, world.loginItems,
                          world.notifications, world.notificationDelegate, *this, *this, reader});
        world.runLoop.settle();
    }

    void settleLaunch() override
    {
        L10n::loadSetting(world.defaults);
        NotificationSetup::registerCategories(world.notifications, world.notificationDelegate);
        BatteryModel::launchSettled = true;
    }

    void stayAwake(Millis span) override { world.runLoop.advance(std::chrono::milliseconds(span)); }
    void sleep(Millis span) override { world.runLoop.sleepFor(std::chrono::milliseconds(span)); }
    void moveClock(Millis by) override { world.clock.present += std::chrono::milliseconds(by); }
    void moveTo(const Zone& zone) override { ZoneGuard::set(zone.name); }

    void setPeripherals(const std::vector<Peripheral>& peripherals) override
    {
        world.batteries.entries.clear();
        for (const Peripheral& one : peripherals) {
            BatteryEntry entry;
            entry.product = one.product;
            entry.level = one.level;
            entry.address = one.address;
            world.batteries.entries.push_back(entry);
        }
    }

    void setNames(const Names& names) override
    {
        world.names.names = NameMap(names.begin(), names.end());
    }

    void setThreshold(std::int64_t value) override { model->threshold = value; }
    void setCheckHour(std::int64_t value) override { model->checkHour = value; }
    void setCheckMinute(std::int64_t value) override { model->checkMinute = value; }
    void setEnabled(bool value) override { model->enabled = value; }
    void setInstantEnabled(bool value) override { model->instantEnabled = value; }
    void setLanguage(const std::string& value) override { model->language = value; }

    void setLoginService(LoginService behaviour) override
    {
        world.loginItems.failure =
            behaviour == LoginService::fails ? std::optional<std::string>("Not now") : std::nullopt;
        world.loginItems.enabledAfterRegistration = behaviour != LoginService::wantsApproval;
    }

    void setLaunchAtLogin(bool value) override
    {
        model->launchAtLogin = value;
        for (const NotificationRequest& request : world.notifications.requests) {
            happened("notification " + request.content.title + "|" + request.content.body);
        }
        world.notifications.requests.clear();
    }

    void showPanel() override
    {
        model->refreshLaunchAtLogin();
        model->refresh(false);
        world.runLoop.settle();
    }

    void testAlert() override
    {
        const AlertPayload payload = model->alertPayload();
        model->showSnoozeAlert(payload.devices, payload.isLow);
    }

    void cancelAlert() override { actions.cancel(); }
    void chooseOption(std::size_t option) override { actions.chooseOption(option); }
    void chooseTime(int hour, int minute) override { actions.chooseTime(hour, minute); }

    View look() override
    {
        View view;
        view.devices = model->devices.get();
        view.threshold = model->threshold;
        view.checkHour = model->checkHour;
        view.checkMinute = model->checkMinute;
        view.enabled = model->enabled;
        view.instantEnabled = model->instantEnabled;
        if (const auto last = model->lastChecked.get()) {
            view.lastChecked = millis(*last);
        }
        view.status = model->status.get();
        view.language = model->language.get();
        view.launchAtLogin = model->launchAtLogin;
        view.customHour = model->customHour;
        view.customMinute = model->customMinute;
        view.alertVisible = *visible;
        view.saved = storedIn(world.defaults);
        if (!world.notifications.categories.empty()) {
            view.actionTitle = world.notifications.categories[0].actions[0].title;
        }
        view.events.swap(events);
        return view;
    }

private:
    std::vector<BatteryEntry> readEntries() override
    {
        happened("levels read");
        return world.batteries.entries;
    }

    std::unique_ptr<Alert> present(AlertContent content, AlertActions given) override
    {
        happened("alert " + content.title.whole() + "|" + content.detail +
                 (content.detailIsRed ? "|red|" : "|plain|") +
                 std::to_string(content.hour.values.at(*content.hour.selected)) + ":" +
                 std::to_string(content.minute.values.at(*content.minute.selected)));
        actions = std::move(given);
        visible = std::make_shared<bool>(true);
        return std::make_unique<NotedAlert>(visible, [this] { happened("alert in front"); });
    }

    void write(std::string_view line) override { happened("log " + std::string(line)); }

    void happened(const std::string& what)
    {
        events.push_back({millis(world.clock.present), what});
    }

    static Millis millis(Instant instant)
    {
        return std::chrono::round<std::chrono::milliseconds>(instant.time_since_epoch()).count();
    }

    ZoneGuard zoneGuard;
    ModelWorld world;
    FakePreferredLanguages languages;
    PosixCalendar calendar;
    AlertActions actions; ///< of the latest alert
    std::shared_ptr<bool> visible = std::make_shared<bool>(false);
    std::vector<Event> events;
    std::unique_ptr<BatteryModel> model;
};

} // namespace

std::unique_ptr<Run> runProgram(const Beginning& beginning)
{
    return std::make_unique<YearProgram>(beginning);
}

} // namespace voltmere::year
