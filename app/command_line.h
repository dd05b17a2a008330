#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace voltmere {

/// What the user asked for in the terminal.
struct CommandLine {
    enum class Action { menuBar, list, watch, diagnose, screenshots, showHelp, showVersion };
    enum class Format { voltmere, waybar };

    Action action = Action::menuBar;
    bool json = false;
    bool verbose = false; ///< names and addresses in a diagnosis
    Format format = Format::voltmere;
    bool demo = false;
    bool openPanel = false;
    std::optional<std::string> toolsDirectory;
    std::optional<std::string> sysfsRoot;
    std::string screenshotsDirectory; ///< with Action::screenshots, else empty

    bool operator==(const CommandLine&) const = default;
};

/// The error in the user's command line.
struct UsageError {
    std::string message;
};

/// Reads the words of the command line, the program's name first. Not safe in two threads at once.
std::variant<CommandLine, UsageError> parseCommandLine(std::vector<std::string> words);

/// The text that "--help" prints.
std::string usageText();

} // namespace voltmere
