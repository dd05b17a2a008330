#pragma once

#include "linux/autostart_login_item.h"
#include "posix/temporary_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace voltmere {

/// A user and a system with autostart directories that are not there yet, and a program.
class AutostartFixture : public testing::Test {
protected:
    AutostartFixture() { writeProgram(program.file, "#!/bin/sh\n"); }

    AutostartLoginItem item() const { return {program, session}; }

    bool isOn() const { return item().status() == LoginItemService::Status::enabled; }

    /// The entry as the program writes it.
    static std::string entryFor(const std::string& file, const std::string& addition = "")
    {
        return "[Desktop Entry]\n"
               "Type=Application\n"
               "Name=Cellsentry\n"
               "Name[zh_CN]=续航哨兵\n"
               "Exec=" +
            file + "\nTryExec=" + file +
            "\nIcon=org.voltmere.Voltmere\n"
            "Terminal=false\n"
            "StartupNotify=false\n"
            "X-GNOME-Autostart-enabled=true\n" +
            addition;
    }

    std::string ownEntry(const std::string& addition = "") const
    {
        return entryFor(program.file, addition);
    }

    /// What a failure says that concerns the user's entry.
    std::string atUserEntry(const std::string& reason) const
    {
        return userEntry.string() + ": " + reason;
    }

    static constexpr const char* entryName = "org.voltmere.Voltmere.desktop";

    TemporaryDirectory directory;
    std::filesystem::path userDirectory = directory / "home" / ".config" / "autostart";
    std::filesystem::path userEntry = userDirectory / entryName;
    std::filesystem::path systemEntry = directory / "etc" / "xdg" / "autostart" / entryName;
    AutostartProgram program{.file = directory / "bin" / "voltmere",
                             .names = {{"", "Cellsentry"}, {"zh_CN", "续航哨兵"}}};
    AutostartSession session{
        .userDirectory = userDirectory,
        .systemDirectories = {directory / "etc" / "other" / "autostart", systemEntry.parent_path()},
        .desktops = {"GNOME"},
        .programDirectories = {}};
};

} // namespace voltmere
