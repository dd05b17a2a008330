#pragma once

#include <QByteArray>

namespace voltmere::activationToken {

// A desktop's permission to take the focus, granted for an action of the user. The environment
// holds the token, where Qt looks for it when a window asks for the focus. A token counts once.
// Source: the xdg-activation protocol, which names the variable.

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

inline void drop()
{
    qunsetenv(variable);
}

} // namespace voltmere::activationToken
