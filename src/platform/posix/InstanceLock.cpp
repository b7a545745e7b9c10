#include "platform/posix/InstanceLock.h"

#include "platform/posix/PrivateFolder.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace corvane::posix {

namespace {

constexpr int mostAttempts = 250;
constexpr std::chrono::milliseconds pause{20};

} // namespace

Outcome<std::optional<InstanceLock>> InstanceLock::claim(const std::filesystem::path &file) {
    if (const auto folder = makePrivateFolder(file.parent_path()); !folder) {
        return std::unexpected(folder.error());
    }
    constexpr mode_t forOwnerOnly = 0600;
    FileDescriptor descriptor(
        open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, forOwnerOnly));
    if (descriptor.isOpen() && flock(descriptor.get(), LOCK_EX | LOCK_NB) == 0) {
        return std::optional(InstanceLock(std::move(descriptor)));
    }
    if (descriptor.isOpen() && errno == EWOULDBLOCK) {
        return std::nullopt;
    }
    return std::unexpected(Failure{file.string() + ": " + std::generic_category().message(errno)});
}

std::expected<InstanceLock, CommandReply>
claimInstance(const std::filesystem::path &file,
              const std::function<std::optional<CommandReply>()> &callRunning) {
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        auto lock = InstanceLock::claim(file);
        if (!lock) {
            return std::unexpected(
                CommandReply{.result = CommandResult::refused,
                             .error = "cannot lock " + lock.error().description});
        }
        if (std::optional<InstanceLock> &claimed = *lock) {
            return *std::move(claimed);
        }
        if (const auto reply = callRunning()) {
            return std::unexpected(*reply);
        }
        std::this_thread::sleep_for(pause);
    }
    return std::unexpected(noReply());
}

} // namespace corvane::posix
