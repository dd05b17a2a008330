#include "texts/l10n.h"

namespace voltmere {

std::string_view rawValue(AppLanguage language)
{
    switch (language) {
    case AppLanguage::system:
        return "system";
    case AppLanguage::zh:
        return "zh";
    case AppLanguage::en:
        return "en";
    }
    return {};
}

std::optional<AppLanguage> appLanguage(std::string_view raw)
{
    for (const AppLanguage language : allAppLanguages) {
        if (rawValue(language) == raw) {
            return language;
        }
    }
    return std::nullopt;
}

namespace {

std::string lookUp(const L10n::Table& table, std::string_view key)
{
    const auto found = table.find(key);
    return std::string(found == table.end() ? key : found->second);
}

} // namespace

std::string L10n::setting{"system"};
const PreferredLanguages* L10n::preferredLanguages = nullptr;

void L10n::usePreferredLanguages(const PreferredLanguages* languages)
{
    preferredLanguages = languages;
}

std::string L10n::storedSetting(const DefaultsStore& defaults)
{
    return defaults.text(languageKey).value_or(std::string(rawValue(AppLanguage::system)));
}

void L10n::loadSetting(const DefaultsStore& defaults)
{
    setting = storedSetting(defaults);
}

std::string L10n::t(std::string_view key)
{
    return lookUp(usesChinese() ? zh() : en(), key);
}

std::string L10n::own(std::string_view key)
{
    return lookUp(usesChinese() ? ownZh() : ownEn(), key);
}

bool L10n::usesChinese()
{
    const AppLanguage chosen = appLanguage(setting).value_or(AppLanguage::system);
    if (chosen != AppLanguage::system) {
        return chosen == AppLanguage::zh;
    }
    if (preferredLanguages == nullptr) {
        return false;
    }
    const auto tags = preferredLanguages->tags();
    return !tags.empty() && tags.front().starts_with("zh");
}

std::string L10n::format(std::string_view format, const Argument& argument)
{
    const auto* const text = std::get_if<std::string>(&argument);
    const std::string_view placeholder = text != nullptr ? "%@" : "%1$d";
    const std::string value =
        text != nullptr ? *text : std::to_string(std::get<std::int64_t>(argument));
    std::string filled;
    while (!format.empty()) {
        if (format.starts_with(placeholder)) {
            filled += value;
            format.remove_prefix(placeholder.size());
        } else {
            filled += format.front();
            format.remove_prefix(format.starts_with("%%") ? 2 : 1);
        }
    }
    return filled;
}

const L10n::Table& L10n::zh()
{
    static const Table table{
        {"status.waiting", "等待检查"},
        {"status.noDevice", "未检测到外设"},
        {"status.normal", "电量正常"},
        {"status.low", "电量偏低"},
        {"status.lowDetail", "电量偏低：%@"},
        {"device.mouse", "鼠标"},
        {"device.keyboard", "键盘"},
        {"device.trackpad", "触控板"},
        {"listSeparator", "、"},
        {"app.name", "续航哨兵"},
        {"panel.warnBelow", "电量低于"},
        {"panel.warnSuffix", "提醒"},
        {"panel.dailyCheck", "每天定时检查"},
        {"panel.instantAlert", "立即提醒"},
        {"panel.launchAtLogin", "开机自动启动"},
        {"panel.checkTime", "检查时间"},
        {"panel.language", "语言"},
        {"panel.testNotification", "开启/测试通知"},
        {"panel.quit", "退出"},
        {"alert.titleOne", "%@ 电量提醒"},
        {"alert.titleMany", "外设电量提醒"},
        {"alert.normalTitle", "外设电量"},
        {"alert.normalText", "电量正常：%@"},
        {"alert.lowSingle", "当前电量%1$d%%，请及时充电。"},
        {"alert.chargeSuffix", "，请及时充电。"},
        {"alert.choose", "选择再次提醒时间"},
        {"alert.in20", "20 分钟后"},
        {"alert.in30", "30 分钟后"},
        {"alert.in60", "1 小时后"},
        {"alert.in120", "2 小时后"},
        {"alert.customTitle", "指定时间"},
        {"alert.customAction", "指定时间…"},
        {"alert.ok", "确定"},
        {"alert.cancel", "取消"},
        {"notify.snoozeTitle", "Magic Mouse 电量提醒"},
        {"notify.snoozeBody", "这是稍后提醒：请给鼠标充电。"},
    };
    return table;
}

const L10n::Table& L10n::en()
{
    static const Table table{
        {"status.waiting", "Waiting for check"},
        {"status.noDevice", "No peripherals found"},
        {"status.normal", "Battery level is fine"},
        {"status.low", "Low battery"},
        {"status.lowDetail", "Low battery: %@"},
        {"device.mouse", "Mouse"},
        {"device.keyboard", "Keyboard"},
        {"device.trackpad", "Trackpad"},
        {"listSeparator", ", "},
        {"app.name", "Cellsentry"},
        {"panel.warnBelow", "Alert below"},
        {"panel.warnSuffix", ""},
        {"panel.dailyCheck", "Daily check"},
        {"panel.instantAlert", "Immediately"},
        {"panel.launchAtLogin", "Launch at login"},
        {"panel.checkTime", "Check time"},
        {"panel.language", "Language"},
        {"panel.testNotification", "Enable / test alert"},
        {"panel.quit", "Quit"},
        {"alert.titleOne", "%@ battery alert"},
        {"alert.titleMany", "Peripheral battery alert"},
        {"alert.normalTitle", "Peripheral battery"},
        {"alert.normalText", "All good: %@"},
        {"alert.lowSingle", "Battery at %1$d%%. Please charge."},
        {"alert.chargeSuffix", ". Please charge."},
        {"alert.choose", "Remind me again"},
        {"alert.in20", "In 20 minutes"},
        {"alert.in30", "In 30 minutes"},
        {"alert.in60", "In 1 hour"},
        {"alert.in120", "In 2 hours"},
        {"alert.customTitle", "At a time"},
        {"alert.customAction", "At a specific time…"},
        {"alert.ok", "OK"},
        {"alert.cancel", "Cancel"},
        {"notify.snoozeTitle", "Magic Mouse battery alert"},
        {"notify.snoozeBody", "Snoozed reminder: please charge your mouse."},
    };
    return table;
}

// The names of the languages are written in the languages themselves, so that a person who cannot
// read the current one still finds their own.
const L10n::Table& L10n::ownZh()
{
    static const Table table{
        {"language.system", "跟随系统"},
        {"language.zh", "简体中文"},
        {"language.en", "English"},
        {"menu.open", "打开"},
        {"name.threshold", "阈值"},
        {"name.hour", "小时"},
        {"name.minute", "分钟"},
        {"panel.noTray", "此桌面没有系统托盘。再次启动本程序即可重新打开此面板。"},
    };
    return table;
}

const L10n::Table& L10n::ownEn()
{
    static const Table table{
        {"language.system", "System"},
        {"language.zh", "简体中文"},
        {"language.en", "English"},
        {"menu.open", "Open"},
        {"name.threshold", "Threshold"},
        {"name.hour", "Hour"},
        {"name.minute", "Minute"},
        {"panel.noTray", "This desktop has no tray. Start the program again to reopen this panel."},
    };
    return table;
}

} // namespace voltmere
