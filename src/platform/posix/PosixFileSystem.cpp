#include "platform/posix/PosixFileSystem.h"

#include "platform/posix/FileCalls.h"
#include "platform/posix/OpenFile.h"
#include "platform/posix/TemporaryFile.h"

#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <system_error>

#include <fcntl.h>

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

FileCalls &systemCalls() {
    static FileCalls calls;
    return calls;
}

} // namespace

PosixFileSystem::PosixFileSystem() : PosixFileSystem(systemCalls()) {}

bool PosixFileSystem::exists(const std::filesystem::path &path) {
    struct stat status{};
    return calls_.statusAt(path.c_str(), status) == 0;
}

Outcome<std::string> PosixFileSystem::readFile(const std::filesystem::path &path) {
    // A pipe without a writer must not keep us waiting.
    const OpenFile file(calls_, path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    const auto status = file.isOpen() ? file.status() : std::nullopt;
    if (!status) {
        return systemFailure(path);
    }
    if (const auto reason = objection(*status)) {
        return failure(path, *reason);
    }
    std::string content;
    while (content.size() <= largestFile) {
        const auto bytes = file.read();
        if (!bytes) {
            return systemFailure(path);
        }
        if (bytes->empty()) {
            return content;
        }
        content += *bytes;
    }
    return failure(path, "it is larger than " + std::to_string(largestFile) + " bytes");
}

Outcome<> PosixFileSystem::createDirectories(const std::filesystem::path &path) {
    if (!makeDirectories(path)) {
        return systemFailure(path);
    }
    return {};
}

bool PosixFileSystem::makeDirectories(const std::filesystem::path &path) {
    constexpr mode_t defaultAttributes = 0777;
    struct stat status{};
    if (calls_.statusAt(path.c_str(), status) == 0) {
        errno = ENOTDIR;
        return S_ISDIR(status.st_mode);
    }
    const std::filesystem::path parent = path.parent_path();
    if (errno != ENOENT || parent == path || !makeDirectories(parent)) {
        return false;
    }
    // Another program may have made it in the meantime.
    if (calls_.makeDirectory(path.c_str(), defaultAttributes) != 0 && errno != EEXIST) {
        return false;
    }
    synchroniseDirectory(parent);
    return true;
}

Outcome<> PosixFileSystem::replaceFile(const std::filesystem::path &path,
                                       std::string_view content) {
    const auto place = linkTarget(path);
    if (!place) {
        return std::unexpected(place.error());
    }
    struct stat status{};
    const bool isReplacement = calls_.statusAt(place->c_str(), status) == 0;
    if (!isReplacement && errno != ENOENT) {
        return systemFailure(path);
    }
    if (const auto reason = isReplacement ? objection(status) : std::nullopt) {
        return failure(path, *reason);
    }
    TemporaryFile temporary(calls_, *place);
    if (!temporary.isOpen() || (isReplacement && !temporary.takePermissionsOf(status)) ||
        !temporary.writeDurably(content) || !temporary.moveToPlace()) {
        return systemFailure(path);
    }
    synchroniseDirectory(place->parent_path());
    temporary.removeAbandoned();
    return {};
}

/// Makes new names in the directory outlast a power cut. Best effort: some file systems cannot, and
/// either way a name stands for a whole file.
void PosixFileSystem::synchroniseDirectory(const std::filesystem::path &path) {
    const OpenFile directory(calls_, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory.isOpen()) {
        directory.synchronise();
    }
}

/// The file that a chain of links ends at, so that replacing it keeps the links.
Outcome<std::filesystem::path> PosixFileSystem::linkTarget(const std::filesystem::path &path) {
    constexpr int longestChain = 40;
    std::filesystem::path place = path;
    for (int link = 0; link < longestChain; ++link) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = calls_.readLink(place.c_str(), target.data(), target.size());
        if (length < 0) {
            const bool isNoLink = errno == EINVAL || errno == ENOENT;
            return isNoLink ? Outcome<std::filesystem::path>(place) : systemFailure(path);
        }
        place = place.parent_path() / std::string(target.data(), static_cast<std::size_t>(length));
    }
    errno = ELOOP;
    return systemFailure(path);
}

} // namespace corvane::posix
