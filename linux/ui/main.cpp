// The program with the windows. "voltmere" reads the command line first and starts this program for
// each command that needs windows.

#include "app/command_line.h"
#include "app/studio.h"
#include "app/terminal.h"
#include "app/voltmere_app.h"
#include "linux/environment.h"
#include "linux/run_loop.h"
#include "linux/single_instance.h"
#include "linux/ui/alert.h"
#include "linux/ui/front_end.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel.h"
#include "linux/ui/theme.h"
#include "texts/plain_text.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QPainter>
#include <QString>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <variant>
#include <vector>

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

/// Makes the application of Qt that windows need. Where Qt finds no display, or no plugin for it,
/// the process ends with one line on standard error: by itself Qt would abort. `argc` must outlive
/// the application.
std::unique_ptr<QApplication> startQt(int& argc, char** argv)
{
    const QtMessageHandler usual = qInstallMessageHandler(listen);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    const std::lock_guard lock(said().mutex);
    std::fputs(said().lines.c_str(), stderr);
    return application;
}

int runInMenuBar(const CommandLine& commandLine, int argc, char** argv)
{
    const auto application = startQt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(applicationId);
    const auto log = makeSystemLog();
    const QString name = applicationId;
    BusInstance instance(commandLine.demo ? name + ".Demo" : name);
    if (instance.isLaterStart(*log)) {
        return 0;
    }
    QtRunLoop mainLoop;
    QtFrontEnd frontEnd(mainLoop, *log);
    VoltmereApp program(commandLine, mainLoop, frontEnd);
    program.start();
    instance.onActivation([&program] { program.openPanel(); });
    return program.run();
}

/// An appearance that the pictures choose.
class ChosenAppearance : public Appearance {
public:
    std::optional<ColourScheme> bestMatch() const override { return scheme; }
    void onChange(std::function<void()> /*action*/) override { }

    ColourScheme scheme = ColourScheme::light;
};

/// A drawing on a strip of the colour that a menu bar or tray panel of that scheme has.
QImage onBar(const QImage& picture, ColourScheme scheme)
{
    constexpr int margin = 6;
    const qreal ratio = picture.devicePixelRatio();
    const QSizeF size = picture.deviceIndependentSize() + QSizeF(2 * margin, 2 * margin);
    QImage bar((size * ratio).toSize(), QImage::Format_RGB32);
    bar.setDevicePixelRatio(ratio);
    bar.fill(scheme == ColourScheme::dark ? QColor(0x2B, 0x2B, 0x2E) : QColor(0xEE, 0xEE, 0xF0));
    QPainter(&bar).drawImage(QPointF(margin, margin), picture);
    return bar;
}

bool save(const QImage& picture, const std::string& path)
{
    return picture.save(QFile::decodeName(path.c_str()));
}

int drawScreenshots(const CommandLine& commandLine, int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt warns where there is no session, which pictures do not need.
    QLoggingCategory::setFilterRules("default.warning=false");
    const auto application = startQt(argc, argv);
    QtRunLoop mainLoop;
    ChosenAppearance appearance;
    Drawings drawings;
    drawings.choose = [&](ColourScheme scheme) {
        appearance.scheme = scheme;
        applyPalette(scheme);
    };
    drawings.icons["menu-bar"] = [&](const BatteryModel& model, const std::string& path) {
        const ColourScheme scheme = appearance.scheme;
        const DrawnImage wide = StatusImage::make(model.devices, model.threshold, scheme);
        return save(onBar(wide.rendered(qApp->devicePixelRatio()), scheme), path);
    };
    drawings.icons["tray"] = [&](const BatteryModel& model, const std::string& path) {
        constexpr QSize largestTray(64, 64);
        const QIcon icon = makeTrayIcon(iconLevel(model.devices, model.threshold));
        return save(onBar(icon.pixmap(largestTray, 1.0).toImage(), appearance.scheme), path);
    };
    drawings.panel = [&](BatteryModel& model, const std::string& path) {
        ContentView panel(model, appearance, [] {});
        return save(panel.grab().toImage(), path);
    };
    drawings.alert = [&](const AlertContent& content, const std::string& path) {
        SnoozeAlertWindow alert(content, {}, appearance);
        alert.adjustSize();
        return save(alert.grab().toImage(), path);
    };
    return drawPictures(commandLine, mainLoop, drawings);
}

} // namespace

} // namespace voltmere

// NOLINTNEXTLINE(bugprone-exception-escape): "voltmere" passes on what it has read without an error
int main(int argc, char* argv[])
{
    using namespace voltmere;
    // Threads allocate little here, and an arena for each of them would cost 130 KiB.
    ::mallopt(M_ARENA_MAX, 1);
    QCoreApplication::setApplicationName("voltmere");
    const auto parsed = parseCommandLine(std::vector<std::string>(argv, argv + argc));
    const auto& commandLine = std::get<CommandLine>(parsed);
    return commandLine.action == CommandLine::Action::screenshots
        ? drawScreenshots(commandLine, argc, argv)
        : runInMenuBar(commandLine, argc, argv);
}
