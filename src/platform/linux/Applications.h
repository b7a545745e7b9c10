#pragma once

#include "platform/Applications.h"
#include "platform/freedesktop/applications/DesktopEntries.h"
#include "platform/x11/windows/ClientWindows.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace corvane::linux {

/// The applications that have windows, and those installed by desktop file. An application is all
/// processes whose windows have one identifier; it runs as long as it has a window, shown or
/// hidden.
class Applications : public platform::Applications {
  public:
    /// The windows outlive the applications.
    Applications(x11::ClientWindows &windows, freedesktop::DesktopEntries entries);

    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;

    /// One at most, which is named by the oldest of its processes.
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;

    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return "corvane"; }

    /// All processes of the application that this one belongs to.
    std::set<std::int32_t> processesWith(std::int32_t processIdentifier);

  private:
    void catchUp();
    void add(const x11::ClientWindows::Owners &owners);
    std::optional<std::string> identifierOf(const x11::WindowOwner &owner);

    x11::ClientWindows &windows_;
    freedesktop::DesktopEntries entries_;
    const std::int32_t ownProcess_;
    /// The processes of each application by identifier, as `owners_` say.
    std::map<std::string, std::set<std::int32_t>> processes_;
    std::shared_ptr<const x11::ClientWindows::Owners> owners_;
    /// Whether `processes_` holds those that have hidden windows only, too.
    bool hasHidden_ = false;
};

} // namespace corvane::linux
