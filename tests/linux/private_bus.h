#pragma once

#include "posix/temporary_directory.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <QStringList>

#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// A message bus of one test's own, on which no service starts by itself. Whoever asks it to start
/// BlueZ leaves a file.
class PrivateBus {
public:
    PrivateBus()
    {
        writeFile(
            directory / "bus.conf",
            R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
                       "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
                     <busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
                     <servicedir>)" +
                directory.path().string() + R"(</servicedir>
                     <policy context="default"><allow send_destination="*" eavesdrop="true"/>
                     <allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)");
        writeFile(directory / "org.bluez.service",
                  "[D-BUS Service]\nName=org.bluez\nExec=/usr/bin/touch " +
                      bluezStarted().string() + '\n');
        const std::string configuration = "--config-file=" + (directory / "bus.conf").string();
        process.start("dbus-daemon",
                      {QString::fromStdString(configuration), "--nofork", "--print-address"});
        EXPECT_TRUE(process.waitForReadyRead()) << "needs dbus-daemon";
        address = QString::fromUtf8(process.readLine().trimmed());
    }

    ~PrivateBus()
    {
        for (const QString& name : names) {
            QDBusConnection::disconnectFromBus(name);
        }
        stop();
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Where other processes find it.
    const QString& busAddress() const { return address; }

    std::filesystem::path bluezStarted() const { return directory / "bluez-started"; }

    /// A new connection, as of another program.
    QDBusConnection connect()
    {
        static int number = 0;
        names.push_back("private-bus-" + QString::number(++number));
        return QDBusConnection::connectToBus(address, names.back());
    }

    void stop()
    {
        process.kill();
        process.waitForFinished();
    }

private:
    TemporaryDirectory directory;
    QProcess process;
    QString address;
    std::vector<QString> names;
};

} // namespace voltmere
