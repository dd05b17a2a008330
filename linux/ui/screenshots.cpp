#include "linux/ui/screenshots.h"

#include "app/studio.h"
#include "app/terminal.h"
#include "linux/run_loop.h"
#include "linux/ui/alert.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "snooze/snooze_alert.h"
#include "texts/l10n.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>

#include <cstdio>
#include <map>
#include <utility>

namespace voltmere {

namespace {

/// An appearance that the pictures choose.
class ChosenAppearance : public Appearance {
public:
    std::optional<ColourScheme> bestMatch() const override { return scheme; }
    void onChange(std::function<void()> /*action*/) override { }

    ColourScheme scheme = ColourScheme::light;
};

/// The program without a desktop, in an appearance that the pictures choose.
class QtStudio : public Studio {
public:
    using Studio::Studio;

    ChosenAppearance appearance;
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

using Pictures = std::map<QString, QImage>; ///< by the name of their file

void drawIcons(QtStudio& studio, const QString& suffix, Pictures& pictures)
{
    const ColourScheme scheme = studio.appearance.scheme;
    const BatteryModel& model = studio.model;
    const DrawnImage wide = StatusImage::make(model.devices, model.threshold, scheme);
    pictures["menu-bar-" + suffix] = onBar(wide.rendered(qApp->devicePixelRatio()), scheme);
    constexpr QSize largestTray(64, 64);
    const QIcon tray = makeTrayIcon(iconLevel(model.devices, model.threshold));
    pictures["tray-" + suffix] = onBar(tray.pixmap(largestTray, 1.0).toImage(), scheme);
}

void drawPanel(QtStudio& studio, const QString& suffix, Pictures& pictures)
{
    ContentView panel(studio.model, studio.appearance, [] {});
    pictures["panel-" + suffix] = panel.grab().toImage();
}

void drawAlerts(QtStudio& studio, const QString& suffix, Pictures& pictures)
{
    constexpr ClockTime preselected{15, 35};
    for (const AlertSample& sample : alertSamples()) {
        SnoozeAlertWindow alert(makeAlertContent(sample.devices, sample.isLow, preselected), {},
                                studio.appearance);
        alert.adjustSize();
        pictures["alert-" + asQt(sample.name) + "-" + suffix] = alert.grab().toImage();
    }
}

} // namespace

int drawScreenshots(const CommandLine& commandLine)
{
    const QDir directory(QFile::decodeName(commandLine.screenshotsDirectory.c_str()));
    if (!directory.mkpath(".")) {
        std::fprintf(stderr, "voltmere: cannot make the directory %s\n",
                     commandLine.screenshotsDirectory.c_str());
        return exitStatus::cannotRun;
    }
    QtRunLoop mainLoop;
    QtStudio studio(commandLine, mainLoop);
    Pictures pictures;
    for (const auto& [scheme, name] : {std::pair(ColourScheme::light, QString("light")),
                                       std::pair(ColourScheme::dark, QString("dark"))}) {
        studio.appearance.scheme = scheme;
        applyPalette(scheme);
        drawIcons(studio, name, pictures);
        for (const AppLanguage language : {AppLanguage::zh, AppLanguage::en}) {
            studio.model.language = std::string(rawValue(language));
            const QString suffix = asQt(studio.model.language) + "-" + name;
            drawPanel(studio, suffix, pictures);
            drawAlerts(studio, suffix, pictures);
        }
    }
    for (const auto& [name, picture] : pictures) {
        const QString path = directory.filePath(name + ".png");
        if (!picture.save(path)) {
            std::fprintf(stderr,
                         "voltmere: cannot write %s; check that the directory is writable\n",
                         qPrintable(path));
            return exitStatus::cannotRun;
        }
    }
    return 0;
}

} // namespace voltmere
