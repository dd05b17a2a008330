#include "app/command_line.h"
#include "app/platform.h"
#include "app/services.h"
#include "app/terminal.h"
#include "app/version.h"
#include "texts/plain_text.h"

#include <cstdio>

// NOLINTNEXTLINE(bugprone-exception-escape): the parsed line holds one of the two
int main(int argc, char* argv[])
{
    using namespace voltmere;
    const auto parsed = parseCommandLine(std::vector<std::string>(argv, argv + argc));
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        std::fprintf(stderr, "voltmere: %s\n%s", plainText(error->message).c_str(),
                     usageText().c_str());
        return exitStatus::wrongUsage;
    }
    const auto& commandLine = std::get<CommandLine>(parsed);
    using Action = CommandLine::Action;
    const bool showsPeripherals =
        commandLine.action != Action::showHelp && commandLine.action != Action::showVersion;
    if (commandLine.demo && showsPeripherals) {
        if (const std::string missing = missingDemoTools(); !missing.empty()) {
            std::fprintf(stderr, "voltmere: --demo needs %s in %s; install the program again\n",
                         missing.c_str(), plainText(demoToolsDirectory()).c_str());
            return exitStatus::cannotRun;
        }
    }
    switch (commandLine.action) {
    case Action::list:
        return listPeripherals(commandLine);
    case Action::watch:
        return watchPeripherals(commandLine);
    case Action::diagnose:
        return diagnose(commandLine);
    case Action::showVersion:
        return printAnswer(std::string("voltmere ") + version + '\n');
    case Action::showHelp:
        return printAnswer(usageText());
    case Action::menuBar:
    case Action::screenshots:
        break;
    }
    return runFrontEnd(commandLine, argv);
}
