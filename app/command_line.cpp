#include "app/command_line.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <utility>

namespace voltmere {

namespace {

/// The options, as indices into the table below.
namespace opt {
enum Id {
    list,
    json,
    watch,
    format,
    diagnose,
    verbose,
    panel,
    screenshots,
    demo,
    tools,
    sysfs,
    help,
    version,
    count
};
} // namespace opt

struct OptionText {
    const char* name;
    const char* value; ///< name of its argument; null without one
    char letter;       ///< its short form; zero without one
    const char* description;
};

constexpr std::array<OptionText, opt::count> texts{{
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
}};

std::string shown(opt::Id option)
{
    return std::string("--") + texts[option].name;
}

/// The options given, each with its last value, and the first word that is no option.
struct Given {
    const std::optional<std::string>& operator[](opt::Id option) const { return values[option]; }

    std::array<std::optional<std::string>, opt::count> values;
    std::optional<std::string> otherWord;
};

int countOf(const Given& given, std::initializer_list<opt::Id> options)
{
    return static_cast<int>(std::count_if(options.begin(), options.end(), [&given](opt::Id option) {
        return given[option].has_value();
    }));
}

/// getopt_long returns a long option as its index plus this, which is above every character.
constexpr int firstNumber = 256;

/// Why getopt_long refused `word`, according to its answer and `optopt`.
UsageError explain(int answer, const std::string& word)
{
    if (optopt > 0 && optopt < firstNumber) {
        return {std::string("Unknown option '-") + static_cast<char>(optopt) + "'."};
    }
    if (optopt >= firstNumber && word.find('=') != std::string::npos) {
        return {"'" + word + "': " + shown(static_cast<opt::Id>(optopt - firstNumber)) +
                " takes no value."};
    }
    return {answer == ':' ? word + " needs a value." : "Unknown option '" + word + "'."};
}

std::size_t indexOf(int answer)
{
    if (answer >= firstNumber) {
        return static_cast<std::size_t>(answer - firstNumber);
    }
    const auto* const place =
        std::find_if(texts.begin(), texts.end(),
                     [answer](const OptionText& text) { return text.letter == answer; });
    return static_cast<std::size_t>(place - texts.begin());
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
    opterr = 0;
    optind = 0; // starts anew
    int answer = 0;
    while ((answer = ::getopt_long(count, pointers.data(), letters.c_str(), table.data(),
                                   nullptr)) != -1) {
        if (answer == ':' || answer == '?') {
            return explain(answer, wordAt(optind - 1));
        }
        given.values[indexOf(answer)] = optarg == nullptr ? "" : optarg;
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
         {std::pair(opt::json, opt::list), std::pair(opt::format, opt::watch),
          std::pair(opt::verbose, opt::diagnose)}) {
        if (given[option] && !given[action]) {
            return UsageError{shown(option) + " goes with " + shown(action) + "."};
        }
    }
    if (given[opt::format] && *given[opt::format] != "waybar") {
        return UsageError{"--format knows only 'waybar'."};
    }
    if (countOf(given, {opt::list, opt::watch, opt::diagnose, opt::panel, opt::screenshots}) > 1) {
        return UsageError{"Only one of --list, --watch, --diagnose, --panel and --screenshots can "
                          "be done at a time."};
    }
    if (countOf(given, {opt::demo, opt::tools, opt::sysfs}) > 1) {
        return UsageError{"Only one of --demo, --tools and --sysfs can say where to read."};
    }
    for (const opt::Id option : {opt::tools, opt::sysfs, opt::screenshots}) {
        if (given[option] && given[option]->empty()) {
            return UsageError{shown(option) + " needs a directory."};
        }
    }
    return std::nullopt;
}

CommandLine::Action chosenAction(const Given& given)
{
    using Action = CommandLine::Action;
    for (const auto& [option, action] :
         {std::pair(opt::help, Action::showHelp), std::pair(opt::version, Action::showVersion),
          std::pair(opt::screenshots, Action::screenshots), std::pair(opt::watch, Action::watch),
          std::pair(opt::diagnose, Action::diagnose), std::pair(opt::list, Action::list)}) {
        if (given[option]) {
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
    const bool asksForHelp = given[opt::help] || given[opt::version];
    if (const auto conflict = findConflict(given); conflict && !asksForHelp) {
        return *conflict;
    }
    commandLine.json = given[opt::json].has_value();
    commandLine.verbose = given[opt::verbose].has_value();
    commandLine.format =
        given[opt::format] ? CommandLine::Format::waybar : CommandLine::Format::voltmere;
    commandLine.openPanel = given[opt::panel].has_value();
    commandLine.screenshotsDirectory = given[opt::screenshots].value_or("");
    commandLine.demo = given[opt::demo].has_value();
    commandLine.toolsDirectory = given[opt::tools];
    commandLine.sysfsRoot = given[opt::sysfs];
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
