#pragma once

#include "linux/fake_bus_service.h"

#include <QDBusArgument>
#include <QStringList>
#include <QVariantMap>

#include <optional>
#include <vector>

namespace voltmere {

/// A notification daemon that does as the test says and keeps what it is asked to show.
class FakeNotificationDaemon : public FakeBusService {
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

    explicit FakeNotificationDaemon(const QDBusConnection& bus)
        : FakeBusService(bus, "/org/freedesktop/Notifications",
                         [this](const QDBusMessage& call) { return answerTo(call); })
    {
        appear();
    }

    void appear() { FakeBusService::appear(name); }
    void disappear() { connection().unregisterService(name); }

    void emitActionInvoked(uint id, const QString& key)
    {
        emitSignal(name, "ActionInvoked", {id, key});
    }

    void emitActivationToken(uint id, const QString& token)
    {
        emitSignal(name, "ActivationToken", {id, token});
    }

    void emitNotificationClosed(uint id, uint reason)
    {
        emitSignal(name, "NotificationClosed", {id, reason});
    }

    QStringList capabilities{"actions", "body", "body-markup"};
    Manner capabilityManner = Manner::answers;
    Manner notifyManner = Manner::answers;
    QString complaint = "No room"; ///< what it says when it refuses
    int capabilityCalls = 0;
    uint nextId = 1;
    std::vector<Notification> shown;
    std::vector<uint> closed; ///< numbers that it was asked to close

private:
    std::optional<QDBusMessage> answerTo(const QDBusMessage& call)
    {
        const QVariantList words = call.arguments();
        if (call.member() == "GetCapabilities") {
            ++capabilityCalls;
            return answer(call, capabilityManner, capabilities);
        }
        if (call.member() == "Notify") {
            shown.push_back({nextId++, words[0].toString(), words[1].toUInt(), words[2].toString(),
                             words[3].toString(), words[4].toString(), words[5].toStringList(),
                             qdbus_cast<QVariantMap>(words[6]), words[7].toInt()});
            return answer(call, notifyManner, shown.back().id);
        }
        if (call.member() == "CloseNotification") {
            closed.push_back(words.value(0).toUInt());
        }
        return call.createReply();
    }

    std::optional<QDBusMessage> answer(const QDBusMessage& call, Manner manner,
                                       const QVariant& result) const
    {
        switch (manner) {
        case Manner::answers:
            return call.createReply(result);
        case Manner::refuses:
            return call.createErrorReply("org.example.Refused", complaint);
        case Manner::talksNonsense:
            return call.createReply(QVariant::fromValue(1.5));
        case Manner::hangs:
            break;
        }
        return std::nullopt;
    }

    const QString name = "org.freedesktop.Notifications";
};

} // namespace voltmere
