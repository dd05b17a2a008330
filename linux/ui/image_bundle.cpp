#include "linux/ui/image_bundle.h"

#include <QResource>

namespace voltmere {

std::optional<QByteArray> findInProgram(const QString& baseName, const QString& extension)
{
    const QResource resource(QStringLiteral(":/voltmere/%1.%2").arg(baseName, extension));
    if (!resource.isValid()) {
        return std::nullopt;
    }
    return resource.uncompressedData();
}

} // namespace voltmere
