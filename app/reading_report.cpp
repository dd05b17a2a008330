#include "app/reading_report.h"

#include "alerting/status_text.h"
#include "app/terminal_width.h"
#include "texts/plain_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace voltmere {

namespace {

constexpr std::size_t columnGap = 2;
constexpr std::size_t levelWidth = 5;

std::string row(const std::string& name, std::size_t nameWidth, const std::string& level,
                const std::string& state)
{
    const std::size_t namePadding = nameWidth - std::min(terminalWidth(name), nameWidth);
    const std::size_t levelPadding = levelWidth - std::min(level.size(), levelWidth);
    return name + std::string(namePadding + columnGap + levelPadding, ' ') + level +
        std::string(columnGap, ' ') + state + '\n';
}

QJsonObject deviceJson(const BatteryDevice& device, std::int64_t threshold)
{
    return {{"id", qint64{device.id}},       {"name", QString::fromStdString(device.name)},
            {"level", qint64{device.level}}, {"symbol", QString::fromStdString(device.symbol)},
            {"order", qint64{device.order}}, {"low", isLow(device, threshold)}};
}

std::string compactJson(const QJsonObject& object)
{
    return escapedJson(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

/// The bar reads markup in tooltips.
QString waybarTooltip(const Reading& reading)
{
    QString tooltip =
        QString::fromStdString(plainText(statusText(reading.devices, reading.threshold)));
    for (const BatteryDevice& device : reading.devices) {
        tooltip += '\n' + QString::fromStdString(shownNameWithLevel(device));
    }
    return tooltip.toHtmlEscaped();
}

} // namespace

std::string readingTable(const Reading& reading)
{
    if (reading.devices.empty()) {
        return "No peripherals found\n";
    }
    const std::string heading = "NAME";
    std::size_t nameWidth = heading.size();
    for (const BatteryDevice& device : reading.devices) {
        nameWidth = std::max(nameWidth, terminalWidth(shownName(device)));
    }
    std::string table = row(heading, nameWidth, "LEVEL", "STATE");
    for (const BatteryDevice& device : reading.devices) {
        table += row(shownName(device), nameWidth, std::to_string(device.level) + '%',
                     isLow(device, reading.threshold) ? "low" : "ok");
    }
    return table;
}

std::string readingJson(const Reading& reading)
{
    QJsonArray devices;
    for (const BatteryDevice& device : reading.devices) {
        devices.append(deviceJson(device, reading.threshold));
    }
    const QJsonObject object{
        {"source", QString::fromStdString(reading.source)},
        {"devices", devices},
        {"threshold", qint64{reading.threshold}},
        {"status", QString::fromStdString(statusText(reading.devices, reading.threshold))}};
    return compactJson(object);
}

std::string readingWaybar(const Reading& reading)
{
    const auto weakest = weakestDevice(reading.devices);
    if (!weakest) {
        return compactJson({{"text", ""}, {"tooltip", waybarTooltip(reading)}, {"class", "none"}});
    }
    const QString state = isLow(*weakest, reading.threshold) ? "low" : "ok";
    return compactJson({{"text", QString::number(weakest->level) + "%"},
                        {"alt", state},
                        {"tooltip", waybarTooltip(reading)},
                        {"class", state},
                        {"percentage", qint64{weakest->level}}});
}

} // namespace voltmere
