// The program with the windows. "voltmere" reads the command line first and starts this program for
// each command that needs windows.

#include "app/command_line.h"
#include "app/voltmere_app.h"
#include "linux/run_loop.h"
#include "linux/single_instance.h"
#include "linux/ui/front_end.h"
#include "linux/ui/qt_start.h"
#include "linux/ui/screenshots.h"

#include <QApplication>
#include <QLoggingCategory>

namespace {

using voltmere::CommandLine;

int runInMenuBar(const CommandLine& commandLine, int argc, char** argv)
{
    const auto application = voltmere::startQt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(voltmere::applicationId);
    const auto log = voltmere::makeSystemLog();
    const QString name = voltmere::applicationId;
    voltmere::BusInstance instance(commandLine.demo ? name + ".Demo" : name);
    if (instance.isLaterStart(*log)) {
        return 0;
    }
    voltmere::QtRunLoop mainLoop;
    voltmere::QtFrontEnd frontEnd(mainLoop, *log);
    voltmere::VoltmereApp program(commandLine, mainLoop, frontEnd);
    program.start();
    instance.onActivation([&program] { program.openPanel(); });
    return program.run();
}

int drawScreenshots(const CommandLine& commandLine, int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt warns where there is no session, which pictures do not need.
    QLoggingCategory::setFilterRules("default.warning=false");
    const auto application = voltmere::startQt(argc, argv);
    return voltmere::drawScreenshots(commandLine);
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): "voltmere" passes on what it has read without an error
int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName("voltmere");
    const auto parsed = voltmere::parseCommandLine(std::vector<std::string>(argv, argv + argc));
    const auto& commandLine = std::get<CommandLine>(parsed);
    return commandLine.action == CommandLine::Action::screenshots
        ? drawScreenshots(commandLine, argc, argv)
        : runInMenuBar(commandLine, argc, argv);
}
