#pragma once

#include <QByteArray>

namespace voltmere::activationToken {

// A desktop's permission to take the focus, which it gives with what the user did. It stands in the
// environment, where Qt looks for it when a window asks for the focus, and counts once.
// Source: the xdg-activation protocol, which names the variable.

inline constexpr const char* variable = "XDG_ACTIVATION_TOKEN";

/// The one at hand; empty where there is none.
inline QByteArray current()
{
    return qgetenv(variable);
}

/// Puts a new one where the next activation finds it. An empty one changes nothing.
inline void leave(const QByteArray& token)
{
    if (!token.isEmpty()) {
        qputenv(variable, token);
    }
}

inline void drop()
{
    qunsetenv(variable);
}

} // namespace voltmere::activationToken
