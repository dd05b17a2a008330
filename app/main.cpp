#include "app/command_line.h"
#include "app/diagnose_command.h"
#include "app/exit_status.h"
#include "app/list_command.h"
#include "app/platform_factory.h"
#include "app/screenshots.h"
#include "app/single_instance.h"
#include "app/terminal_output.h"
#include "app/version.h"
#include "app/voltmere_app.h"
#include "app/watch_command.h"
#include "linux/display.h"
#include "ports/desktop.h"
#include "texts/plain_text.h"

#include <QApplication>

#include <cstdio>

namespace {

using voltmere::CommandLine;
using voltmere::UsageError;

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
    const std::string message = voltmere::plainText(error.message.toStdString());
    std::fprintf(stderr, "voltmere: %s\n%s", message.c_str(), qPrintable(voltmere::usageText()));
    return voltmere::exitStatus::wrongUsage;
}

int runInTerminal(const CommandLine& commandLine)
{
    switch (commandLine.action) {
    case CommandLine::Action::list:
        return voltmere::listPeripherals(commandLine);
    case CommandLine::Action::watch:
        return voltmere::watchPeripherals(commandLine);
    case CommandLine::Action::diagnose:
        return voltmere::diagnose(commandLine);
    case CommandLine::Action::showVersion:
        return voltmere::printAnswer(std::string("voltmere ") + voltmere::version + '\n');
    default:
        return voltmere::printAnswer(voltmere::usageText().toStdString());
    }
}

int runInMenuBar(const CommandLine& commandLine, int argc, char** argv)
{
    const auto application = voltmere::startQt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(voltmere::applicationId);
    const auto log = voltmere::makeSystemLog();
    const auto instance = voltmere::makeSingleInstance(*log);
    if (!commandLine.demo && instance->start() == voltmere::SingleInstance::Role::later) {
        return 0;
    }
    voltmere::VoltmereApp program(commandLine);
    instance->onActivation([&program] { program.openPanel(); });
    return program.run();
}

int drawScreenshots(const CommandLine& commandLine, int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto application = voltmere::startQt(argc, argv);
    return voltmere::drawScreenshots(commandLine);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName("voltmere");
    QCoreApplication::setApplicationVersion(voltmere::version);
    const auto parsed = voltmere::parseCommandLine(wordsOf(argc, argv));
    const auto* commandLine = std::get_if<CommandLine>(&parsed);
    if (commandLine != nullptr && commandLine->action == CommandLine::Action::menuBar) {
        return runInMenuBar(*commandLine, argc, argv);
    }
    if (commandLine != nullptr && commandLine->action == CommandLine::Action::screenshots) {
        return drawScreenshots(*commandLine, argc, argv);
    }
    const QCoreApplication application(argc, argv);
    return commandLine == nullptr ? reportUsageError(std::get<UsageError>(parsed))
                                  : runInTerminal(*commandLine);
}
