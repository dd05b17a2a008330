#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace voltmere {

/// What was found where a small text file is expected.
struct TextFile {
    std::string text;
    bool exists = false;
    bool isLink = false;
    std::error_code error; ///< why the text could not be read; a missing file is no failure
};

/// Reads a text file of at most 1 MiB. What is neither a file nor a directory, such as a link to
/// /dev/null, reads as an empty text.
TextFile readTextFile(const std::filesystem::path& path);

/// Puts `text` in the place of a file in one step: whoever reads it, also after a crash, sees the
/// old text or the new one. A failure leaves the old one as it was.
///
/// Without `mode` a file keeps its permissions, and a new one is readable by all and writable by
/// its owner (0644). A link to a file stays, and the file it leads to is replaced.
std::error_code replaceTextFile(const std::filesystem::path& path, std::string_view text,
                                std::optional<mode_t> mode = std::nullopt);

/// Makes a directory and the missing ones above it, each for its owner alone (0700).
std::error_code makePrivateDirectory(const std::filesystem::path& directory);

} // namespace voltmere
