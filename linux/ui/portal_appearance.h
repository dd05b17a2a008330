#pragma once

#include "ports/desktop.h"

#include <QObject>

class QDBusVariant;

namespace voltmere {

/// The desktop's colour scheme from the settings portal. Without an answer or a preference the
/// scheme of the palette at start counts. Never waits for the portal: the answer arrives as a
/// change. Source: XDG desktop portal, org.freedesktop.portal.Settings, key
/// org.freedesktop.appearance color-scheme (0 no preference, 1 dark, 2 light).
class PortalAppearance : public QObject, public Appearance {
    Q_OBJECT

public:
    PortalAppearance();

    std::optional<ColourScheme> bestMatch() const override;
    void onChange(std::function<void()> action) override;

private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void take(const QVariant& value);

    const ColourScheme startingScheme;
    std::optional<ColourScheme> preferred;
    std::function<void()> changed;
};

} // namespace voltmere
