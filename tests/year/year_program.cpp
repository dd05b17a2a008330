#include "year/year_program.h"

#include "alerting/notifications.h"

#include <array>
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

Seconds seconds(Millis span)
{
    return std::chrono::milliseconds(span);
}

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

YearProgram::YearProgram(const Beginning& beginning)
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
        world.loginItems.present = LoginItemService::Status::enabled;
    }
    world.names.whileReading = [this] { happened("names read"); };
    const auto reader = std::make_shared<DeviceReader>(
        [this] {
            return PeripheralSources{"fake", &levels, &world.names};
        },
        world.clock);
    model = std::make_unique<BatteryModel>(
        ModelServices{world.defaults, world.runLoop, world.clock, calendar, world.loginItems,
                      world.notifications, world.notificationDelegate, alerts, log, reader});
    world.runLoop.settle();
}

std::vector<BatteryEntry> YearProgram::Levels::readEntries()
{
    owner.happened("levels read");
    return owner.world.batteries.entries;
}

std::unique_ptr<Alert> YearProgram::Alerts::present(AlertContent content, AlertActions given)
{
    owner.happened("alert " + content.title.whole() + "|" + content.detail +
                   (content.detailIsRed ? "|red|" : "|plain|") +
                   std::to_string(content.hour.values.at(*content.hour.selected)) + ":" +
                   std::to_string(content.minute.values.at(*content.minute.selected)));
    actions = std::move(given);
    visible = std::make_shared<bool>(true);
    return std::make_unique<NotedAlert>(visible, [this] { owner.happened("alert in front"); });
}

void YearProgram::settleLaunch()
{
    L10n::loadSetting(world.defaults);
    NotificationSetup::registerCategories(world.notifications, world.notificationDelegate);
    BatteryModel::launchSettled = true;
}

void YearProgram::stayAwake(Millis span)
{
    world.runLoop.advance(seconds(span));
}

void YearProgram::sleep(Millis span)
{
    world.runLoop.sleepFor(seconds(span));
}

void YearProgram::moveClock(Millis by)
{
    world.clock.present += std::chrono::milliseconds(by);
}

void YearProgram::moveTo(const Zone& zone)
{
    ZoneGuard::set(zone.name);
}

void YearProgram::setPeripherals(const std::vector<Peripheral>& peripherals)
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

void YearProgram::setNames(const Names& names)
{
    world.names.names = NameMap(names.begin(), names.end());
}

void YearProgram::setThreshold(std::int64_t value)
{
    model->threshold = value;
}

void YearProgram::setCheckHour(std::int64_t value)
{
    model->checkHour = value;
}

void YearProgram::setCheckMinute(std::int64_t value)
{
    model->checkMinute = value;
}

void YearProgram::setEnabled(bool value)
{
    model->enabled = value;
}

void YearProgram::setInstantEnabled(bool value)
{
    model->instantEnabled = value;
}

void YearProgram::setLanguage(const std::string& value)
{
    model->language = value;
}

void YearProgram::setLoginService(LoginService behaviour)
{
    using Status = LoginItemService::Status;
    world.loginItems.failure =
        behaviour == LoginService::fails ? std::optional<std::string>("Not now") : std::nullopt;
    world.loginItems.afterRegistration =
        behaviour == LoginService::wantsApproval ? Status::requiresApproval : Status::enabled;
}

void YearProgram::setLaunchAtLogin(bool value)
{
    model->launchAtLogin = value;
    noteNotifications();
}

void YearProgram::showPanel()
{
    model->refreshLaunchAtLogin();
    model->refresh(false);
    world.runLoop.settle();
}

void YearProgram::testAlert()
{
    const AlertPayload payload = model->alertPayload();
    model->showSnoozeAlert(payload.devices, payload.isLow);
}

void YearProgram::cancelAlert()
{
    alerts.actions.cancel();
}

void YearProgram::chooseOption(std::size_t option)
{
    const auto choose = alerts.actions.chooseOption;
    choose(option);
}

void YearProgram::chooseTime(int hour, int minute)
{
    const auto choose = alerts.actions.chooseTime;
    choose(hour, minute);
}

View YearProgram::look()
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
    view.alertVisible = *alerts.visible;
    view.saved = storedIn(world.defaults);
    if (!world.notifications.categories.empty()) {
        view.actionTitle = world.notifications.categories[0].actions[0].title;
    }
    view.events.swap(events);
    return view;
}

void YearProgram::happened(const std::string& what)
{
    events.push_back({millis(world.clock.present), what});
}

Millis YearProgram::millis(Instant instant) const
{
    return std::chrono::round<std::chrono::milliseconds>(instant.time_since_epoch()).count();
}

void YearProgram::noteNotifications()
{
    for (const NotificationRequest& request : world.notifications.requests) {
        happened("notification " + request.content.title + "|" + request.content.body);
    }
    world.notifications.requests.clear();
}

} // namespace voltmere::year
