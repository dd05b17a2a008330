#include "linux/notifications.h"

#include "linux/activation_token.h"
#include "linux/bus_call.h"
#include "linux/environment.h"
#include "ports/desktop.h"
#include "texts/l10n.h"
#include "texts/plain_text.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QPointer>
#include <QStringList>
#include <QVariantMap>

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

/// The bus name, which is the interface's name too.
const QString& service = busNames::notifications;
const QString& path = busNames::notificationsPath;

constexpr const char* delayedKey = "delayed";
constexpr const char* defaultActionKey = "default"; ///< a click on the notification itself
constexpr uint dismissedByUser = 2;                 ///< reason of NotificationClosed

/// A damaged file may hold any delay, and timers count nanoseconds in 64 bits: 292 years.
constexpr Seconds longestDelay = std::chrono::days(366);
constexpr Seconds retryInterval = std::chrono::minutes(1);

template<typename Type>
Type valueOf(const JsonRecord& record, const char* key, Type otherwise)
{
    const auto found = record.find(key);
    const Type* value = found == record.end() ? nullptr : std::get_if<Type>(&found->second);
    return value == nullptr ? otherwise : *value;
}

JsonRecord recordOf(const NotificationRequest& request, Seconds due)
{
    const NotificationContent& content = request.content;
    return {{"identifier", request.identifier},
            {"title", content.title},
            {"body", content.body},
            {"sound", content.defaultSound},
            {"category", content.category},
            {"delay", request.delay->count()},
            {"due", due.count()}};
}

NotificationRequest requestOf(const JsonRecord& record)
{
    const auto text = [&record](const char* key) { return valueOf(record, key, std::string()); };
    return {text("identifier"),
            {text("title"), text("body"), valueOf(record, "sound", false), text("category")},
            Seconds(valueOf(record, "delay", 0.0))};
}

QString shownText(const std::string& text)
{
    return QString::fromStdString(plainText(text));
}

/// Keys and titles in turn, the click on the notification itself first.
QStringList actionWords(const std::vector<NotificationAction>& actions)
{
    // A daemon that shows every title as a button makes none of an empty one. GLib sends the same.
    QStringList words{defaultActionKey, QString()};
    for (const NotificationAction& action : actions) {
        words << QString::fromStdString(action.identifier) << shownText(action.title);
    }
    return words;
}

/// Sources: Desktop Notifications Specification 1.2, "Hints"; XDG Sound Naming Specification 0.8.
QVariantMap hints(bool sound)
{
    constexpr uchar normalUrgency = 1;
    QVariantMap result{{"desktop-entry", applicationId},
                       {"urgency", QVariant::fromValue(normalUrgency)}};
    if (sound) {
        result.insert("sound-name", "message-new-instant");
    } else {
        result.insert("suppress-sound", true);
    }
    return result;
}

QDBusMessage methodCall(const QString& daemon, const char* method)
{
    return QDBusMessage::createMethodCall(daemon, path, service, QString::fromLatin1(method));
}

} // namespace

DesktopNotifications::DesktopNotifications(QDBusConnection bus,
                                           const std::filesystem::path& delayedFile,
                                           RunLoop& runLoop, const Clock& clock, SystemLog& log)
    : bus(std::move(bus))
    , file(delayedFile, "delayed notifications", SettingsUse::readAndWrite, log)
    , runLoop(runLoop)
    , clock(clock)
    , log(log)
{
    JsonContent content = file.load();
    const auto* const records = std::get_if<std::vector<JsonRecord>>(&content.entries[delayedKey]);
    for (const JsonRecord& record : records == nullptr ? std::vector<JsonRecord>() : *records) {
        Delayed& entry = delayed.emplace_back(
            Delayed{requestOf(record), Seconds(valueOf(record, "due", 0.0)), nullptr});
        // After the clock was set back, no notification waits for longer than its delay.
        arm(entry,
            std::min<Seconds>(entry.due - clock.now().time_since_epoch(), *entry.request.delay));
    }
}

void DesktopNotifications::add(NotificationRequest request)
{
    if (!request.delay) {
        present(request);
        return;
    }
    const Seconds delay = *request.delay;
    const Seconds due = clock.now().time_since_epoch() + delay;
    arm(delayed.emplace_back(Delayed{std::move(request), due, nullptr}), delay);
    save();
}

void DesktopNotifications::save()
{
    std::vector<JsonRecord> records;
    for (const Delayed& entry : delayed) {
        records.push_back(recordOf(entry.request, entry.due));
    }
    file.set(delayedKey, records);
}

void DesktopNotifications::arm(Delayed& entry, Seconds delay)
{
    entry.timer = runLoop.scheduleOnce(std::max(Seconds::zero(), std::min(delay, longestDelay)),
                                       [this, request = entry.request] { present(request); });
}

void DesktopNotifications::tryAgainLater(const NotificationRequest& request, const QString& error)
{
    log.report("there is no notification service that answers", error.toStdString());
    for (Delayed& entry : delayed) {
        if (entry.request.identifier == request.identifier) {
            arm(entry, retryInterval);
        }
    }
}

