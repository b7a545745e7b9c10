#include "platform/posix/PrivateFolder.h"

#include <cerrno>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::posix {

namespace {

constexpr mode_t forOwnerOnly = 0700;
constexpr mode_t forOthers = 0077;

} // namespace

Outcome<> makePrivateFolder(const std::filesystem::path &folder) {
    if (mkdir(folder.c_str(), forOwnerOnly) != 0 && errno != EEXIST) {
        return std::unexpected(
            Failure{folder.string() + ": " + std::generic_category().message(errno)});
    }
    if (!isPrivateFolder(folder)) {
        return std::unexpected(Failure{folder.string() + " is open to other users"});
    }
    return {};
}

bool isPrivateFolder(const std::filesystem::path &folder) {
    struct stat status{};
    // A link could lead to a folder that its maker exchanges later.
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & forOthers) == 0;
}

} // namespace corvane::posix
