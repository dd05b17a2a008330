#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {

/// The text of a desktop entry file, of which the keys of the group [Desktop Entry] can be read and
/// changed. Every other line stays byte for byte as it is: comments, blank lines, other groups, the
/// order, the line ends.
///
/// Source: Desktop Entry Specification 1.5, "Basic format of the file", "Possible value types".
class DesktopEntry {
public:
    explicit DesktopEntry(std::string_view text);

    /// Whether programs would read it as a desktop entry: the group [Desktop Entry] comes first,
    /// and each line is blank, a comment, a group's name or a key with its value.
    bool isSound() const;

    /// Whether there is a group [Desktop Entry], be the rest as it may.
    bool hasGroup() const;

    /// A value of the type "string", its escapes undone. Of a key that is there twice, the last
    /// one.
    std::optional<std::string> value(std::string_view key) const;

    /// Whether a value of the type "boolean" is there and true.
    bool isTrue(std::string_view key) const;

    /// The parts of a value of the type "strings", of which none holds a semicolon.
    std::vector<std::string> list(std::string_view key) const;

    /// Changes a key, or adds it as the last one of its group. There must be a group.
    void setValue(std::string_view key, std::string_view value);

    void remove(std::string_view key);

    std::string text() const;

private:
    std::size_t groupBegin() const;
    std::size_t groupEnd() const;
    std::vector<std::size_t> linesWith(std::string_view key) const;
    void append(const std::string& line);

    std::vector<std::string> lines; ///< each with its line end
};

/// The value of "Exec" that starts a program without arguments, not yet escaped as every string is;
/// DesktopEntry::setValue does that.
///
/// The program's own path may not hold an equal sign, and a percent sign must be doubled, but GLib
/// and systemd look for the program under the doubled name and refuse the entry. Such a path is
/// therefore handed as an argument to a program that does nothing but start it: nice -n 0.
///
/// Source: Desktop Entry Specification 1.5, "The Exec key".
std::string execStarting(std::string_view program);

} // namespace voltmere
