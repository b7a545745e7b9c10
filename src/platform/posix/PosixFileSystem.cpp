#include "platform/posix/PosixFileSystem.h"

#include "platform/posix/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

std::unexpected<Failure> failure(const std::filesystem::path &path, const std::string &reason) {
    return std::unexpected(Failure{path.string() + ": " + reason});
}

std::unexpected<Failure> systemFailure(const std::filesystem::path &path) {
    return failure(path, std::error_code(errno, std::generic_category()).message());
}

/// Why a file of this status is neither read nor replaced; nothing for an ordinary file.
std::optional<std::string> objection(const struct stat &status) {
    if (S_ISDIR(status.st_mode)) {
        return "it is a directory";
    }
    if (!S_ISREG(status.st_mode)) {
        return "it is not an ordinary file";
    }
    return std::nullopt;
}

/// The file that a chain of links ends at, so that replacing it keeps the links.
std::filesystem::path linkTarget(const std::filesystem::path &path) {
    std::error_code error;
    if (!std::filesystem::is_symlink(path, error)) {
        return path;
    }
    std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    return error ? path : target;
}

bool writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written < 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// A file beside its final place that disappears unless it is moved there.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::filesystem::path &place)
        : name_(place.string() + "." + std::to_string(std::random_device()())),
          descriptor_(open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {}
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile() {
        if (isPending_) {
            unlink(name_.c_str());
        }
    }

    bool isOpen() const { return descriptor_.isOpen(); }

    bool takePermissionsOf(const struct stat &status) const {
        constexpr mode_t permissions = 07777;
        return fchmod(descriptor_.get(), status.st_mode & permissions) == 0;
    }

    bool writeDurably(std::string_view content) {
        return writeAll(descriptor_.get(), content) && fsync(descriptor_.get()) == 0 &&
               descriptor_.close();
    }

    bool moveTo(const std::filesystem::path &place) {
        isPending_ = rename(name_.c_str(), place.c_str()) != 0;
        return !isPending_;
    }

  private:
    std::string name_;
    FileDescriptor descriptor_;
    bool isPending_ = descriptor_.isOpen();
};

/// Makes a new name in the directory outlast a power cut. Best effort: some file systems cannot,
/// and either way the name stands for a whole file.
void syncDirectory(const std::filesystem::path &path) {
    const FileDescriptor directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.isOpen()) {
        fsync(directory.get());
    }
}

} // namespace

bool PosixFileSystem::exists(const std::filesystem::path &path) {
    struct stat status{};
    return stat(path.c_str(), &status) == 0;
}

Outcome<std::string> PosixFileSystem::readFile(const std::filesystem::path &path) {
    // A pipe without a writer must not keep us waiting.
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status{};
    if (!file.isOpen() || fstat(file.get(), &status) != 0) {
        return systemFailure(path);
    }
    if (const auto reason = objection(status)) {
        return failure(path, *reason);
    }
    std::string content;
    std::array<char, 16384> buffer{};
    while (content.size() <= largestFile) {
        const ssize_t count = read(file.get(), buffer.data(), buffer.size());
        if (count == 0) {
            return content;
        }
        if (count > 0) {
            content.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return systemFailure(path);
        }
    }
    return failure(path, "it is larger than " + std::to_string(largestFile) + " bytes");
}

Outcome<> PosixFileSystem::createDirectories(const std::filesystem::path &path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) {
        return failure(path, error.message());
    }
    return {};
}

Outcome<> PosixFileSystem::replaceFile(const std::filesystem::path &path,
                                       std::string_view content) {
    const std::filesystem::path place = linkTarget(path);
    struct stat status{};
    const bool isReplacement = stat(place.c_str(), &status) == 0;
    if (const auto reason = isReplacement ? objection(status) : std::nullopt) {
        return failure(path, *reason);
    }
    TemporaryFile temporary(place);
    if (!temporary.isOpen() || (isReplacement && !temporary.takePermissionsOf(status)) ||
        !temporary.writeDurably(content) || !temporary.moveTo(place)) {
        return systemFailure(path);
    }
    syncDirectory(place.parent_path());
    return {};
}

} // namespace corvane::posix
