#include "linux/environment.h"

#include "linux/environment_guard.h"
#include "linux/login_item.h"
#include "linux/settings.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using Tags = std::vector<std::string>;

/// The tags where the environment asks for what `variables` says and nothing else.
Tags tagsWith(EnvironmentGuard::Variables variables)
{
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
        variables.try_emplace(name, std::nullopt);
    }
    const EnvironmentGuard guard(variables);
    return EnvironmentLanguages().tags();
}

TEST(EnvironmentLanguagesTest, ALocaleBecomesATag)
{
    const std::map<std::string, Tags> cases{{"zh_CN.UTF-8", {"zh-CN"}},
                                            {"zh_TW", {"zh-TW"}},
                                            {"en", {"en"}},
                                            {"de_AT@euro", {"de-AT"}},
                                            {"sr_RS.UTF-8@latin", {"sr-RS"}},
                                            {"C.UTF-8", {}},
                                            {"POSIX.UTF-8", {}},
                                            {"", {}}};
    for (const auto& [locale, tags] : cases) {
        EXPECT_EQ(tagsWith({{"LANG", locale}}), tags) << locale;
    }
    EXPECT_EQ(tagsWith({}), Tags());
}

TEST(EnvironmentLanguagesTest, LcAllWinsOverLcMessagesAndThatOverLangUnlessEmpty)
{
    EXPECT_EQ(tagsWith({{"LC_ALL", "zh_CN"}, {"LC_MESSAGES", "de_DE"}, {"LANG", "fr_FR"}}),
              Tags{"zh-CN"});
    EXPECT_EQ(tagsWith({{"LC_ALL", ""}, {"LC_MESSAGES", "de_DE"}, {"LANG", "fr_FR"}}),
              Tags{"de-DE"});
    EXPECT_EQ(tagsWith({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", "fr_FR"}}), Tags{"fr-FR"});
    EXPECT_EQ(tagsWith({{"LC_ALL", "C.UTF-8"}, {"LANG", "zh_CN.UTF-8"}}), Tags());
}

TEST(EnvironmentLanguagesTest, TheListStandsInPlaceOfALocaleAndEndsAtC)
{
    const std::map<std::string, Tags> cases{{"zh_CN:en_GB:en", {"zh-CN", "en-GB", "en"}},
                                            {":zh_CN::en:", {"zh-CN", "en"}},
                                            {":", {"de-DE"}},
                                            {"", {"de-DE"}},
                                            {"fr:C:zh_CN", {"fr"}},
                                            {"fr:POSIX:zh_CN", {"fr"}},
                                            {"C:zh_CN", {}}};
    for (const auto& [list, tags] : cases) {
        EXPECT_EQ(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", list}}), tags) << list;
    }
}

TEST(EnvironmentLanguagesTest, TheCLocaleIgnoresTheList)
{
    for (const char* const locale : {"C", "POSIX", ""}) {
        EXPECT_EQ(tagsWith({{"LANG", locale}, {"LANGUAGE", "zh_CN"}}), Tags()) << locale;
    }
    EXPECT_EQ(tagsWith({{"LC_ALL", "C"}, {"LANG", "zh_CN"}, {"LANGUAGE", "zh_CN"}}), Tags());
}

TEST(EnvironmentTest, TheUsersFilesAreInTheDirectoryThatTheEnvironmentNamesOrElseInTheHome)
{
    const EnvironmentGuard named({{"HOME", "/home/ann"}, {"XDG_CONFIG_HOME", "/data/ann's"}});
    EXPECT_EQ(autostartDirectory(), "/data/ann's/autostart");
    EXPECT_EQ(settingsPath(), "/data/ann's/voltmere/settings.json");
    for (const std::string unusable : {"", "relative/path"}) {
        const EnvironmentGuard::Variables variables{{"XDG_CONFIG_HOME", unusable}};
        const EnvironmentGuard other(variables);
        EXPECT_EQ(autostartDirectory(), "/home/ann/.config/autostart");
        EXPECT_EQ(settingsPath(), "/home/ann/.config/voltmere/settings.json");
    }
}

TEST(EnvironmentTest, AHomeThatIsNoAbsolutePathIsNotLookedForBelowThePresentDirectory)
{
    for (const char* const home : {"", "relative"}) {
        const EnvironmentGuard homeless({{"HOME", home}, {"XDG_CONFIG_HOME", std::nullopt}});
        EXPECT_TRUE(settingsPath().is_absolute()) << settingsPath();
    }
}

} // namespace
} // namespace voltmere
