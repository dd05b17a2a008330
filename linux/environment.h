#pragma once

#include "ports/desktop.h"

#include <filesystem>
#include <string>

namespace voltmere {

/// The value of a variable of the environment; empty also when it is not set.
std::string environmentVariable(const char* name);

/// The directory of the user's files of one kind: the value of `variable` if it is an absolute
/// path, else `fallback` in the home directory, and in "/" without a home. Source: XDG Base
/// Directory Specification 0.8.
std::filesystem::path userDirectory(const char* variable, const char* fallback);

/// The languages that the environment asks for, ranked as the C library ranks them for messages:
/// the locale is the first of LC_ALL, LC_MESSAGES and LANG that is set; unless it is the C locale,
/// the list in LANGUAGE replaces it. Source: GNU gettext manual, "Locale
/// Environment Variables" and "The LANGUAGE variable".
class EnvironmentLanguages : public PreferredLanguages {
public:
    std::vector<std::string> tags() const override;
};

} // namespace voltmere
