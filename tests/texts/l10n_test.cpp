#include "texts/l10n.h"

#include "fakes/fake_preferred_languages.h"
#include "posix/memory_defaults.h"

#include <gmock/gmock.h>

#include <limits>
#include <span>

namespace voltmere {
namespace {

using testing::SizeIs;

struct Text {
    std::string_view key;
    std::string_view zh;
    std::string_view en;
};

// Written out a second time, on purpose: a slip in a table must not pass.
constexpr Text texts[] = {
    {"status.waiting", "等待检查", "Waiting for check"},
    {"status.noDevice", "未检测到外设", "No peripherals found"},
    {"status.normal", "电量正常", "Battery level is fine"},
    {"status.low", "电量偏低", "Low battery"},
    {"status.lowDetail", "电量偏低：%@", "Low battery: %@"},
    {"device.mouse", "鼠标", "Mouse"},
    {"device.keyboard", "键盘", "Keyboard"},
    {"device.trackpad", "触控板", "Trackpad"},
    {"listSeparator", "、", ", "},
    {"app.name", "续航哨兵", "Cellsentry"},
    {"panel.warnBelow", "电量低于", "Alert below"},
    {"panel.warnSuffix", "提醒", ""},
    {"panel.dailyCheck", "每天定时检查", "Daily check"},
    {"panel.instantAlert", "立即提醒", "Immediately"},
    {"panel.launchAtLogin", "开机自动启动", "Launch at login"},
    {"panel.checkTime", "检查时间", "Check time"},
    {"panel.language", "语言", "Language"},
    {"panel.testNotification", "开启/测试通知", "Enable / test alert"},
    {"panel.quit", "退出", "Quit"},
    {"alert.titleOne", "%@ 电量提醒", "%@ battery alert"},
    {"alert.titleMany", "外设电量提醒", "Peripheral battery alert"},
    {"alert.normalTitle", "外设电量", "Peripheral battery"},
    {"alert.normalText", "电量正常：%@", "All good: %@"},
    {"alert.lowSingle", "当前电量%1$d%%，请及时充电。", "Battery at %1$d%%. Please charge."},
    {"alert.chargeSuffix", "，请及时充电。", ". Please charge."},
    {"alert.choose", "选择再次提醒时间", "Remind me again"},
    {"alert.in20", "20 分钟后", "In 20 minutes"},
    {"alert.in30", "30 分钟后", "In 30 minutes"},
    {"alert.in60", "1 小时后", "In 1 hour"},
    {"alert.in120", "2 小时后", "In 2 hours"},
    {"alert.customTitle", "指定时间", "At a time"},
    {"alert.customAction", "指定时间…", "At a specific time…"},
    {"alert.ok", "确定", "OK"},
    {"alert.cancel", "取消", "Cancel"},
    {"notify.snoozeTitle", "Magic Mouse 电量提醒", "Magic Mouse battery alert"},
    {"notify.snoozeBody", "这是稍后提醒：请给鼠标充电。",
     "Snoozed reminder: please charge your mouse."},
};

constexpr Text ownTexts[] = {
    {"language.system", "跟随系统", "System"},
    {"language.zh", "简体中文", "简体中文"},
    {"language.en", "English", "English"},
    {"menu.open", "打开", "Open"},
    {"name.threshold", "阈值", "Threshold"},
    {"name.hour", "小时", "Hour"},
    {"name.minute", "分钟", "Minute"},
    {"panel.noTray", "此桌面没有系统托盘。再次启动本程序即可重新打开此面板。",
     "This desktop has no tray. Start the program again to reopen this panel."},
};

/// A text that only one of the two tables yields, to tell which one is in use.
std::string languageInUse()
{
    const std::string yes = L10n::t("alert.ok");
    return yes == "OK" ? "en" : yes == "确定" ? "zh" : yes;
}

/// Whether a table holds exactly the agreed texts of one language.
void expectTexts(const L10n::Table& table, std::span<const Text> agreed,
                 std::string_view Text::*text)
{
    EXPECT_THAT(table, SizeIs(agreed.size()));
    for (const Text& row : agreed) {
        ASSERT_TRUE(table.contains(row.key)) << row.key;
        EXPECT_EQ(table.at(row.key), row.*text) << row.key;
    }
}

TEST(L10nTables, HoldExactlyTheAgreedTexts)
{
    expectTexts(L10n::zh(), texts, &Text::zh);
    expectTexts(L10n::en(), texts, &Text::en);
    expectTexts(L10n::ownZh(), ownTexts, &Text::zh);
    expectTexts(L10n::ownEn(), ownTexts, &Text::en);
}

TEST(L10nLookup, PanelWarnSuffixIsEmptyInEnglishAndNotInChinese)
{
    const LanguageGuard english("en");
    EXPECT_EQ(L10n::t("panel.warnSuffix"), "");
    L10n::setting = "zh";
    EXPECT_EQ(L10n::t("panel.warnSuffix"), "提醒");
}

TEST(L10nLookup, AnUnknownKeyIsReturnedUnchangedInBothLanguages)
{
    for (const char* const setting : {"zh", "en", "system"}) {
        const LanguageGuard language(setting);
        for (const char* const key : {"foo.bar", "", "ALERT.OK", "alert.ok ", "鼠标", "%@"}) {
            EXPECT_EQ(L10n::t(key), key) << setting;
            EXPECT_EQ(L10n::own(key), key) << setting;
        }
    }
}

TEST(L10nLookup, TheTwoPairsOfTablesDoNotMix)
{
    const LanguageGuard english("en");
    EXPECT_EQ(L10n::t("menu.open"), "menu.open");
    EXPECT_EQ(L10n::own("alert.ok"), "alert.ok");
}

TEST(L10nLanguage, IsTheSystemsUntilAnotherIsSet)
{
    EXPECT_EQ(L10n::setting, "system");
    EXPECT_EQ(languageInUse(), "en") << "nobody's languages are known";
}

TEST(L10nLanguage, ZhAndEnIgnoreThePreferredLanguages)
{
    const FakePreferredLanguages englishUser({"en-US"});
    const FakePreferredLanguages chineseUser({"zh-Hans-CN"});
    {
        const LanguageGuard chinese("zh", &englishUser);
        EXPECT_EQ(languageInUse(), "zh");
    }
    const LanguageGuard english("en", &chineseUser);
    EXPECT_EQ(languageInUse(), "en");
}

TEST(L10nLanguage, FrOrAnyOtherTextBehavesAsSystem)
{
    const FakePreferredLanguages chineseUser({"zh-Hans-CN"});
    const FakePreferredLanguages englishUser({"en-GB"});
    for (const char* const setting :
         {"fr", "", "system", "System", "ZH", "EN", "zh-Hans", "en-US", " zh", "en ", "中文"}) {
        SCOPED_TRACE(setting);
        {
            const LanguageGuard chinese(setting, &chineseUser);
            EXPECT_EQ(languageInUse(), "zh");
        }
        const LanguageGuard english(setting, &englishUser);
        EXPECT_EQ(languageInUse(), "en");
    }
}

struct UserCase {
    const char* what;
    std::vector<std::string> tags;
    const char* language;
};

void PrintTo(const UserCase& user, std::ostream* out)
{
    *out << user.what;
}

class SystemLanguage : public testing::TestWithParam<UserCase> { };

TEST_P(SystemLanguage, FollowsTheFirstPreferredLanguage)
{
    const FakePreferredLanguages user(GetParam().tags);
    const LanguageGuard system("system", &user);
    EXPECT_EQ(languageInUse(), GetParam().language);
    EXPECT_EQ(L10n::own("menu.open"), GetParam().language == std::string("zh") ? "打开" : "Open");
}

INSTANTIATE_TEST_SUITE_P(
    L10nLanguage, SystemLanguage,
    testing::Values(UserCase{"ZhHantTwThenEnIsChinese", {"zh-Hant-TW", "en"}, "zh"},
                    UserCase{"EnUsThenZhHansIsEnglish", {"en-US", "zh-Hans"}, "en"},
                    UserCase{"AnEmptyListIsEnglish", {}, "en"},
                    UserCase{"ZhAloneIsChinese", {"zh"}, "zh"},
                    UserCase{"ZhWithUnderscoreIsChinese", {"zh_CN"}, "zh"},
                    UserCase{"ZhHansCnIsChinese", {"zh-Hans-CN"}, "zh"},
                    UserCase{"EveryTagThatBeginsWithZhIsChinese", {"zha"}, "zh"},
                    UserCase{"UpperCaseZhIsEnglish", {"ZH-Hans"}, "en"},
                    UserCase{"MixedCaseZhIsEnglish", {"Zh"}, "en"},
                    UserCase{"ZAloneIsEnglish", {"z"}, "en"},
                    UserCase{"ZhWithinTheTagIsEnglish", {"en-zh"}, "en"},
                    UserCase{"FrenchThenChineseIsEnglish", {"fr-FR", "zh-Hans"}, "en"},
                    UserCase{"AnEmptyTagThenChineseIsEnglish", {"", "zh-Hans"}, "en"}),
    [](const auto& row) { return row.param.what; });

TEST(L10nLanguage, ChangingZhToEnChangesTheNextLookupWithoutAnyOtherStep)
{
    const LanguageGuard chinese("zh");
    EXPECT_EQ(L10n::t("panel.quit"), "退出");
    L10n::setting = "en";
    EXPECT_EQ(L10n::t("panel.quit"), "Quit");
}

TEST(L10nLanguage, AChangeOfThePreferredLanguagesShowsAtTheNextLookup)
{
    FakePreferredLanguages user({"zh-Hans"});
    const LanguageGuard system("system", &user);
    EXPECT_EQ(languageInUse(), "zh");
    user.wanted = {"en"};
    EXPECT_EQ(languageInUse(), "en");
}

TEST(L10nLoadSetting, TakesTheTextUnderLanguageWhateverItIsElseSystem)
{
    const LanguageGuard before("before");
    MemoryDefaults stored;
    stored.set("Language", std::string("zh"));
    L10n::loadSetting(stored);
    EXPECT_EQ(L10n::setting, "system");
    for (const char* const text : {"zh", "en", "system", "fr", ""}) {
        stored.set("language", std::string(text));
        L10n::loadSetting(stored);
        EXPECT_EQ(L10n::setting, text);
    }
}

TEST(AppLanguage, HasThreeChoicesInThePanelsOrderMadeFromTheirRawValues)
{
    EXPECT_THAT(allAppLanguages,
                testing::ElementsAre(AppLanguage::system, AppLanguage::zh, AppLanguage::en));
    for (const char* const raw : {"system", "zh", "en"}) {
        ASSERT_TRUE(appLanguage(raw)) << raw;
        EXPECT_EQ(rawValue(*appLanguage(raw)), raw);
    }
    EXPECT_EQ(appLanguage("zh"), AppLanguage::zh);
    EXPECT_EQ(appLanguage("en"), AppLanguage::en);
}

TEST(AppLanguage, IsNoneForAnyOtherText)
{
    for (const char* const raw :
         {"", "fr", "System", "ZH", "En", "zh-Hans", " en", "en ", "zhen"}) {
        EXPECT_EQ(appLanguage(raw), std::nullopt) << raw;
    }
}

TEST(L10nFormat, ATextTakesThePlaceOfItsPlaceholder)
{
    EXPECT_EQ(L10n::format("Low battery: %@", "Ann"), "Low battery: Ann");
    EXPECT_EQ(L10n::format("%@ 电量提醒", "安的鼠标 5%"), "安的鼠标 5% 电量提醒");
    EXPECT_EQ(L10n::format("<%@>", ""), "<>");
    EXPECT_EQ(L10n::format("Quit", "Ann"), "Quit");
}

TEST(L10nFormat, AnIntegerTakesThePlaceOfItsPlaceholder)
{
    EXPECT_EQ(L10n::format("Battery at %1$d%%.", std::int64_t{7}), "Battery at 7%.");
    EXPECT_EQ(L10n::format("%1$d", std::int64_t{-15}), "-15");
    EXPECT_EQ(L10n::format("%1$d", std::numeric_limits<std::int64_t>::max()),
              "9223372036854775807");
}

TEST(L10nFormat, AnArgumentIsNeverReadAsAFormat)
{
    EXPECT_EQ(L10n::format("<%@>", "100%@ %1$d %%"), "<100%@ %1$d %%>");
    EXPECT_EQ(L10n::format("%%%@", "@"), "%@");
}

TEST(L10nFormat, OtherUsesOfThePercentSignStay)
{
    EXPECT_EQ(L10n::format("%% %%%%", "Ann"), "% %%");
    EXPECT_EQ(L10n::format("%%@ %%1$d", "Ann"), "%@ %1$d");
    EXPECT_EQ(L10n::format("%1$d %d 50%", "Ann"), "%1$d %d 50%");
    EXPECT_EQ(L10n::format("%@", std::int64_t{7}), "%@");
}

} // namespace
} // namespace voltmere
