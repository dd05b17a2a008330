#include "linux/ui/tray_host_watcher.h"

#include "linux/bus_call.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace voltmere {

namespace {

/// The X selection that a tray owns.
constexpr const char* xTraySelection = "_NET_SYSTEM_TRAY_S0";

/// Owns a reply of the X server, which XCB allocates and its caller frees.
template<typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return {reply, &std::free};
}

xcb_connection_t* xConnection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t internAtom(xcb_connection_t* connection, const QByteArray& name)
{
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// Subscribes to a tray's messages to the root window, beside Qt's own subscriptions.
void listenToRoot(xcb_connection_t* connection)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto cookie = xcb_get_window_attributes(connection, root);
    const auto attributes = owned(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    if (!attributes) {
        return;
    }
    const std::uint32_t mask = attributes->your_event_mask | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection);
}

} // namespace

TrayHostWatcher::TrayHostWatcher(std::function<void()> available)
    : available(std::move(available))
{
    if (xcb_connection_t* const connection = xConnection()) {
        traySelection = internAtom(connection, xTraySelection);
        managerMessage = internAtom(connection, "MANAGER");
        qGuiApp->installNativeEventFilter(this);
        listenToRoot(connection);
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(busNames::statusNotifierWatcher, busNames::statusNotifierWatcherPath,
                busNames::statusNotifierWatcher, QStringLiteral("StatusNotifierHostRegistered"),
                this, SLOT(report()));
    auto* service = new QDBusServiceWatcher(busNames::statusNotifierWatcher, bus,
                                            QDBusServiceWatcher::WatchForRegistration, this);
    connect(service, &QDBusServiceWatcher::serviceRegistered, this, &TrayHostWatcher::askBus);
    askBus();
}

void TrayHostWatcher::askBus()
{
    QDBusMessage call = QDBusMessage::createMethodCall(busNames::statusNotifierWatcher,
                                                       busNames::statusNotifierWatcherPath,
                                                       busNames::properties, QStringLiteral("Get"));
    call << busNames::statusNotifierWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    callBus(QDBusConnection::sessionBus(), call, this, [this](const QDBusMessage& message) {
        const QDBusPendingReply<QDBusVariant> reply(message);
        const bool hasHost = reply.isValid() && reply.value().variant().toBool();
        if (hasHost || selectionHasOwner()) {
            report();
        }
    });
}

bool TrayHostWatcher::selectionHasOwner() const
{
    xcb_connection_t* const connection = xConnection();
    if (connection == nullptr) {
        return false;
    }
    const auto cookie = xcb_get_selection_owner(connection, traySelection);
    const auto reply = owned(xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool TrayHostWatcher::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                        qintptr* /*result*/)
{
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7FU) == XCB_CLIENT_MESSAGE) {
        const auto* client = static_cast<const xcb_client_message_event_t*>(message);
        if (client->type == managerMessage && client->data.data32[1] == traySelection) {
            report();
        }
    }
    return false;
}

void TrayHostWatcher::report()
{
    if (const auto action = std::exchange(available, {})) {
        action();
    }
}

} // namespace voltmere
