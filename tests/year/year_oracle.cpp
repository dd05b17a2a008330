#include "year/year_oracle.h"

#include <algorithm>

namespace voltmere::year {

namespace {

struct Model {
    std::string name;
    std::string symbol;
    int order;
};

const std::map<std::int64_t, Model> models{
    {613, {"Magic Trackpad 2", "rectangle.and.hand.point.up.left", 2}},
    {615, {"Magic Keyboard", "keyboard", 1}},
    {617, {"Magic Mouse 2", "magicmouse", 0}},
    {619, {"Magic Keyboard 数字键盘版", "keyboard", 1}},
    {620, {"Magic Keyboard 数字键盘版", "keyboard", 1}},
    {656, {"Magic Keyboard with Touch ID", "keyboard", 1}},
    {657, {"Magic Keyboard with Touch ID 数字键盘版", "keyboard", 1}},
    {803, {"Magic Mouse", "magicmouse", 0}},
    {804, {"Magic Trackpad", "rectangle.and.hand.point.up.left", 2}},
    {805, {"Magic Keyboard", "keyboard", 1}},
};

const Texts& texts(bool chinese)
{
    static const Texts zh{"等待检查",
                          "未检测到外设",
                          "电量正常",
                          "电量偏低：",
                          {"鼠标", "键盘", "触控板"},
                          "、",
                          "",
                          " 电量提醒",
                          "外设电量提醒",
                          "外设电量",
                          "电量正常：",
                          "当前电量",
                          "%，请及时充电。",
                          "，请及时充电。",
                          "20 分钟后",
                          "开机自动启动"};
    static const Texts en{"Waiting for check",
                          "No peripherals found",
                          "Battery level is fine",
                          "Low battery: ",
                          {"Mouse", "Keyboard", "Trackpad"},
                          ", ",
                          "",
                          " battery alert",
                          "Peripheral battery alert",
                          "Peripheral battery",
                          "All good: ",
                          "Battery at ",
                          "%. Please charge.",
                          ". Please charge.",
                          "In 20 minutes",
                          "Launch at login"};
    return chinese ? zh : en;
}

std::string joined(const std::vector<std::string>& items, const std::string& separator)
{
    std::string line;
    for (std::size_t index = 0; index < items.size(); ++index) {
        line += (index == 0 ? "" : separator) + items[index];
    }
    return line;
}

std::string nameList(const std::vector<BatteryDevice>& devices, const std::string& separator)
{
    std::vector<std::string> items;
    for (const BatteryDevice& device : devices) {
        items.push_back(device.name + " " + std::to_string(device.level) + "%");
    }
    return joined(items, separator);
}

std::string kindList(const std::vector<BatteryDevice>& devices, const Texts& text)
{
    std::vector<std::string> items;
    for (const BatteryDevice& device : devices) {
        items.push_back(text.kinds[device.order] + std::to_string(device.level) + "%");
    }
    return joined(items, text.separator);
}

std::string titleFor(const std::vector<BatteryDevice>& devices, bool low, const Texts& text)
{
    if (!low) {
        return text.titleNormal;
    }
    if (devices.size() > 1) {
        return text.titleMany;
    }
    const std::string& name = devices[0].name;
    return text.titleBeforeName + (name.empty() ? models.at(devices[0].id).name : name) +
        text.titleAfterName;
}

std::string detailFor(const std::vector<BatteryDevice>& devices, bool low, const Texts& text)
{
    if (low && devices.size() == 1) {
        return text.singleBefore + std::to_string(devices[0].level) + text.singleAfter;
    }
    if (low) {
        return kindList(devices, text) + text.chargeSuffix;
    }
    return devices.empty() ? text.noDevice : text.normalList + kindList(devices, text);
}

} // namespace

YearOracle::YearOracle(const Beginning& beginning)
    : now(beginning.now)
    , zone(beginning.zone)
    , prefersChinese(beginning.prefersChinese)
    , storedLanguage(beginning.storedLanguage)
    , registered(beginning.registeredAtLogin)
{
    view.threshold = 20;
    view.checkHour = 22;
    view.checkMinute = 30;
    view.enabled = true;
    view.instantEnabled = true;
    view.language = storedLanguage.empty() ? "system" : storedLanguage;
    if (!storedLanguage.empty()) {
        view.saved.insert("language=" + storedLanguage);
    }
    const Local local = localAt(*zone, now);
    view.customHour = local.hour;
    view.customMinute = local.minute;
    mirrorLogin();
    view.status = text().waiting;
    read(false, true, true);
    restartTimer();
}

void YearOracle::settleLaunch()
{
    settled = true;
    view.actionTitle = text().firstAction;
}

void YearOracle::stayAwake(Millis span)
{
    const Millis end = uptime + span;
    while (true) {
        const auto first = std::min_element(
            pending.begin(), pending.end(),
            [](const Pending& one, const Pending& other) { return one.due < other.due; });
        if (first == pending.end() || first->due > end) {
            break;
        }
        passTime(first->due - uptime);
        fire(first->number);
    }
    passTime(end - uptime);
}

/// What falls due during a sleep fires once, right after it.
void YearOracle::sleep(Millis span)
{
    passTime(span);
    std::vector<int> due;
    for (const Pending& one : pending) {
        if (one.due <= uptime) {
            due.push_back(one.number);
        }
    }
    for (const int number : due) {
        fire(number);
    }
}

void YearOracle::passTime(Millis span)
{
    uptime += span;
    now += span;
}

int YearOracle::wait(Millis span, bool repeats, std::function<void()> action)
{
    pending.push_back({nextNumber, uptime + span, repeats, std::move(action)});
    return nextNumber++;
}

void YearOracle::cancel(int number)
{
    std::erase_if(pending, [=](const Pending& one) { return one.number == number; });
}

void YearOracle::fire(int number)
{
    const auto found = std::find_if(pending.begin(), pending.end(),
                                    [=](const Pending& one) { return one.number == number; });
    if (found == pending.end()) {
        return;
    }
    const auto action = found->action;
    if (found->repeats) {
        found->due += ((uptime - found->due) / minute + 1) * minute;
    } else {
        pending.erase(found);
    }
    action();
}

void YearOracle::restartTimer()
{
    if (timer) {
        cancel(*timer);
    }
    ticks = 0;
    timer = wait(minute, true, [this] { tick(); });
}

void YearOracle::tick()
{
    const Local local = localAt(*zone, now);
    if (view.enabled && local.hour == view.checkHour && local.minute == view.checkMinute) {
        ticks = 0;
        read(false, true, true);
        return;
    }
    ++ticks;
    if (ticks >= 5) {
        ticks = 0;
        read(true, false, true);
    }
}

void YearOracle::read(bool mayUseCache, bool alert, bool mayAlertAtOnce)
{
    const bool cached =
        mayUseCache && cachedAt && now - *cachedAt < 6 * hour && !cachedNames.empty();
    if (!cached) {
        happened("names read");
        cachedNames = names;
        cachedAt = now;
    }
    happened("levels read");
    judge(devicesFound(), alert, mayAlertAtOnce);
}

std::vector<BatteryDevice> YearOracle::devicesFound() const
{
    std::vector<BatteryDevice> found;
    std::set<std::int64_t> listed;
    for (const Peripheral& one : peripherals) {
        if (!one.level || !one.product || models.count(*one.product) == 0 ||
            !listed.insert(*one.product).second) {
            continue;
        }
        const Model& model = models.at(*one.product);
        std::string key;
        for (const char c : one.address) {
            key += c == '-' ? ':' : static_cast<char>(std::toupper(c));
        }
        const auto named = cachedNames.find(key);
        found.push_back({*one.product, named == cachedNames.end() ? model.name : named->second,
                         *one.level, model.symbol, model.order});
    }
    std::vector<BatteryDevice> ordered;
    for (const int order : {0, 1, 2}) {
        std::copy_if(found.begin(), found.end(), std::back_inserter(ordered),
                     [=](const BatteryDevice& device) { return device.order == order; });
    }
    return ordered;
}

std::vector<BatteryDevice> YearOracle::lowOnes() const
{
    std::vector<BatteryDevice> low;
    for (const BatteryDevice& device : view.devices) {
        if (device.level <= view.threshold) {
            low.push_back(device);
        }
    }
    return low;
}

void YearOracle::judge(const std::vector<BatteryDevice>& reading, bool alert, bool mayAlertAtOnce)
{
    view.lastChecked = now;
    view.devices = reading;
    if (reading.empty()) {
        view.status = text().noDevice;
        return;
    }
    tellStatus();
    for (const BatteryDevice& device : reading) {
        if (device.level > view.threshold) {
            alerted.erase(device.id);
        }
    }
    std::vector<BatteryDevice> concerned = lowOnes();
    if (!alert) {
        if (!view.instantEnabled || !mayAlertAtOnce) {
            return;
        }
        std::erase_if(concerned,
                      [&](const BatteryDevice& device) { return alerted.count(device.id) != 0; });
    }
    if (concerned.empty()) {
        return;
    }
    for (const BatteryDevice& device : concerned) {
        alerted.insert(device.id);
    }
    if (!alert) {
        happened("log Voltmere: 立即提醒 " + nameList(concerned, ", "));
    }
    showAlert(concerned, true);
}

void YearOracle::tellStatus()
{
    if (view.devices.empty()) {
        return;
    }
    const auto low = lowOnes();
    view.status = low.empty() ? text().normal : text().lowDetail + nameList(low, text().separator);
}

void YearOracle::showAlert(const std::vector<BatteryDevice>& devices, bool low)
{
    if (!settled) {
        wait(1200, false, [=, this] { showAlert(devices, low); });
        return;
    }
    if (view.alertVisible) {
        happened("alert in front");
        return;
    }
    const Local later = localAt(*zone, now + hour);
    happened("alert " + titleFor(devices, low, text()) + "|" + detailFor(devices, low, text()) +
             (low ? "|red|" : "|plain|") + std::to_string(later.hour) + ":" +
             std::to_string(later.minute / 5 * 5));
    view.alertVisible = true;
}

void YearOracle::alertOfPresent()
{
    const auto low = lowOnes();
    showAlert(low.empty() ? view.devices : low, !low.empty());
}

void YearOracle::snooze(Millis span)
{
    if (snoozeTimer) {
        cancel(*snoozeTimer);
    }
    snoozeTimer = wait(span, false, [this] { alertOfPresent(); });
}

void YearOracle::setThreshold(std::int64_t value)
{
    view.threshold = value;
    save();
}

void YearOracle::setCheckHour(std::int64_t value)
{
    view.checkHour = value;
    save();
    restartTimer();
}

void YearOracle::setCheckMinute(std::int64_t value)
{
    view.checkMinute = value;
    save();
    restartTimer();
}

void YearOracle::setEnabled(bool value)
{
    view.enabled = value;
    save();
    restartTimer();
}

void YearOracle::setInstantEnabled(bool value)
{
    view.instantEnabled = value;
    save();
}

void YearOracle::setLanguage(const std::string& value)
{
    view.language = value;
    save();
    view.actionTitle = text().firstAction;
    tellStatus();
}

/// The language is never saved.
void YearOracle::save()
{
    view.saved = {"threshold=" + std::to_string(view.threshold),
                  "hour=" + std::to_string(view.checkHour),
                  "minute=" + std::to_string(view.checkMinute),
                  std::string("enabled=") + (view.enabled ? "true" : "false"),
                  std::string("instant=") + (view.instantEnabled ? "true" : "false")};
    if (!storedLanguage.empty()) {
        view.saved.insert("language=" + storedLanguage);
    }
}

void YearOracle::setLaunchAtLogin(bool value)
{
    if (loginService == LoginService::fails) {
        happened("log Voltmere: 设置开机启动失败 Not now");
        happened("notification " + text().launchAtLogin + "|Not now");
    } else {
        registered = value && loginService == LoginService::obeys;
    }
    mirrorLogin();
}

void YearOracle::mirrorLogin()
{
    view.launchAtLogin = registered;
}

void YearOracle::showPanel()
{
    mirrorLogin();
    read(true, false, false);
}

void YearOracle::testAlert()
{
    alertOfPresent();
}

void YearOracle::chooseOption(std::size_t option)
{
    view.alertVisible = false;
    snooze(std::vector<Millis>{20, 30, 60, 120}.at(option) * minute);
}

void YearOracle::chooseTime(int hourOfDay, int minuteOfHour)
{
    view.alertVisible = false;
    view.customHour = hourOfDay;
    view.customMinute = minuteOfHour;
    snooze(untilNext(*zone, now, hourOfDay, minuteOfHour));
}

View YearOracle::look()
{
    View seen = view;
    view.events.clear();
    return seen;
}

Millis YearOracle::untilCheck() const
{
    return untilNext(*zone, now, static_cast<int>(view.checkHour),
                     static_cast<int>(view.checkMinute));
}

const Texts& YearOracle::text() const
{
    const bool follows = view.language != "zh" && view.language != "en";
    return texts(follows ? prefersChinese : view.language == "zh");
}

} // namespace voltmere::year
