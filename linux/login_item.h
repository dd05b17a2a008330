#pragma once

#include "ports/login_item.h"

#include <filesystem>
#include <optional>
#include <string>

namespace voltmere {

/// The program's own start-up entry, org.voltmere.Voltmere.desktop among the user's. It belongs to
/// the program: registering writes it whole, unregistering removes it. Nothing is remembered: each
/// call reads the file anew.
///
/// The entry is on when it exists and has neither `Hidden=true` nor
/// `X-GNOME-Autostart-enabled=false`; desktops switch entries off with these.
///
/// Source: Desktop Application Autostart Specification 0.5.
class LoginItem : public LoginItemService {
public:
    /// `directory` holds the user's entries. `program` is the absolute path of the file to start.
    LoginItem(const std::filesystem::path& directory, std::string program);

    /// Either `enabled` or `notRegistered`.
    bool isEnabled() const override;
    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;

private:
    std::filesystem::path entry;
    std::string program;
};

/// The directory of this user's start-up entries.
std::filesystem::path autostartDirectory();

/// The file that starts this program: the running executable, or the AppImage that holds it, which
/// is mounted at another place each time. Source: AppImage documentation, "Environment variables".
std::string runningProgram();

} // namespace voltmere
