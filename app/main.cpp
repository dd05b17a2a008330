#include "app/command_line.h"
#include "app/list_command.h"
#include "app/version.h"
#include "platform/posix/plain_text.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using voltmere::CommandLine;
using voltmere::UsageError;

constexpr int exitCannotRun = 1;
constexpr int exitWrongUsage = 2;

QStringList wordsOf(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i) {
        words.append(QString::fromLocal8Bit(argv[i]));
    }
    return words;
}

int reportUsageError(const UsageError& error)
{
    const std::string message = voltmere::plainLine(error.message.toStdString());
    std::fprintf(stderr, "voltmere: %s\n%s", message.c_str(), qPrintable(voltmere::usageText()));
    return exitWrongUsage;
}

int run(const CommandLine& commandLine)
{
    switch (commandLine.action) {
    case CommandLine::Action::showHelp:
        std::fputs(qPrintable(voltmere::usageText()), stdout);
        return 0;
    case CommandLine::Action::showVersion:
        std::printf("voltmere %s\n", voltmere::version);
        return 0;
    case CommandLine::Action::list:
        return voltmere::listPeripherals(commandLine);
    case CommandLine::Action::menuBar:
        break;
    }
    std::fputs("voltmere: the menu bar is not there yet; try --list\n", stderr);
    return exitCannotRun;
}

} // namespace

int main(int argc, char* argv[])
{
    const auto parsed = voltmere::parseCommandLine(wordsOf(argc, argv));
    const QCoreApplication application(argc, argv);
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        return reportUsageError(*error);
    }
    return run(std::get<CommandLine>(parsed));
}
