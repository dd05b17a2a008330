#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <QTest>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace voltmere {

/// An object of another program on a message bus, which does as the test says. It answers while
/// the event loop of the thread that made it turns.
class FakeBusService : public QDBusVirtualObject {
public:
    /// The reply to a call; nothing for a program that hangs.
    using Answer = std::function<std::optional<QDBusMessage>(const QDBusMessage& call)>;

    FakeBusService(QDBusConnection given, QString givenPath, Answer answer)
        : bus(std::move(given))
        , path(std::move(givenPath))
        , answer(std::move(answer))
    {
        bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
    }

    ~FakeBusService() override
    {
        for (const QString& name : names) {
            bus.unregisterService(name);
        }
        bus.unregisterObject(path);
    }

    FakeBusService(const FakeBusService&) = delete;
    FakeBusService& operator=(const FakeBusService&) = delete;

    /// Takes a well-known name, as a program does when it is ready.
    void appear(const QString& name)
    {
        bus.registerService(name);
        names.push_back(name);
    }

    void emitSignal(const QString& interface, const QString& signal,
                    const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, signal);
        message.setArguments(arguments);
        bus.send(message);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override
    {
        calls.push_back(call);
        if (const auto reply = answer(call)) {
            connection.send(*reply);
        }
        return true;
    }

    QDBusConnection connection() const { return bus; }

    /// Waits until this process has dealt with all that was sent to its connection `receiver` so
    /// far.
    void waitUntilDealtWith(QDBusConnection receiver) const
    {
        bool arrived = false;
        const FakeBusService echo(receiver, "/echo", [&arrived](const QDBusMessage& call) {
            arrived = true;
            return call.createReply();
        });
        bus.asyncCall(
            QDBusMessage::createMethodCall(receiver.baseService(), "/echo", "test.Echo", "Echo"));
        EXPECT_TRUE(QTest::qWaitFor([&arrived] { return arrived; }, 60'000));
        QCoreApplication::processEvents();
    }

    /// The calls so far, the latest last.
    std::vector<QDBusMessage> calls;

private:
    QDBusConnection bus;
    QString path;
    Answer answer;
    std::vector<QString> names;
};

} // namespace voltmere
