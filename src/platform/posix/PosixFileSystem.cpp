#include "platform/posix/PosixFileSystem.h"

#include "platform/posix/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

std::unexpected<Failure> failure(const std::filesystem::path &path) {
    const std::error_code error(errno, std::generic_category());
    return std::unexpected(Failure{path.string() + ": " + error.message()});
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
        : name_(place.string() + ".XXXXXX"),
          descriptor_(mkstemp(name_.data())) {}
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile() {
        if (isPending_) {
            unlink(name_.c_str());
        }
    }

    bool isOpen() const { return descriptor_.isOpen(); }

    bool writeDurably(std::string_view content, mode_t attributes) {
        return fchmod(descriptor_.get(), attributes) == 0 && writeAll(descriptor_.get(), content) &&
               fsync(descriptor_.get()) == 0 && descriptor_.close();
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

mode_t attributesFor(const std::filesystem::path &path) {
    constexpr mode_t permissions = 07777;
    constexpr mode_t defaultAttributes = 0666;
    struct stat status{};
    if (stat(path.c_str(), &status) == 0) {
        return status.st_mode & permissions;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return defaultAttributes & ~mask;
}

} // namespace

bool PosixFileSystem::exists(const std::filesystem::path &path) {
    struct stat status{};
    return stat(path.c_str(), &status) == 0;
}

Outcome<std::string> PosixFileSystem::readFile(const std::filesystem::path &path) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen()) {
        return failure(path);
    }
    std::string content;
    std::array<char, 16384> buffer{};
    while (true) {
        const ssize_t count = read(file.get(), buffer.data(), buffer.size());
        if (count == 0) {
            return content;
        }
        if (count > 0) {
            content.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return failure(path);
        }
    }
}

Outcome<> PosixFileSystem::createDirectories(const std::filesystem::path &path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) {
        return std::unexpected(Failure{path.string() + ": " + error.message()});
    }
    return {};
}

Outcome<> PosixFileSystem::replaceFile(const std::filesystem::path &path,
                                       std::string_view content) {
    const std::filesystem::path place = linkTarget(path);
    TemporaryFile temporary(place);
    if (!temporary.isOpen() || !temporary.writeDurably(content, attributesFor(place)) ||
        !temporary.moveTo(place)) {
        return failure(path);
    }
    // The new name itself survives a power cut only once the directory is on disk too.
    const FileDescriptor directory(
        open(place.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory.isOpen() || fsync(directory.get()) != 0) {
        return failure(path);
    }
    return {};
}

} // namespace corvane::posix
