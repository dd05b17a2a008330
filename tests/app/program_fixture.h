#pragma once

#include "tests/posix/temporary_directory.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <map>
#include <string>

namespace voltmere {

/// What became of one run of the program.
struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

/// One synthetic entry of the registry tool.
inline std::string registryEntry(int product, int level, const std::string& address)
{
    return "+-o AppleDeviceManagementHIDEventService  <class "
           "AppleDeviceManagementHIDEventService>\n"
           "    {\n      \"SerialNumber\" = \"" +
        address + "\"\n      \"BatteryPercent\" = " + std::to_string(level) +
        "\n      \"ProductID\" = " + std::to_string(product) + "\n    }\n";
}

/// A tool that prints `text`.
inline std::string printing(const std::string& text)
{
    return "#!/bin/sh\ncat <<'END'\n" + text + "END\n";
}

/// Runs the built program where it sees the user that the test made up, and no one else's: no
/// display, no message bus, no settings.
class ProgramTest : public testing::Test {
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(home());
        std::filesystem::create_directories(runtime());
        std::filesystem::permissions(runtime(), std::filesystem::perms{0700});
    }

    std::filesystem::path home() const { return directory / "home"; }
    std::filesystem::path runtime() const { return directory / "runtime"; }
    std::filesystem::path configuration() const { return directory / "configuration"; }
    std::filesystem::path tools() const { return directory / "tools"; }
    QStringList withTools(const QStringList& words) const
    {
        return words + QStringList{"--tools", QString::fromStdString(tools())};
    }
    std::filesystem::path settings() const
    {
        return configuration() / "voltmere" / "settings.json";
    }

    /// A mouse that is low, with a name of its own, a keyboard, a trackpad, and an unknown device.
    void makeTools() const
    {
        writeProgram(tools() / "ioreg",
                     printing(registryEntry(804, 45, "02-00-5e-00-53-03") +
                              registryEntry(619, 100, "02-00-5e-00-53-02") +
                              registryEntry(803, 14, "02-00-5e-00-53-01") +
                              registryEntry(612, 50, "02-00-5e-00-53-04")));
        writeProgram(tools() / "system_profiler",
                     printing("Bluetooth:\n\n      Connected:\n          Mouse of Ann:\n"
                              "              Address: 02:00:5E:00:53:01\n"));
    }

    QProcessEnvironment environment() const
    {
        QProcessEnvironment made;
        for (const char* const name :
             {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS",
              "VOLTMERE_MUTANT", "VOLTMERE_MUTANT_TRACE"}) {
            if (qEnvironmentVariableIsSet(name)) {
                made.insert(name, qEnvironmentVariable(name));
            }
        }
        made.insert("HOME", QString::fromStdString(home()));
        made.insert("XDG_RUNTIME_DIR", QString::fromStdString(runtime()));
        made.insert("XDG_CONFIG_HOME", QString::fromStdString(configuration()));
        for (const char* const bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"}) {
            made.insert(bus,
                        QString::fromStdString("unix:path=" + (runtime() / "no-bus").string()));
        }
        made.insert("TZ", "UTC");
        made.insert("LC_ALL", QString::fromStdString(locale));
        for (const auto& [name, value] : variables) {
            made.insert(QString::fromStdString(name), QString::fromStdString(value));
        }
        return made;
    }

    /// Starts the program and leaves it running.
    void start(QProcess& program, const QStringList& words) const
    {
        program.setProcessEnvironment(environment());
        program.start(QString::fromStdString(executable), words);
        EXPECT_TRUE(program.waitForStarted(60'000)) << words.join(' ').toStdString();
    }

    Outcome run(const QStringList& words, const std::string& outputFile = {}) const
    {
        QProcess program;
        if (!outputFile.empty()) {
            program.setStandardOutputFile(QString::fromStdString(outputFile));
        }
        start(program, words);
        EXPECT_TRUE(program.waitForFinished(60'000)) << words.join(' ').toStdString();
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        return {program.exitCode(), program.readAllStandardOutput().toStdString(),
                program.readAllStandardError().toStdString()};
    }

    static QJsonObject parsed(const std::string& json)
    {
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
        return document.object();
    }

    TemporaryDirectory directory;
    std::string executable = VOLTMERE_PROGRAM;
    std::string locale = "C.UTF-8";
    std::map<std::string, std::string> variables; ///< more of the environment
};

} // namespace voltmere
