#include "platform/qt/private_directory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace voltmere {

bool makePrivateDirectory(const QString& path)
{
    constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    return QFileInfo(path).isDir() ||
        (QDir().mkpath(QFileInfo(path).path()) && QDir().mkdir(path, ownerOnly));
}

} // namespace voltmere