void DesktopNotifications::present(const NotificationRequest& request)
{
    const auto go = [this, alive = QPointer(this), request](std::uint32_t options) {
        if (alive) {
            askDaemon(request, options);
        }
    };
    if (delegate == nullptr) {
        go(presentation::banner | presentation::sound);
    } else {
        delegate->willPresent(go);
    }
}

void DesktopNotifications::askDaemon(const NotificationRequest& request, std::uint32_t options)
{
    const bool sound = request.content.defaultSound && (options & presentation::sound) != 0;
    // This starts the daemon if the bus can. Qt does not tell the sender of a reply, so the program
    // asks the bus.
    callBus(bus, methodCall(service, "GetCapabilities"), this,
            [this, request, sound](const QDBusMessage& reply) {
                const QDBusPendingReply<QStringList> capabilities(reply);
                if (capabilities.isError()) {
                    tryAgainLater(request, capabilities.error().message());
                    return;
                }
                QDBusMessage question = QDBusMessage::createMethodCall(
                    busNames::bus, busNames::busPath, busNames::bus, "GetNameOwner");
                question << service;
                callBus(bus, question, this,
                        [this, request, sound,
                         capabilities = capabilities.value()](const QDBusMessage& ownerReply) {
                            const QDBusPendingReply<QString> owner(ownerReply);
                            if (owner.isError()) {
                                tryAgainLater(request, owner.error().message());
                            } else {
                                show(request, sound, owner.value(), capabilities);
                            }
                        });
            });
}

void DesktopNotifications::show(const NotificationRequest& request, bool sound,
                                const QString& daemon, const QStringList& capabilities)
{
    // If the program ends in between, the notification is lost; the other order would show it
    // twice.
    if (std::erase_if(delayed, [&](const Delayed& entry) {
            return entry.request.identifier == request.identifier;
        }) > 0) {
        save();
    }
    constexpr uint replacesNothing = 0;
    constexpr int daemonsOwnDuration = -1; // milliseconds otherwise
    std::vector<NotificationAction> actions;
    for (const NotificationCategory& category : categories) {
        if (category.identifier == request.content.category) {
            actions = category.actions;
        }
    }
    const QString body = shownText(request.content.body);
    QDBusMessage call = methodCall(daemon, "Notify");
    call << shownText(L10n::t("app.name")) << replacesNothing << QString(applicationId)
         << shownText(request.content.title)
         << (capabilities.contains("body-markup") ? body.toHtmlEscaped() : body)
         << (capabilities.contains("actions") ? actionWords(actions) : QStringList())
         << hints(sound) << daemonsOwnDuration;

    if (!std::exchange(listening, true)) {
        // With a sender named here, Qt would wait for the bus to resolve it, and would end the
        // program where the bus has ended. The slot checks the sender instead.
        for (const char* const name : {"ActivationToken", "ActionInvoked", "NotificationClosed"}) {
            bus.connect({}, path, service, name, this, SLOT(takeSignal(QDBusMessage)));
        }
    }
    callBus(bus, call, this, [this, daemon, actions](const QDBusMessage& reply) {
        const QDBusPendingReply<uint> id(reply);
        if (id.isError()) {
            log.report("the notification service did not show a notification",
                       id.error().message().toStdString());
        } else {
            shown.push_back({daemon, actions, id.value(), {}});
        }
    });
}

void DesktopNotifications::takeSignal(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    const uint id = arguments.value(0).toUInt();
    const QString word = arguments.value(1).toString();
    const auto found = std::find_if(shown.begin(), shown.end(), [&](const Shown& entry) {
        return entry.id == id && entry.daemon == signal.service();
    });
    if (found == shown.end()) {
        return;
    }
    if (signal.member() == "ActivationToken") {
        found->activationToken = word.toUtf8();
        return;
    }
    const Shown entry = std::move(*found);
    shown.erase(found);
    if (signal.member() == "NotificationClosed") {
        if (arguments.value(1).toUInt() == dismissedByUser) {
            tell(standardAction::dismiss);
        }
        return;
    }
    // Some daemons keep a notification on screen after a choice, where a second choice would do
    // nothing. Closing one that is already gone does no harm.
    QDBusMessage close = methodCall(entry.daemon, "CloseNotification");
    close << entry.id;
    bus.send(close);
    for (const NotificationAction& action : entry.offered) {
        if (action.identifier == word.toStdString()) {
            if (action.foreground) {
                activationToken::leave(entry.activationToken);
            }
            tell(action.identifier);
        }
    }
    if (word == defaultActionKey) {
        tell(standardAction::open);
    }
}

void DesktopNotifications::tell(const std::string& action)
{
    if (delegate != nullptr) {
        delegate->didReceive(*this, action, [] { /* the daemon waits for nothing */ });
    }
}

std::filesystem::path delayedNotificationsPath()
{
    return userDirectory("XDG_STATE_HOME", ".local/state") / "voltmere" / "notifications.json";
}

} // namespace voltmere
