#pragma once

#include "platform/posix/FileDescriptor.h"
#include "presentation/CommandRequest.h"
#include "support/Failure.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

namespace corvane::posix {

/// The right to be the one Corvane of a user. The system takes it back when the process ends,
/// however it ends.
class InstanceLock {
  public:
    /// Nothing where another process has the lock. The file stays behind; its folder is made,
    /// closed to other users. Any thread.
    static Outcome<std::optional<InstanceLock>> claim(const std::filesystem::path &file);

  private:
    explicit InstanceLock(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;
};

/// The lock, or else the reply of the program that has it, as `callRunning` gets it. That program
/// may be about to end, or only just starting: then it does not answer yet and is called again, for
/// some seconds. Blocks. Fails also where the lock cannot be made.
std::expected<InstanceLock, CommandReply>
claimInstance(const std::filesystem::path &file,
              const std::function<std::optional<CommandReply>()> &callRunning);

} // namespace corvane::posix
