#include "app/command_line.h"

#include <QCommandLineParser>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

/// The options, declared once for parsing and for the help text.
class Options {
public:
    Options()
    {
        parser.setApplicationDescription(
            "Watches the battery of Apple wireless mice, keyboards and trackpads.");
        parser.addOptions({list, json, watch, format, diagnose, verbose, panel, screenshots, demo,
                           tools, sysfs, help, version});
    }

    QCommandLineParser parser;
    const QCommandLineOption list{"list", "Take one reading, print it, and exit."};
    const QCommandLineOption json{"json", "Print the reading as one JSON object (with --list)."};
    const QCommandLineOption watch{"watch",
                                   "Print one line now and after every change, until ended."};
    const QCommandLineOption format{"format", "Print the lines for <bar> (with --watch): waybar.",
                                    "bar"};
    const QCommandLineOption diagnose{"diagnose",
                                      "Print what was found and why anything is missing."};
    const QCommandLineOption verbose{"verbose", "Include names and addresses (with --diagnose)."};
    const QCommandLineOption panel{"panel", "Open the panel at start."};
    const QCommandLineOption screenshots{"screenshots",
                                         "Draw what the program shows to <dir>/*.png.", "dir"};
    const QCommandLineOption demo{"demo",
                                  "Show simulated peripherals; keep settings in memory only."};
    const QCommandLineOption tools{
        "tools", "Use <dir>/ioreg and <dir>/system_profiler in place of the system's.", "dir"};
    const QCommandLineOption sysfs{"sysfs", "Read <dir> in place of /sys.", "dir"};
    const QCommandLineOption help{{"h", "help"}, "Print this help and exit."};
    const QCommandLineOption version{{"v", "version"}, "Print the version and exit."};
};

std::optional<QString> valueIfSet(const QCommandLineParser& parser,
                                  const QCommandLineOption& option)
{
    return parser.isSet(option) ? std::optional(parser.value(option)) : std::nullopt;
}

int countSet(const QCommandLineParser& parser, const QList<QCommandLineOption>& options)
{
    return static_cast<int>(
        std::count_if(options.begin(), options.end(), [&parser](const QCommandLineOption& option) {
            return parser.isSet(option);
        }));
}

std::optional<UsageError> findConflict(const Options& options)
{
    const QCommandLineParser& parser = options.parser;
    if (!parser.positionalArguments().isEmpty()) {
        return UsageError{"Unexpected argument '" + parser.positionalArguments().constFirst() +
                          "'."};
    }
    for (const auto& [option, action] :
         {std::pair(options.json, options.list), std::pair(options.format, options.watch),
          std::pair(options.verbose, options.diagnose)}) {
        if (parser.isSet(option) && !parser.isSet(action)) {
            return UsageError{"--" + option.names().constFirst() + " goes with --" +
                              action.names().constFirst() + "."};
        }
    }
    if (parser.isSet(options.format) && parser.value(options.format) != "waybar") {
        return UsageError{"--format knows only 'waybar'."};
    }
    if (countSet(parser,
                 {options.list, options.watch, options.diagnose, options.panel,
                  options.screenshots}) > 1) {
        return UsageError{"Only one of --list, --watch, --diagnose, --panel and --screenshots can "
                          "be done at a time."};
    }
    if (countSet(parser, {options.demo, options.tools, options.sysfs}) > 1) {
        return UsageError{"Only one of --demo, --tools and --sysfs can say where to read."};
    }
    for (const QCommandLineOption& option : {options.tools, options.sysfs, options.screenshots}) {
        if (parser.isSet(option) && parser.value(option).isEmpty()) {
            return UsageError{"--" + option.names().constFirst() + " needs a directory."};
        }
    }
    return std::nullopt;
}

CommandLine::Action chosenAction(const Options& options)
{
    if (options.parser.isSet(options.help)) {
        return CommandLine::Action::showHelp;
    }
    if (options.parser.isSet(options.version)) {
        return CommandLine::Action::showVersion;
    }
    if (options.parser.isSet(options.screenshots)) {
        return CommandLine::Action::screenshots;
    }
    if (options.parser.isSet(options.watch)) {
        return CommandLine::Action::watch;
    }
    if (options.parser.isSet(options.diagnose)) {
        return CommandLine::Action::diagnose;
    }
    return options.parser.isSet(options.list) ? CommandLine::Action::list
                                              : CommandLine::Action::menuBar;
}

} // namespace

std::variant<CommandLine, UsageError> parseCommandLine(const QStringList& words)
{
    Options options;
    if (!options.parser.parse(words)) {
        return UsageError{options.parser.errorText()};
    }
    CommandLine commandLine;
    commandLine.action = chosenAction(options);
    const bool asksForHelp = commandLine.action == CommandLine::Action::showHelp ||
        commandLine.action == CommandLine::Action::showVersion;
    if (const auto conflict = findConflict(options); conflict && !asksForHelp) {
        return *conflict;
    }
    commandLine.json = options.parser.isSet(options.json);
    commandLine.verbose = options.parser.isSet(options.verbose);
    commandLine.format = options.parser.isSet(options.format) ? CommandLine::Format::waybar
                                                              : CommandLine::Format::voltmere;
    commandLine.openPanel = options.parser.isSet(options.panel);
    commandLine.screenshotsDirectory = options.parser.value(options.screenshots);
    commandLine.demo = options.parser.isSet(options.demo);
    commandLine.toolsDirectory = valueIfSet(options.parser, options.tools);
    commandLine.sysfsRoot = valueIfSet(options.parser, options.sysfs);
    return commandLine;
}

QString usageText()
{
    return Options().parser.helpText();
}

} // namespace voltmere
