#include "linux/atomic_file.h"

#include "posix/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

constexpr off_t largestText = off_t{1} << 20;
constexpr mode_t newFileMode = 0644;
constexpr mode_t privateDirectoryMode = 0700;

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

bool writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Writes a temporary file in the directory of `destination` and renames it over `destination`.
std::error_code replace(const fs::path& destination, std::string_view text, mode_t mode)
{
    // The hidden name ends differently, so that no program mistakes the file for the destination.
    std::string name =
        destination.parent_path() / ("." + destination.filename().string() + ".XXXXXX");
    const FileDescriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (!file) {
        return lastError();
    }
    if (writeAll(file.get(), text) && ::fchmod(file.get(), mode) == 0 && ::fsync(file.get()) == 0 &&
        ::rename(name.c_str(), destination.c_str()) == 0) {
        return {};
    }
    const std::error_code error = lastError();
    ::unlink(name.c_str());
    return error;
}

/// Flushes a change of the directory itself to the disk. The change holds even if the flush fails.
void syncDirectory(const fs::path& directory)
{
    const FileDescriptor file(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file) {
        ::fsync(file.get());
    }
}

} // namespace

TextFile readTextFile(const fs::path& path)
{
    // A FIFO must not block the reader until a writer comes.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        return {{}, missing ? std::error_code() : lastError()};
    }
    struct stat status { };
    if (::fstat(file.get(), &status) != 0) {
        return {{}, lastError()};
    }
    if (S_ISDIR(status.st_mode)) {
        return {{}, std::make_error_code(std::errc::is_a_directory)};
    }
    if (!S_ISREG(status.st_mode)) {
        return {};
    }
    if (status.st_size > largestText) {
        return {{}, std::make_error_code(std::errc::file_too_large)};
    }
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    ssize_t count = 0;
    while ((count = ::read(file.get(), text.data() + size, text.size() - size)) > 0) {
        size += static_cast<std::size_t>(count);
    }
    if (count < 0) {
        return {{}, lastError()};
    }
    text.resize(size);
    return {text, {}};
}

std::error_code replaceTextFile(const fs::path& path, std::string_view text,
                                std::optional<mode_t> mode)
{
    struct stat status { };
    const bool hasFile = ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    std::error_code error;
    const fs::path destination = hasFile ? fs::canonical(path, error) : path;
    if (error) {
        return error;
    }
    const mode_t present = hasFile ? status.st_mode & 07777 : newFileMode;
    error = replace(destination, text, mode.value_or(present));
    if (!error) {
        syncDirectory(destination.parent_path());
    }
    return error;
}

std::error_code makePrivateDirectory(const fs::path& directory)
{
    fs::path made;
    for (const fs::path& part : directory) {
        made /= part;
        std::error_code ignored;
        if (fs::is_directory(made, ignored) || ::mkdir(made.c_str(), privateDirectoryMode) == 0) {
            continue;
        }
        const std::error_code failure = lastError();
        if (failure != std::errc::file_exists) {
            return failure;
        }
        // Another program may have made the directory meanwhile; any other file is an obstacle.
        if (!fs::is_directory(made, ignored)) {
            return std::make_error_code(std::errc::not_a_directory);
        }
    }
    return {};
}

} // namespace voltmere
