#include "linux/desktop_entry.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {
namespace {

// A reader of "Exec" of its own, written from the rules of the Desktop Entry Specification: strings
// are unescaped first, then quoting is undone, then field codes are expanded. Nothing is returned
// where the rules leave the meaning open.

std::optional<std::string> unescapedString(std::string_view written)
{
    static const std::map<char, char> meanings{
        {'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    std::string text;
    while (!written.empty()) {
        if (written[0] != '\\') {
            text += written[0];
            written.remove_prefix(1);
        } else if (written.size() > 1 && meanings.contains(written[1])) {
            text += meanings.at(written[1]);
            written.remove_prefix(2);
        } else {
            return std::nullopt;
        }
    }
    return text;
}

/// Reads one quoted argument off the front, without field codes expanded.
std::optional<std::string> takeQuoted(std::string_view& rest)
{
    std::string argument;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        const bool escapable = i + 1 < rest.size() &&
            std::string_view("\"`$\\").find(rest[i + 1]) != std::string_view::npos;
        if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return argument;
        }
        if (rest[i] == '$' || rest[i] == '`' || (rest[i] == '\\' && !escapable)) {
            return std::nullopt;
        }
        i += rest[i] == '\\' ? 1 : 0;
        argument += rest[i];
    }
    return std::nullopt;
}

std::optional<std::string> takeBare(std::string_view& rest)
{
    const std::string_view argument = rest.substr(0, rest.find(' '));
    rest.remove_prefix(argument.size());
    if (argument.find_first_of("\t\n\"'\\><~|&;$*?#()`") != std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(argument);
}

std::optional<std::string> withoutFieldCodes(std::string_view argument)
{
    std::string text;
    for (std::size_t i = 0; i < argument.size(); ++i) {
        if (argument[i] == '%') {
            ++i;
            if (i == argument.size() || argument[i] != '%') {
                return std::nullopt;
            }
        }
        text += argument[i];
    }
    return text;
}

std::optional<std::vector<std::string>> readExec(std::string_view written)
{
    const auto text = unescapedString(written);
    if (!text) {
        return std::nullopt;
    }
    std::vector<std::string> arguments;
    std::string_view rest = *text;
    while (!rest.empty()) {
        if (rest[0] == ' ') {
            rest.remove_prefix(1);
            continue;
        }
        const auto quoted = rest[0] == '"' ? takeQuoted(rest) : takeBare(rest);
        const auto argument = quoted ? withoutFieldCodes(*quoted) : std::nullopt;
        if (!argument || (!rest.empty() && rest[0] != ' ')) {
            return std::nullopt;
        }
        arguments.push_back(*argument);
    }
    return arguments;
}

/// What stands behind the sign in a file that starts a program.
std::string writtenExec(const std::string& program)
{
    DesktopEntry entry("[Desktop Entry]\n");
    entry.setValue("Exec", execStarting(program));
    const std::string text = entry.text();
    const std::string before = "[Desktop Entry]\nExec=";
    EXPECT_TRUE(text.starts_with(before)) << text;
    EXPECT_EQ(text.find('\n', before.size()), text.size() - 1) << text;
    return text.substr(before.size(), text.size() - before.size() - 1);
}

/// The program comes out as it went in: by itself, or behind a starter where the rules or their
/// readers do not let it stand first.
void expectRoundTrip(const std::string& program)
{
    std::vector<std::string> arguments{program};
    if (program.find_first_of("%=") != std::string::npos) {
        arguments.insert(arguments.begin(), {"nice", "-n", "0"});
    }
    EXPECT_EQ(readExec(writtenExec(program)), arguments) << program << '\n' << writtenExec(program);
}

TEST(ExecQuoting, KnownForms)
{
    const std::vector<std::pair<std::string, std::string>> forms{
        {"/usr/bin/voltmere", "/usr/bin/voltmere"},
        {"/opt/My Apps/voltmere", R"("/opt/My Apps/voltmere")"},
        {"/opt/100%/voltmere", "nice -n 0 /opt/100%%/voltmere"},
        {"/opt/100 %f/voltmere", R"(nice -n 0 "/opt/100 %%f/voltmere")"},
        {"/opt/a=b", "nice -n 0 /opt/a=b"},
        {"/opt/$HOME/voltmere", R"("/opt/\\$HOME/voltmere")"},
        {"/opt/`id`/voltmere", R"("/opt/\\`id\\`/voltmere")"},
        {R"(/opt/"q"/voltmere)", R"("/opt/\\"q\\"/voltmere")"},
        {R"(/opt/back\slash)", R"("/opt/back\\\\slash")"},
        {"/opt/it's/voltmere", R"("/opt/it's/voltmere")"},
        {"/opt/a\nb\tc", R"("/opt/a\nb\tc")"},
        {"/opt/续航哨兵/é", "/opt/续航哨兵/é"},
        {"", R"("")"},
    };
    for (const auto& [program, written] : forms) {
        EXPECT_EQ(writtenExec(program), written);
    }
}

TEST(ExecQuoting, NastyPathsAreReadBack)
{
    for (const std::string path : {"/",
                                   " ",
                                   "/a b",
                                   "/ends with a blank ",
                                   " /begins with a blank",
                                   "/%",
                                   "/%%",
                                   "/%f%u%%F",
                                   "/100%",
                                   "/$",
                                   "/$HOME",
                                   "/${HOME}/$(id)",
                                   "/`",
                                   "/\"",
                                   "/\"\"",
                                   "/'",
                                   "/\\",
                                   "/\\\\",
                                   "/\\\"",
                                   "/\\$",
                                   "/\\n",
                                   "/\\s",
                                   "/a\nb",
                                   "/a\tb",
                                   "/a\rb",
                                   "/;rm -rf &|<>",
                                   "/*?~#()[]{}",
                                   "/a=b",
                                   "/-option",
                                   "/续航哨兵",
                                   "/Ünï cödé/\xF0\x9F\x94\x8B",
                                   "/all of it: \\\"$`%' \n\t续"}) {
        expectRoundTrip(path);
    }
}

TEST(ExecQuoting, EveryByteIsReadBackAloneAndBetweenOthers)
{
    for (int byte = 1; byte < 256; ++byte) {
        const std::string character(1, static_cast<char>(byte));
        expectRoundTrip(character);
        expectRoundTrip("/a" + character + "b");
        expectRoundTrip("/a " + character);
    }
}

TEST(ExecQuoting, RandomPathsAreReadBack)
{
    constexpr std::string_view alphabet = "ab/ \"'\\$`%;\n\tsn";
    std::mt19937 random(20260302);
    for (int round = 0; round < 5000; ++round) {
        std::string path = "/";
        for (std::size_t length = random() % 20; length > 0; --length) {
            path += alphabet[random() % alphabet.size()];
        }
        expectRoundTrip(path);
    }
}

TEST(ExecQuoting, TheTestsOwnReaderRefusesWhatTheRulesForbid)
{
    for (const char* const written :
         {R"("open)", R"(a"b")", R"("a"b)", R"("$HOME")", R"("`id`")", R"("\\n")", "a$b", "a'b",
          "%f", "a%", R"(a\\b)", R"(\x)", R"(a\)"}) {
        EXPECT_EQ(readExec(written), std::nullopt) << written;
    }
    EXPECT_EQ(readExec(R"(one "two words"  three)"),
              (std::vector<std::string>{"one", "two words", "three"}));
}

} // namespace
} // namespace voltmere
