#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace voltmere {

/// Finds a picture by its base name and its extension, and gives its bytes; nothing where there is
/// no such picture.
using ImageBundle =
    std::function<std::optional<QByteArray>(const QString& baseName, const QString& extension)>;

/// A picture of those that are part of the program. The bytes are not copied: they are the
/// program's own and last as long as it runs.
std::optional<QByteArray> findInProgram(const QString& baseName, const QString& extension);

} // namespace voltmere
