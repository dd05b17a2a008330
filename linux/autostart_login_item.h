#pragma once

#include "linux/autostart_session.h"
#include "ports/login_item.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// What the program's own start-up entry says.
struct AutostartProgram {
    /// The absolute path of the file to start, in UTF-8; empty when it cannot be told.
    std::string file;

    /// The program's name for each locale such as "zh". The first one is for all others, and its
    /// locale is empty.
    std::vector<std::pair<std::string, std::string>> names;
};

/// The start-up entry org.voltmere.Voltmere.desktop, the user's or else the system's. The status is
/// what a session manager would decide at the next login. Nothing is remembered: each call reads
/// the files anew.
///
/// Registering keeps what the user changed in the entry. It takes "Hidden" away, puts
/// X-GNOME-Autostart-enabled to true, adds what an entry must have, and brings "Exec" and "TryExec"
/// up to date where both still name one program, as they were written here. Conditions that the
/// user set, such as "OnlyShowIn", stay; when one of them keeps the program from starting, that is
/// the failure reported.
///
/// Unregistering removes an entry that is byte for byte as written here, for whatever program file.
/// An entry that was changed, that is a link, or that stands before one of the system's, stays and
/// is hidden instead; an entry that only the system has is hidden by one of the user's.
///
/// Source: Desktop Application Autostart Specification 0.5.
class AutostartLoginItem : public LoginItemService {
public:
    AutostartLoginItem(AutostartProgram program, AutostartSession session);

    /// Either `enabled` or `notRegistered`.
    Status status() const override;
    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;

private:
    std::filesystem::path userEntry() const;
    std::optional<std::filesystem::path> systemEntry() const;
    bool startsWith(const std::string& text) const;
    std::string entryFor(const std::string& file) const;
    std::string hiddenEntry() const;
    bool isAsWritten(const std::string& text) const;
    std::string renewed(const std::string& text) const;
    std::optional<std::string> write(const std::string& text) const;
    std::optional<std::string> removeEntry() const;

    AutostartProgram program;
    AutostartSession session;
};

} // namespace voltmere
