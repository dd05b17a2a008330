#pragma once

#include <QByteArray>

/// The permission to take the focus that the desktop grants for one action of the user. It is in
/// the environment, where Qt looks for it when a window asks for the focus; the desktop accepts
/// each token once. Source: the xdg-activation protocol, which names the variable.
namespace voltmere::activationToken {

inline constexpr const char* variable = "XDG_ACTIVATION_TOKEN";

/// The present token; empty without one.
inline QByteArray current()
{
    return qgetenv(variable);
}

/// Stores `token` for the next activation.
inline void leave(const QByteArray& token)
{
    qputenv(variable, token);
}

/// Removes the token, so that no later window uses it and no child inherits it.
inline void drop()
{
    qunsetenv(variable);
}

} // namespace voltmere::activationToken
