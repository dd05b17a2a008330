#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace voltmere {

/// The result of reading a small text file.
struct TextFile {
    std::string text;
    std::error_code error; ///< why the text could not be read; a missing file is no failure
};

/// Reads a text file of at most 1 MiB. A path to neither a file nor a directory, such as a link to
/// /dev/null, reads as an empty text.
TextFile readTextFile(const std::filesystem::path& path);

/// Replaces a file by `text` in one step: a reader sees the old text or the new text, also after a
/// crash. A failure leaves the old text as it was.
///
/// Without `mode` a file keeps its permissions, and a new one is readable by all and writable by
/// its owner (0644). A link to a file stays, and its target is replaced.
std::error_code replaceTextFile(const std::filesystem::path& path, std::string_view text,
                                std::optional<mode_t> mode = std::nullopt);

/// Makes a directory and the missing ones above it, each for its owner alone (0700).
std::error_code makePrivateDirectory(const std::filesystem::path& directory);

} // namespace voltmere
