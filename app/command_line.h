#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

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
    std::optional<QString> toolsDirectory;
    std::optional<QString> sysfsRoot;
    QString screenshotsDirectory;
};

/// What is wrong with the words that the user gave.
struct UsageError {
    QString message;
};

/// Reads the words of the command line, the program's name first. Needs no application object.
std::variant<CommandLine, UsageError> parseCommandLine(const QStringList& words);

/// The text that "--help" prints. Needs an application object.
QString usageText();

} // namespace voltmere
