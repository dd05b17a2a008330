#include "linux/environment.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>
#include <optional>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Variables = std::map<std::string, std::string>;

/// Makes the environment ask for what the test says and nothing else; puts back what was there.
class EnvironmentGuard {
public:
    explicit EnvironmentGuard(const Variables& variables)
    {
        for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
            const char* const value = std::getenv(name);
            previous[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            const auto wanted = variables.find(name);
            set(name, wanted == variables.end() ? std::nullopt : std::optional(wanted->second));
        }
    }

    ~EnvironmentGuard()
    {
        for (const auto& [name, value] : previous) {
            set(name, value);
        }
    }

    EnvironmentGuard(const EnvironmentGuard&) = delete;
    EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;

private:
    static void set(const std::string& name, const std::optional<std::string>& value)
    {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }

    std::map<std::string, std::optional<std::string>> previous;
};

std::vector<std::string> tagsWith(const Variables& variables)
{
    const EnvironmentGuard guard(variables);
    return EnvironmentLanguages().tags();
}

TEST(EnvironmentLanguagesTest, AnEmptyEnvironmentAsksForNothing)
{
    EXPECT_THAT(tagsWith({}), IsEmpty());
}

TEST(EnvironmentLanguagesTest, ALocaleBecomesATag)
{
    EXPECT_THAT(tagsWith({{"LANG", "zh_CN.UTF-8"}}), ElementsAre("zh-CN"));
    EXPECT_THAT(tagsWith({{"LANG", "zh_TW"}}), ElementsAre("zh-TW"));
    EXPECT_THAT(tagsWith({{"LANG", "en"}}), ElementsAre("en"));
    EXPECT_THAT(tagsWith({{"LANG", "de_AT@euro"}}), ElementsAre("de-AT"));
    EXPECT_THAT(tagsWith({{"LANG", "sr_RS.UTF-8@latin"}}), ElementsAre("sr-RS"));
}

TEST(EnvironmentLanguagesTest, LcAllWinsOverLcMessagesAndThatOverLang)
{
    EXPECT_THAT(
        tagsWith(
            {{"LC_ALL", "zh_CN.UTF-8"}, {"LC_MESSAGES", "de_DE.UTF-8"}, {"LANG", "fr_FR.UTF-8"}}),
        ElementsAre("zh-CN"));
    EXPECT_THAT(tagsWith({{"LC_MESSAGES", "de_DE.UTF-8"}, {"LANG", "fr_FR.UTF-8"}}),
                ElementsAre("de-DE"));
    EXPECT_THAT(tagsWith({{"LANG", "fr_FR.UTF-8"}}), ElementsAre("fr-FR"));
}

TEST(EnvironmentLanguagesTest, AnEmptyVariableIsAsIfUnset)
{
    EXPECT_THAT(tagsWith({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", "fr_FR.UTF-8"}}),
                ElementsAre("fr-FR"));
    EXPECT_THAT(tagsWith({{"LC_ALL", ""}, {"LC_MESSAGES", "de_DE"}, {"LANG", "fr_FR.UTF-8"}}),
                ElementsAre("de-DE"));
    EXPECT_THAT(tagsWith({{"LANG", "fr_FR.UTF-8"}, {"LANGUAGE", ""}}), ElementsAre("fr-FR"));
    EXPECT_THAT(tagsWith({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", ""}}), IsEmpty());
}

TEST(EnvironmentLanguagesTest, TheListStandsInPlaceOfTheLocale)
{
    EXPECT_THAT(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "zh_CN:en_GB:en"}}),
                ElementsAre("zh-CN", "en-GB", "en"));
    EXPECT_THAT(tagsWith({{"LC_ALL", "de_DE.UTF-8"}, {"LANGUAGE", "zh"}}), ElementsAre("zh"));
}

TEST(EnvironmentLanguagesTest, EmptyPlacesInTheListDoNotCount)
{
    EXPECT_THAT(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", ":zh_CN::en:"}}),
                ElementsAre("zh-CN", "en"));
    EXPECT_THAT(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", ":"}}), ElementsAre("de-DE"));
}

TEST(EnvironmentLanguagesTest, TheCLocaleIgnoresTheList)
{
    EXPECT_THAT(tagsWith({{"LANG", "C"}, {"LANGUAGE", "zh_CN"}}), IsEmpty());
    EXPECT_THAT(tagsWith({{"LANG", "POSIX"}, {"LANGUAGE", "zh_CN"}}), IsEmpty());
    EXPECT_THAT(tagsWith({{"LC_ALL", "C"}, {"LANG", "zh_CN.UTF-8"}, {"LANGUAGE", "zh_CN"}}),
                IsEmpty());
}

TEST(EnvironmentLanguagesTest, WithoutALocaleTheListIsIgnored)
{
    EXPECT_THAT(tagsWith({{"LANGUAGE", "zh_CN"}}), IsEmpty());
}

TEST(EnvironmentLanguagesTest, CInsideTheListEndsIt)
{
    EXPECT_THAT(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "fr:C:zh_CN"}}), ElementsAre("fr"));
    EXPECT_THAT(tagsWith({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "fr:POSIX:zh_CN"}}),
                ElementsAre("fr"));
    EXPECT_THAT(tagsWith({{"LANG", "zh_CN.UTF-8"}, {"LANGUAGE", "C:zh_CN"}}), IsEmpty());
}

TEST(EnvironmentLanguagesTest, TheCLocaleWithACharacterSetAsksForNothing)
{
    EXPECT_THAT(tagsWith({{"LANG", "C.UTF-8"}}), IsEmpty());
    EXPECT_THAT(tagsWith({{"LC_ALL", "C.UTF-8"}, {"LANG", "zh_CN.UTF-8"}}), IsEmpty());
    EXPECT_THAT(tagsWith({{"LC_ALL", "POSIX.UTF-8"}}), IsEmpty());
}

TEST(EnvironmentLanguagesTest, IsAskedAnewEachTime)
{
    const EnvironmentLanguages languages;
    const EnvironmentGuard guard(Variables{{"LANG", "zh_CN.UTF-8"}});
    EXPECT_THAT(languages.tags(), ElementsAre("zh-CN"));
    ::setenv("LANG", "en_GB.UTF-8", 1);
    EXPECT_THAT(languages.tags(), ElementsAre("en-GB"));
}

} // namespace
} // namespace voltmere
