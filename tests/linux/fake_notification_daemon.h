#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include <utility>
#include <vector>

namespace voltmere {

/// A notification daemon that does as the test says and keeps what it is asked to show.
class FakeNotificationDaemon : public QDBusVirtualObject {
public:
    enum class Manner { answers, refuses, hangs, talksNonsense };

    /// One call of Notify.
    struct Notification {
        uint id;
        QString applicationName;
        uint replaces;
        QString icon;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int duration;
    };

    explicit FakeNotificationDaemon(QDBusConnection given)
        : bus(std::move(given))
    {
        bus.registerVirtualObject(path, this);
        appear();
    }

    ~FakeNotificationDaemon() override { bus.unregisterObject(path); }

    QString uniqueName() const { return bus.baseService(); }

    /// The name by which this program knows the connection.
    QString connectionName() const { return bus.name(); }

    void appear() { bus.registerService(name); }
    void disappear() { bus.unregisterService(name); }

    void emitActionInvoked(uint id, const QString& key) { emitSignal("ActionInvoked", {id, key}); }

    void emitActivationToken(uint id, const QString& token)
    {
        emitSignal("ActivationToken", {id, token});
    }

    void emitNotificationClosed(uint id, uint reason)
    {
        emitSignal("NotificationClosed", {id, reason});
    }

    /// Sends a signal of the daemon's interface from this connection, the name's owner or not.
    void emitSignal(const QString& member, const QVariantList& arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, name, member);
        signal.setArguments(arguments);
        bus.send(signal);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/) override
    {
        if (call.interface() == name && call.member() == "GetCapabilities") {
            ++capabilityCalls;
            answer(call, capabilityManner, capabilities);
            return true;
        }
        if (call.interface() == name && call.member() == "Notify") {
            keep(call.arguments());
            answer(call, notifyManner, shown.back().id);
            return true;
        }
        if (call.interface() == name && call.member() == "CloseNotification") {
            closed.push_back(call.arguments().value(0).toUInt());
            return true;
        }
        return false;
    }

    const QString name = "org.freedesktop.Notifications";
    const QString path = "/org/freedesktop/Notifications";
    QStringList capabilities{"actions", "body", "body-markup"};
    Manner capabilityManner = Manner::answers;
    Manner notifyManner = Manner::answers;
    QString complaint = "No room"; ///< what it says when it refuses
    int capabilityCalls = 0;
    uint nextId = 1;
    std::vector<Notification> shown;
    std::vector<uint> closed; ///< numbers that it was asked to close

private:
    void keep(const QVariantList& words)
    {
        shown.push_back({nextId++, words[0].toString(), words[1].toUInt(), words[2].toString(),
                         words[3].toString(), words[4].toString(), words[5].toStringList(),
                         qdbus_cast<QVariantMap>(words[6]), words[7].toInt()});
    }

    void answer(const QDBusMessage& call, Manner manner, const QVariant& result)
    {
        if (manner == Manner::answers) {
            bus.send(call.createReply(result));
        } else if (manner == Manner::refuses) {
            bus.send(call.createErrorReply("org.example.Refused", complaint));
        } else if (manner == Manner::talksNonsense) {
            bus.send(call.createReply(QVariant::fromValue(1.5)));
        }
    }

    QDBusConnection bus;
};

} // namespace voltmere
