#include "linux/ui/portal_appearance.h"

#include "linux/bus_call.h"
#include "linux/ui/theme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QMetaType>
#include <QPalette>

#include <utility>

namespace voltmere {

namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

/// The value inside however many variants the portal wrapped it in: "Read" uses two.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalAppearance::PortalAppearance()
    : startingScheme(isDark(QGuiApplication::palette()) ? ColourScheme::dark : ColourScheme::light)
{
    // Qt connects a signal by the names of its types, and its bus library registers this type only
    // with the first message.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection::sessionBus().connect(
        busNames::desktopPortal, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
        {appearanceSpace}, QString(), this, SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call = QDBusMessage::createMethodCall(busNames::desktopPortal, portalPath,
                                                       settingsInterface, QStringLiteral("Read"));
    call << appearanceSpace << schemeKey;
    callBus(QDBusConnection::sessionBus(), call, this, [this](const QDBusMessage& message) {
        const QDBusPendingReply<QDBusVariant> reply(message);
        if (reply.isValid()) {
            take(reply.value().variant());
        }
    });
}

std::optional<ColourScheme> PortalAppearance::bestMatch() const
{
    return preferred.value_or(startingScheme);
}

void PortalAppearance::onChange(std::function<void()> action)
{
    changed = std::move(action);
}

void PortalAppearance::settingChanged(const QString& space, const QString& key,
                                      const QDBusVariant& value)
{
    if (space == appearanceSpace && key == schemeKey) {
        take(value.variant());
    }
}

void PortalAppearance::take(const QVariant& value)
{
    const auto previous = bestMatch();
    const uint preference = unwrapped(value).toUInt();
    preferred = preference == prefersDark ? std::optional(ColourScheme::dark)
        : preference == prefersLight      ? std::optional(ColourScheme::light)
                                          : std::nullopt;
    if (changed && bestMatch() != previous) {
        changed();
    }
}

} // namespace voltmere
