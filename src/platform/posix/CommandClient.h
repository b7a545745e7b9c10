#pragma once

#include "presentation/CommandRequest.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace corvane::posix {

/// Sends the request to the program of this user that listens at the path, and waits for its
/// reply: a refusal where none comes in time. Nothing when no such program listens. Any thread.
std::optional<CommandReply> sendCommand(const std::filesystem::path &path,
                                        const CommandRequest &request,
                                        std::chrono::milliseconds timeout);

} // namespace corvane::posix
