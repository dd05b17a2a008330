#include "linux/damaged_file.h"

#include <QDateTime>
#include <QFile>

namespace voltmere {

std::optional<QString> setAside(const QString& path)
{
    const QString time = QDateTime::currentDateTimeUtc().toString("yyyyMMdd'T'HHmmss.zzz'Z'");
    const QString keptAs = path + ".damaged-" + time;
    return QFile::rename(path, keptAs) ? std::optional(keptAs) : std::nullopt;
}

} // namespace voltmere
