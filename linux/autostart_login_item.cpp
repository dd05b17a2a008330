#include "linux/autostart_login_item.h"

#include "linux/atomic_file.h"
#include "linux/autostart_rules.h"
#include "linux/desktop_entry.h"
#include "ports/desktop.h"

#include <system_error>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

constexpr const char* noPlace =
    "There is no place for a start-up entry: neither XDG_CONFIG_HOME nor HOME is set";

std::string failureAt(const fs::path& path, const std::string& reason)
{
    return path.string() + ": " + reason;
}

std::string entryName()
{
    return std::string(applicationId) + ".desktop";
}

bool isBlank(const std::string& text)
{
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

/// Whether both keys that name the program still agree, as they were written together.
bool namesOneProgram(const DesktopEntry& entry)
{
    const auto file = entry.value("TryExec");
    return file && entry.value("Exec") == execStarting(*file);
}

} // namespace

AutostartLoginItem::AutostartLoginItem(AutostartProgram program, AutostartSession session)
    : program(std::move(program))
    , session(std::move(session))
{
}

LoginItemService::Status AutostartLoginItem::status() const
{
    TextFile entry;
    if (session.userDirectory) {
        entry = readTextFile(userEntry());
    }
    if (!entry.exists && !entry.error) {
        if (const auto path = systemEntry()) {
            entry = readTextFile(*path);
        }
    }
    return startsWith(entry.text) ? Status::enabled : Status::notRegistered;
}

std::optional<std::string> AutostartLoginItem::registerItem()
{
    if (!session.userDirectory) {
        return noPlace;
    }
    const TextFile present = readTextFile(userEntry());
    if (present.error) {
        return failureAt(userEntry(), present.error.message());
    }
    if (!present.exists && status() == Status::enabled) {
        return std::nullopt;
    }
    if (program.file.empty()) {
        return failureAt(userEntry(), "the path of this program cannot be written there");
    }
    if (!isBlank(present.text) && !DesktopEntry(present.text).isSound()) {
        return failureAt(userEntry(), "it is not a desktop entry; correct it or remove it");
    }
    const std::string wanted =
        isBlank(present.text) ? entryFor(program.file) : renewed(present.text);
    if (wanted != present.text) {
        if (auto failure = write(wanted)) {
            return failure;
        }
    }
    const auto obstacle = autostartObstacle(DesktopEntry(wanted), session);
    return obstacle ? std::optional(failureAt(userEntry(), *obstacle)) : std::nullopt;
}

std::optional<std::string> AutostartLoginItem::unregisterItem()
{
    if (!session.userDirectory) {
        return noPlace;
    }
    const TextFile present = readTextFile(userEntry());
    if (present.error) {
        return failureAt(userEntry(), present.error.message());
    }
    const bool hasSystemEntry = systemEntry().has_value();
    if (!present.exists) {
        return hasSystemEntry ? write(hiddenEntry()) : std::nullopt;
    }
    if (isAsWritten(present.text) && !present.isLink && !hasSystemEntry) {
        return removeEntry();
    }
    DesktopEntry entry(present.text);
    if (!entry.hasGroup() || entry.isTrue("Hidden")) {
        return std::nullopt;
    }
    entry.setValue("Hidden", "true");
    return write(entry.text());
}

fs::path AutostartLoginItem::userEntry() const
{
    return *session.userDirectory / entryName();
}

std::optional<fs::path> AutostartLoginItem::systemEntry() const
{
    for (const fs::path& directory : session.systemDirectories) {
        fs::path path = directory / entryName();
        std::error_code error;
        if (fs::exists(fs::symlink_status(path, error))) {
            return path;
        }
    }
    return std::nullopt;
}

bool AutostartLoginItem::startsWith(const std::string& text) const
{
    return !autostartObstacle(DesktopEntry(text), session);
}

/// The whole entry as it is first written. TryExec keeps a session manager from complaining about a
/// program that has been removed since.
std::string AutostartLoginItem::entryFor(const std::string& file) const
{
    DesktopEntry entry("[Desktop Entry]\n");
    entry.setValue("Type", "Application");
    for (const auto& [locale, name] : program.names) {
        entry.setValue(locale.empty() ? "Name" : "Name[" + locale + ']', name);
    }
    entry.setValue("Exec", execStarting(file));
    entry.setValue("TryExec", file);
    entry.setValue("Icon", applicationId);
    entry.setValue("Terminal", "false");
    entry.setValue("StartupNotify", "false");
    entry.setValue(autostartEnabledKey, "true");
    return entry.text();
}

std::string AutostartLoginItem::hiddenEntry() const
{
    DesktopEntry entry(entryFor(program.file));
    entry.setValue("Hidden", "true");
    return entry.text();
}

bool AutostartLoginItem::isAsWritten(const std::string& text) const
{
    const auto file = DesktopEntry(text).value("TryExec");
    return file && text == entryFor(*file);
}

std::string AutostartLoginItem::renewed(const std::string& text) const
{
    const DesktopEntry fresh(entryFor(program.file));
    DesktopEntry entry(text);
    entry.remove("Hidden");
    if (entry.value(autostartEnabledKey)) {
        entry.setValue(autostartEnabledKey, "true");
    }
    if (entry.value("Exec").value_or("").empty() || namesOneProgram(entry)) {
        entry.setValue("Exec", execStarting(program.file));
        entry.setValue("TryExec", program.file);
    }
    for (const std::string_view key : {"Type", "Name"}) {
        if (!entry.value(key)) {
            entry.setValue(key, fresh.value(key).value_or(""));
        }
    }
    return entry.text();
}

std::optional<std::string> AutostartLoginItem::write(const std::string& text) const
{
    if (const auto error = makePrivateDirectory(*session.userDirectory)) {
        return failureAt(*session.userDirectory, error.message());
    }
    if (const auto error = replaceTextFile(userEntry(), text)) {
        return failureAt(userEntry(), error.message());
    }
    return std::nullopt;
}

std::optional<std::string> AutostartLoginItem::removeEntry() const
{
    std::error_code error;
    fs::remove(userEntry(), error);
    return error ? std::optional(failureAt(userEntry(), error.message())) : std::nullopt;
}

} // namespace voltmere
