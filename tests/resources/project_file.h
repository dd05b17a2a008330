#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QString>

namespace voltmere {

/// The text of a file of the project; the test fails when it cannot be read.
inline QString projectFile(const QString& path)
{
    QFile file(QString(VOLTMERE_SOURCE_DIR "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace voltmere
