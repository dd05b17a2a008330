#include "linux/login_item.h"

#include "linux/atomic_file.h"
#include "linux/environment.h"
#include "linux/installation.h"
#include "ports/desktop.h"
#include "texts/l10n.h"
#include "texts/plain_text.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

std::string failureAt(const fs::path& path, const std::string& reason)
{
    return path.string() + ": " + reason;
}

/// Whether the path can stand in an entry: UTF-8 on one line. A backslash would need different
/// escapes in Exec and TryExec.
bool canBeWritten(const std::string& program)
{
    return !program.empty() && isValidUtf8(program) &&
        std::ranges::none_of(program, [](unsigned char c) { return c < ' ' || c == '\\'; });
}

/// The value of "Exec" that starts `program`. Within the quotes a backslash escapes `"`, `$` and a
/// backquote, and an entry doubles each backslash.
///
/// A percent sign is written "%%", and the first word may hold no equal sign. GLib and systemd do
/// not undo "%%" in the first word, so a path with either is passed to "nice -n 0", which only
/// starts it.
///
/// Source: Desktop Entry Specification 1.5, "The Exec key", "Possible value types".
std::string execStarting(std::string_view program)
{
    std::string quoted;
    for (const char character : program) {
        if (character == '"' || character == '`' || character == '$') {
            quoted += R"(\\)";
        } else if (character == '%') {
            quoted += '%';
        }
        quoted += character;
    }
    const bool needsStarter = program.find_first_of("%=") != std::string_view::npos;
    return (needsStarter ? "nice -n 0 \"" : "\"") + quoted + '"';
}

/// TryExec keeps a session from complaining about a program that has been removed since.
std::string entryFor(const std::string& program)
{
    std::ostringstream text;
    text << "[Desktop Entry]\n"
         << "Type=Application\n"
         << "Name=" << L10n::en().at("app.name") << '\n'
         << "Name[zh]=" << L10n::zh().at("app.name") << '\n'
         << "Exec=" << execStarting(program) << '\n'
         << "TryExec=" << program << '\n'
         << "Icon=" << applicationId << '\n'
         << "Terminal=false\n"
         << "StartupNotify=false\n";
    return text.str();
}

bool isSwitchedOff(const std::string& entryText)
{
    std::istringstream lines(entryText);
    for (std::string line; std::getline(lines, line);) {
        std::erase_if(line, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
        if (line.starts_with('[') && line != "[DesktopEntry]") {
            break;
        }
        if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false") {
            return true;
        }
    }
    return false;
}

std::optional<std::string> removeFile(const fs::path& path)
{
    if (::unlink(path.c_str()) == 0 || errno == ENOENT) {
        return std::nullopt;
    }
    return failureAt(path, std::error_code(errno, std::generic_category()).message());
}

} // namespace

LoginItem::LoginItem(const fs::path& directory, std::string program)
    : entry(directory / (std::string(applicationId) + ".desktop"))
    , program(std::move(program))
{
}

bool LoginItem::isEnabled() const
{
    const TextFile found = readTextFile(entry);
    // An empty text comes from a link to /dev/null, with which a user masks an entry.
    return !found.text.empty() && !isSwitchedOff(found.text);
}

std::optional<std::string> LoginItem::registerItem()
{
    if (!canBeWritten(program)) {
        return failureAt(entry, "the path of this program cannot be written there");
    }
    if (const auto error = makePrivateDirectory(entry.parent_path())) {
        return failureAt(entry.parent_path(), error.message());
    }
    std::error_code ignored;
    if (fs::is_symlink(entry, ignored)) {
        // The program must not replace the target of the link.
        if (auto failure = removeFile(entry)) {
            return failure;
        }
    }
    if (const auto error = replaceTextFile(entry, entryFor(program))) {
        return failureAt(entry, error.message());
    }
    return std::nullopt;
}

std::optional<std::string> LoginItem::unregisterItem()
{
    return removeFile(entry);
}

fs::path autostartDirectory()
{
    return userDirectory("XDG_CONFIG_HOME", ".config") / "autostart";
}

std::string runningProgram()
{
    std::error_code error;
    const std::string executable = terminalProgram().string();
    const std::string image = environmentVariable("APPIMAGE");
    const std::string mount = fs::weakly_canonical(environmentVariable("APPDIR"), error).string();
    // Every program started from inside an AppImage inherits both variables, so an image that does
    // not hold this program belongs to another program.
    const bool isInImage = !mount.empty() && executable.starts_with(mount + '/');
    return isInImage && fs::path(image).is_absolute() ? image : executable;
}

} // namespace voltmere
