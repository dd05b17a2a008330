#pragma once

#include <QString>

namespace voltmere {

/// Makes the directory for its owner alone (0700), unless it is there. Says whether it is there
/// now.
bool makePrivateDirectory(const QString& path);

} // namespace voltmere
