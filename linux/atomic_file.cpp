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

std::error_code readAll(int descriptor, std::string& text)
{
    std::size_t size = 0;
    while (size < text.size()) {
        const ssize_t count = ::read(descriptor, text.data() + size, text.size() - size);
        if (count > 0) {
            size += static_cast<std::size_t>(count);
        } else if (count == 0) {
            break;
        } else if (errno != EINTR) {
            const std::error_code error = lastError();
            text.clear();
            return error;
        }
    }
    text.resize(size);
    return {};
}

std::error_code readRegular(int descriptor, std::string& text)
{
    struct stat status { };
    if (::fstat(descriptor, &status) != 0) {
        return lastError();
    }
    if (S_ISDIR(status.st_mode)) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    if (!S_ISREG(status.st_mode)) {
        return {};
    }
    if (status.st_size > largestText) {
        return std::make_error_code(std::errc::file_too_large);
    }
    text.resize(static_cast<std::size_t>(status.st_size));
    return readAll(descriptor, text);
}

std::error_code writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return lastError();
        }
    }
    return {};
}

/// A new file beside its destination. It is removed unless it replaced the destination.
class Replacement {
public:
    /// The hidden name ends differently, so that no program mistakes the file for the destination.
    explicit Replacement(const fs::path& destination)
        : destination(destination)
        , name(destination.parent_path() / ("." + destination.filename().string() + ".XXXXXX"))
        , file(::mkostemp(name.data(), O_CLOEXEC))
    {
        if (!file) {
            error = lastError();
        }
    }

    ~Replacement()
    {
        if (file) {
            ::unlink(name.c_str());
        }
    }

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    std::error_code commit(std::string_view text, mode_t mode)
    {
        if (!error) {
            error = writeAll(file.get(), text);
        }
        if (!error && (::fchmod(file.get(), mode) != 0 || ::fsync(file.get()) != 0)) {
            error = lastError();
        }
        if (!error && ::rename(name.c_str(), destination.c_str()) != 0) {
            error = lastError();
        }
        if (!error) {
            file.reset();
        }
        return error;
    }

private:
    fs::path destination;
    std::string name;
    FileDescriptor file;
    std::error_code error;
};

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
    TextFile found;
    struct stat status { };
    if (::lstat(path.c_str(), &status) != 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        found.error = missing ? std::error_code() : lastError();
        return found;
    }
    found.exists = true;
    found.isLink = S_ISLNK(status.st_mode);
    // A FIFO must not block the reader until a writer comes.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file) {
        found.error = readRegular(file.get(), found.text);
    } else if (!found.isLink || errno != ENOENT) {
        found.error = lastError();
    }
    return found;
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
    error = Replacement(destination).commit(text, mode.value_or(present));
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
        std::error_code error;
        if (fs::is_directory(made, error) || ::mkdir(made.c_str(), privateDirectoryMode) == 0) {
            continue;
        }
        const std::error_code failure = lastError();
        // Another program may have made the directory meanwhile; any other file is an obstacle.
        if (!fs::is_directory(made, error)) {
            return failure == std::errc::file_exists
                ? std::make_error_code(std::errc::not_a_directory)
                : failure;
        }
    }
    return {};
}

} // namespace voltmere
