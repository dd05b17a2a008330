#include "app/command_line.h"
#include "app/diagnosis.h"
#include "app/platform.h"
#include "app/terminal.h"
#include "app/terminal_commands.h"
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
    switch (commandLine.action) {
    case CommandLine::Action::list:
        return listPeripherals(commandLine);
    case CommandLine::Action::watch:
        return watchPeripherals(commandLine);
    case CommandLine::Action::diagnose:
        return diagnose(commandLine);
    case CommandLine::Action::showVersion:
        return printAnswer(std::string("voltmere ") + version + '\n');
    case CommandLine::Action::showHelp:
        return printAnswer(usageText());
    case CommandLine::Action::menuBar:
    case CommandLine::Action::screenshots:
        break;
    }
    return runFrontEnd(commandLine, argv);
}
