#pragma once

#include "platform/Applications.h"
#include "platform/freedesktop/applications/DesktopEntries.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace corvane::linux {

/// Which process a window belongs to, and how the program names itself.
struct WindowOwner {
    /// Absent for a program on another machine that does not name its process.
    std::optional<std::int32_t> processIdentifier{};
    std::string instanceName{};
    std::string className{};
};

using WindowOwners = std::vector<WindowOwner>;

/// How a window system reports the owners of windows.
struct WindowOwnerSource {
    /// Those of listed windows, front-most first. The same pointer again while nothing changes.
    std::function<std::shared_ptr<const WindowOwners>()> listed;
    /// Those of all windows, hidden ones included.
    std::function<WindowOwners()> all;
};

/// The applications that have windows, and those installed by desktop file. An application is all
/// processes whose windows have one identifier; it runs as long as it has a window, shown or
/// hidden.
class Applications : public platform::Applications {
  public:
    /// What the source reads from outlives the applications.
    Applications(WindowOwnerSource source, freedesktop::DesktopEntries entries);

    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;

    /// One at most, which is named by the oldest of its processes.
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;

    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return "corvane"; }

    /// All processes of the application that this one belongs to.
    std::set<std::int32_t> processesWith(std::int32_t processIdentifier);

  private:
    void catchUp();
    void add(const WindowOwners &owners);
    std::optional<std::string> identifierOf(const WindowOwner &owner);

    const WindowOwnerSource source_;
    freedesktop::DesktopEntries entries_;
    const std::int32_t ownProcess_;
    /// The processes of each application by identifier, from `owners_`.
    std::map<std::string, std::set<std::int32_t>> processes_;
    std::shared_ptr<const WindowOwners> owners_;
    /// Whether `processes_` holds those that have hidden windows only, too.
    bool hasHidden_ = false;
};

} // namespace corvane::linux
