#include "linux/desktop_entry.h"

#include <algorithm>
#include <array>
#include <utility>

namespace voltmere {

namespace {

constexpr std::string_view mainGroup = "Desktop Entry";

/// The characters that a backslash and a letter stand for in a value.
constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}}};

enum class LineKind { blank, comment, group, pair, damaged };

struct Line {
    LineKind kind = LineKind::blank;
    std::string_view name;  ///< of the group or the key
    std::string_view value; ///< as it is written
};

std::string_view lineEnd(std::string_view line)
{
    if (line.ends_with("\r\n")) {
        return "\r\n";
    }
    if (line.ends_with('\n')) {
        return "\n";
    }
    // The last line of a text that broke off between the two.
    return line.ends_with('\r') ? "\r" : "";
}

std::string_view trimmedLeft(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

std::string_view trimmedRight(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

Line parseGroup(std::string_view line)
{
    line = trimmedRight(line);
    const std::string_view name = line.substr(1, line.find(']') - 1);
    return {name.size() + 2 == line.size() ? LineKind::group : LineKind::damaged, name, {}};
}

Line parseLine(std::string_view line)
{
    line = trimmedLeft(line.substr(0, line.size() - lineEnd(line).size()));
    if (line.empty()) {
        return {};
    }
    if (line.starts_with('#')) {
        return {LineKind::comment, {}, {}};
    }
    if (line.starts_with('[')) {
        return parseGroup(line);
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return {LineKind::damaged, {}, {}};
    }
    return {LineKind::pair, trimmedRight(line.substr(0, equals)),
            trimmedLeft(line.substr(equals + 1))};
}

bool isMainGroup(const Line& line)
{
    return line.kind == LineKind::group && line.name == mainGroup;
}

std::string unescaped(std::string_view written)
{
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const auto* const escape = written[i] != '\\' || i + 1 == written.size()
            ? escapes.end()
            : std::find_if(escapes.begin(), escapes.end(),
                           [&](const auto& known) { return known.first == written[i + 1]; });
        if (escape == escapes.end()) {
            text += written[i];
        } else {
            text += escape->second;
            ++i;
        }
    }
    return text;
}

/// Blanks are escaped only at the ends, where a reader would drop them.
std::string escaped(std::string_view text)
{
    std::string written;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto* const escape =
            std::find_if(escapes.begin(), escapes.end(),
                         [&](const auto& known) { return known.second == text[i]; });
        const bool inside = i > 0 && i + 1 < text.size();
        if (escape == escapes.end() || (text[i] == ' ' && inside)) {
            written += text[i];
        } else {
            written += '\\';
            written += escape->first;
        }
    }
    return written;
}

std::string quotedExecArgument(std::string_view argument)
{
    constexpr std::string_view reserved = " \t\r\n\"'\\><~|&;$*?#()`";
    constexpr std::string_view escapedInQuotes = "\"`$\\";
    const bool quoted =
        argument.empty() || argument.find_first_of(reserved) != std::string_view::npos;
    std::string written;
    for (const char character : argument) {
        if (escapedInQuotes.find(character) != std::string_view::npos) {
            written += '\\';
        } else if (character == '%') {
            written += '%';
        }
        written += character;
    }
    return quoted ? '"' + written + '"' : written;
}

} // namespace

DesktopEntry::DesktopEntry(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

bool DesktopEntry::isSound() const
{
    bool inGroup = false;
    for (const std::string& text : lines) {
        const Line line = parseLine(text);
        inGroup = inGroup || isMainGroup(line);
        const bool needsNoGroup = line.kind == LineKind::blank || line.kind == LineKind::comment;
        if (line.kind == LineKind::damaged || (!inGroup && !needsNoGroup)) {
            return false;
        }
    }
    return inGroup;
}

bool DesktopEntry::hasGroup() const
{
    return groupBegin() < lines.size();
}

std::optional<std::string> DesktopEntry::value(std::string_view key) const
{
    const auto found = linesWith(key);
    if (found.empty()) {
        return std::nullopt;
    }
    return unescaped(parseLine(lines[found.back()]).value);
}

bool DesktopEntry::isTrue(std::string_view key) const
{
    const std::string written = value(key).value_or("");
    const std::string_view word = trimmedRight(written);
    // Early versions of the Desktop Entry Specification had these numbers in place of the words.
    return word == "true" || word == "1";
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const
{
    const std::string all = value(key).value_or("");
    std::vector<std::string> parts;
    std::string_view rest = trimmedRight(all);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        parts.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return parts;
}

void DesktopEntry::setValue(std::string_view key, std::string_view newValue)
{
    const std::string line = std::string(key) + '=' + escaped(newValue);
    const auto found = linesWith(key);
    for (const std::size_t index : found) {
        if (unescaped(parseLine(lines[index]).value) != newValue) {
            lines[index] = line + std::string(lineEnd(lines[index]));
        }
    }
    if (found.empty()) {
        append(line);
    }
}

void DesktopEntry::remove(std::string_view key)
{
    for (auto found = linesWith(key); !found.empty(); found = linesWith(key)) {
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(found.back()));
    }
}

std::string DesktopEntry::text() const
{
    std::string all;
    for (const std::string& line : lines) {
        all += line;
    }
    return all;
}

/// The line with the group's name, or the end of the text.
std::size_t DesktopEntry::groupBegin() const
{
    const auto begin = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return isMainGroup(parseLine(line));
    });
    return static_cast<std::size_t>(begin - lines.begin());
}

/// The line after the last one of the group.
std::size_t DesktopEntry::groupEnd() const
{
    std::size_t end = std::min(groupBegin() + 1, lines.size());
    while (end < lines.size() && parseLine(lines[end]).kind != LineKind::group) {
        ++end;
    }
    return end;
}

std::vector<std::size_t> DesktopEntry::linesWith(std::string_view key) const
{
    std::vector<std::size_t> found;
    const std::size_t end = groupEnd();
    for (std::size_t i = groupBegin(); i < end; ++i) {
        const Line line = parseLine(lines[i]);
        if (line.kind == LineKind::pair && line.name == key) {
            found.push_back(i);
        }
    }
    return found;
}

/// Adds a line below the group's last key, above blank lines and comments that may belong to what
/// follows.
void DesktopEntry::append(const std::string& line)
{
    std::size_t place = groupEnd();
    while (place > groupBegin() + 1 && parseLine(lines[place - 1]).kind != LineKind::pair) {
        --place;
    }
    std::string& above = lines[place - 1];
    if (!above.ends_with('\n')) {
        above += '\n';
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place),
                 line + std::string(lineEnd(above)));
}

std::string execStarting(std::string_view program)
{
    const bool needsStarter = program.find_first_of("%=") != std::string_view::npos;
    return (needsStarter ? "nice -n 0 " : "") + quotedExecArgument(program);
}

} // namespace voltmere
