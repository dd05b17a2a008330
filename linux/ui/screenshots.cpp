#include "linux/ui/screenshots.h"

#include "app/studio.h"
#include "linux/run_loop.h"
#include "linux/ui/alert.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel.h"
#include "linux/ui/theme.h"
#include "linux/ui/views.h"

#include <QApplication>
#include <QFile>
#include <QPainter>

#include <string>

namespace voltmere {

namespace {

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

} // namespace

int drawScreenshots(const CommandLine& commandLine)
{
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

} // namespace voltmere
