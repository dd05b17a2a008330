#pragma once

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace voltmere {

/// Sees to it that the program runs once for each user session: the first holds the name
/// org.voltmere.Voltmere on the session bus, and a later start asks it to open its panel. The name
/// goes with the process that holds it, however that ends.
/// Source: Desktop Entry Specification, "D-Bus Activation" (org.freedesktop.Application).
class SingleInstance : public QObject {
public:
    enum class Role {
        first, ///< this process holds the name
        later, ///< another one does, and was asked to open its panel
        alone, ///< there is no session bus, or none that gives out the name
    };

    /// Takes the name, or asks the process that has it. Waits for the bus, a few milliseconds.
    Role start();

    /// Calls `action` whenever a later start asks for the panel.
    void onActivation(std::function<void()> action);

private:
    friend class ApplicationAdaptor;

    std::function<void()> open;
};

/// The object on the bus that later starts call.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance& instance);

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    SingleInstance& instance;
};

} // namespace voltmere
