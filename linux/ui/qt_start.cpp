#include "linux/ui/qt_start.h"

#include "app/terminal.h"
#include "linux/environment.h"
#include "texts/plain_text.h"

#include <QApplication>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

namespace voltmere {

namespace {

/// Qt's messages while it starts. Qt's own threads may send messages too.
struct Said {
    std::mutex mutex;
    QString firstWarning;
    std::string lines;
};

/// Qt passes its messages to a plain function, which finds their store here.
Said& said()
{
    static Said instance;
    return instance;
}

/// Why Qt cannot start, and what to do about it.
std::string problem(const QString& cause)
{
    if (environmentVariable("WAYLAND_DISPLAY").empty() && environmentVariable("DISPLAY").empty() &&
        environmentVariable("QT_QPA_PLATFORM").empty()) {
        return "there is no display (neither WAYLAND_DISPLAY nor DISPLAY is set); start it in a "
               "desktop session, or use --list";
    }
    return "Qt cannot show windows here (" + plainText(cause.trimmed().toStdString()) +
        "); check DISPLAY, XAUTHORITY, WAYLAND_DISPLAY and QT_QPA_PLATFORM, install the plugin "
        "(qt6-wayland for Wayland), or use --list";
}

void listen(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const std::lock_guard lock(said().mutex);
    if (type == QtFatalMsg) {
        // Qt's fatal message does not name the cause; the first warning before it does.
        const QString& warning = said().firstWarning;
        const QString cause = warning.isEmpty() ? text.section('\n', 0, 0) : warning;
        std::fprintf(stderr, "voltmere: %s\n", problem(cause).c_str());
        std::_Exit(exitStatus::cannotRun);
    }
    const std::string line = qFormatLogMessage(type, context, text).toStdString() + '\n';
    if (type == QtDebugMsg) { // a developer asked for it; not a complaint
        std::fputs(line.c_str(), stderr);
        return;
    }
    said().lines += line;
    if (said().firstWarning.isEmpty()) {
        said().firstWarning = text;
    }
}

} // namespace

std::unique_ptr<QApplication> startQt(int& argc, char** argv)
{
    const QtMessageHandler usual = qInstallMessageHandler(listen);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    const std::lock_guard lock(said().mutex);
    std::fputs(said().lines.c_str(), stderr);
    return application;
}

} // namespace voltmere
