#include "app/command_line.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <map>
#include <utility>

namespace voltmere {

namespace {

struct OptionText {
    const char* name;
    const char* value; ///< name of its argument; null without one
    char letter;       ///< its short form; zero without one
    const char* description;
};

constexpr std::array texts = std::to_array<OptionText>({
    {"list", nullptr, 0, "Take one reading, print it, and exit."},
    {"json", nullptr, 0, "Print the reading as one JSON object (with --list)."},
    {"watch", nullptr, 0, "Print one line now and after every change, until ended."},
    {"format", "bar", 0, "Print the lines for <bar> (with --watch): waybar."},
    {"diagnose", nullptr, 0, "Print what was found and why anything is missing."},
    {"verbose", nullptr, 0, "Include names and addresses (with --diagnose)."},
    {"panel", nullptr, 0, "Open the panel at start."},
    {"screenshots", "dir", 0, "Draw what the program shows to <dir>/*.png."},
    {"demo", nullptr, 0, "Show simulated peripherals; keep settings in memory only."},
    {"tools", "dir", 0, "Use <dir>/ioreg and <dir>/system_profiler, not the system's."},
    {"sysfs", "dir", 0, "Read <dir> in place of /sys."},
    {"help", nullptr, 'h', "Print this help and exit."},
    {"version", nullptr, 'v', "Print the version and exit."},
});

/// The options given, by name and each with its last value, and the first word that is no option.
struct Given {
    bool has(const std::string& option) const { return values.contains(option); }

    std::optional<std::string> operator[](const std::string& option) const
    {
        return has(option) ? std::optional(values.at(option)) : std::nullopt;
    }

    bool hasSeveral(std::initializer_list<const char*> options) const
    {
        return std::ranges::count_if(options, [this](auto option) { return has(option); }) > 1;
    }

    std::map<std::string, std::string> values;
    std::optional<std::string> otherWord;
};

/// getopt_long returns a long option as its index plus this, which is above every character.
constexpr int firstNumber = 256;

std::string nameOf(int answer)
{
    if (answer >= firstNumber) {
        return texts[static_cast<std::size_t>(answer - firstNumber)].name;
    }
    return std::ranges::find(texts, answer, &OptionText::letter)->name;
}

/// Why getopt_long refused `word`, according to its answer and `optopt`.
UsageError explain(int answer, const std::string& word)
{
    if (optopt > 0 && optopt < firstNumber) {
        return {std::string("Unknown option '-") + static_cast<char>(optopt) + "'."};
    }
    if (optopt >= firstNumber && word.find('=') != std::string::npos) {
        return {"'" + word + "': --" + nameOf(optopt) + " takes no value."};
    }
    return {answer == ':' ? word + " needs a value." : "Unknown option '" + word + "'."};
}

std::variant<Given, UsageError> readOptions(std::vector<std::string> words)
{
    std::vector<char*> pointers;
    std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                   [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);
    std::vector<option> table;
    std::string letters = ":";
    for (int number = firstNumber; const OptionText& text : texts) {
        const int argument = text.value == nullptr ? no_argument : required_argument;
        table.push_back({text.name, argument, nullptr, number++});
        if (text.letter != 0) {
            letters += text.letter;
        }
    }
    table.push_back({});

    const auto wordAt = [&pointers](int index) {
        return std::string(pointers[static_cast<std::size_t>(index)]);
    };
    const int count = static_cast<int>(words.size());
    Given given;
    optind = 0; // starts anew
    int answer = 0;
    while ((answer = ::getopt_long(count, pointers.data(), letters.c_str(), table.data(),
                                   nullptr)) != -1) {
        if (answer == ':' || answer == '?') {
            return explain(answer, wordAt(optind - 1));
        }
        given.values[nameOf(answer)] = optarg == nullptr ? "" : optarg;
    }
    if (optind < count) {
        given.otherWord = wordAt(optind);
    }
    return given;
}

std::optional<UsageError> findConflict(const Given& given)
{
    if (given.otherWord) {
        return UsageError{"Unexpected argument '" + *given.otherWord + "'."};
    }
    for (const auto& [option, action] :
         {std::pair("json", "list"), {"format", "watch"}, {"verbose", "diagnose"}}) {
        if (given.has(option) && !given.has(action)) {
            return UsageError{std::string("--") + option + " goes with --" + action + "."};
        }
    }
    if (given["format"].value_or("waybar") != "waybar") {
        return UsageError{"--format knows only 'waybar'."};
    }
    if (given.hasSeveral({"list", "watch", "diagnose", "panel", "screenshots"})) {
        return UsageError{"Only one of --list, --watch, --diagnose, --panel and --screenshots can "
                          "be done at a time."};
    }
    if (given.hasSeveral({"demo", "tools", "sysfs"})) {
        return UsageError{"Only one of --demo, --tools and --sysfs can say where to read."};
    }
    for (const char* const option : {"tools", "sysfs", "screenshots"}) {
        if (given[option] == "") {
            return UsageError{std::string("--") + option + " needs a directory."};
        }
    }
    return std::nullopt;
}

CommandLine::Action chosenAction(const Given& given)
{
    using Action = CommandLine::Action;
    for (const auto& [option, action] : {std::pair("help", Action::showHelp),
                                         {"version", Action::showVersion},
                                         {"screenshots", Action::screenshots},
                                         {"watch", Action::watch},
                                         {"diagnose", Action::diagnose},
                                         {"list", Action::list}}) {
        if (given.has(option)) {
            return action;
        }
    }
    return Action::menuBar;
}

} // namespace

std::variant<CommandLine, UsageError> parseCommandLine(std::vector<std::string> words)
{
    const auto read = readOptions(std::move(words));
    if (const auto* error = std::get_if<UsageError>(&read)) {
        return *error;
    }
    const auto& given = std::get<Given>(read);
    CommandLine commandLine;
    commandLine.action = chosenAction(given);
    const bool asksForHelp = given.has("help") || given.has("version");
    if (const auto conflict = findConflict(given); conflict && !asksForHelp) {
        return *conflict;
    }
    commandLine.json = given.has("json");
    commandLine.verbose = given.has("verbose");
    commandLine.format =
        given.has("format") ? CommandLine::Format::waybar : CommandLine::Format::voltmere;
    commandLine.openPanel = given.has("panel");
    commandLine.screenshotsDirectory = given["screenshots"].value_or("");
    commandLine.demo = given.has("demo");
    commandLine.toolsDirectory = given["tools"];
    commandLine.sysfsRoot = given["sysfs"];
    return commandLine;
}

std::string usageText()
{
    constexpr std::size_t column = 23;
    std::string text = "Usage: voltmere [options]\n"
                       "Watches the battery of Apple wireless mice, keyboards and trackpads.\n\n"
                       "Options:\n";
    for (const OptionText& option : texts) {
        std::string words = "  ";
        if (option.letter != 0) {
            words += std::string("-") + option.letter + ", ";
        }
        words += std::string("--") + option.name;
        if (option.value != nullptr) {
            words += std::string(" <") + option.value + '>';
        }
        text += words + std::string(column - words.size(), ' ') + option.description + '\n';
    }
    return text;
}

} // namespace voltmere
