#pragma once

#include <QString>

#include <optional>

namespace voltmere {

/// Moves a damaged file beside itself, as "<name>.damaged-<time>", so that the next write starts a
/// new one and nothing that a user wrote is lost. Returns the new path; nothing where the file
/// cannot be moved.
std::optional<QString> setAside(const QString& path);

} // namespace voltmere
