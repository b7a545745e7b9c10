#pragma once

#include "presentation/CommandRequest.h"
#include "presentation/DesktopFacts.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace corvane {

namespace platform {
class FileSystem;
}

/// Says in plain words what works on this desktop, and what to do about what does not: a line for
/// each subject. The result is `refused` when something is missing without which Corvane cannot
/// click or keep its settings. `runningStatus` is what a running Corvane replies to
/// "status --json"; nothing when none is running.
CommandReply diagnose(const DesktopFacts &desktop, const std::vector<FileFact> &files,
                      const std::optional<CommandReply> &runningStatus);

/// What a start says that found no display.
CommandReply noDisplay(bool isWaylandSession);

/// Adds to the facts what is wrong with the content of the settings and of the profiles.
std::vector<FileFact> withContents(std::vector<FileFact> facts, platform::FileSystem &files,
                                   const std::filesystem::path &home);

/// The files and folders that Corvane writes for a user with that home.
std::vector<std::filesystem::path> filesOfCorvane(platform::FileSystem &files,
                                                  const std::filesystem::path &home);

} // namespace corvane
