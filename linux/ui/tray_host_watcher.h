#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>
#include <functional>

namespace voltmere {

/// Tells when the desktop has a place for tray icons: a StatusNotifier host on the session bus, or
/// the owner of the X selection _NET_SYSTEM_TRAY_S0.
///
/// Qt decides between the two once, at the first use of QSystemTrayIcon, and an icon made before
/// any host exists never shows. So the program makes the icon only after this class reports a host.
/// Sources: StatusNotifierItem specification (org.kde.StatusNotifierWatcher); System Tray Protocol
/// specification (the MANAGER message).
class TrayHostWatcher : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// Calls `available` once, on the main thread, as soon as there is a host: at the earliest in
    /// the next turn of the event loop.
    explicit TrayHostWatcher(std::function<void()> available);

private slots:
    void report();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    void askBus();
    bool selectionHasOwner() const;

    std::function<void()> available;
    std::uint32_t traySelection{}; ///< X atom; 0 off X11
    std::uint32_t managerMessage{};
};

} // namespace voltmere
