#include "app/demo_tools.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace voltmere {

std::string demoToolsDirectory()
{
    const QString program = QCoreApplication::applicationDirPath();
    const QString installed = program + "/../share/voltmere/demo";
    const QString built = program + "/share/voltmere/demo";
    const QString bundled = program + "/../Resources/demo";
    for (const QString& directory : {installed, bundled}) {
        if (QFileInfo::exists(directory + "/ioreg")) {
            return QFile::encodeName(directory).toStdString();
        }
    }
    return QFile::encodeName(built).toStdString();
}

} // namespace voltmere
