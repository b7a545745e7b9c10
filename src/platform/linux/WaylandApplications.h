#pragma once

#include "platform/Applications.h"
#include "platform/freedesktop/applications/DesktopEntries.h"
#include "platform/wayland/windows/Windows.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace corvane::linux {

/// The applications that have windows in a Wayland session, and those installed by desktop file. An
/// application is all processes whose windows have one identifier.
class WaylandApplications : public platform::Applications {
  public:
    /// The windows outlive the applications.
    WaylandApplications(wayland::Windows &windows, freedesktop::DesktopEntries entries);

    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;

    /// One at most, which is named by the oldest of its processes.
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;

    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return "corvane"; }

    /// All processes of the application that this one belongs to.
    std::set<std::int32_t> processesWith(std::int32_t processIdentifier);

  private:
    std::vector<platform::RunningApplication> all();
    std::optional<std::string> identifierOf(const wayland::Window &window);

    wayland::Windows &windows_;
    freedesktop::DesktopEntries entries_;
    const std::int32_t ownProcess_;
};

} // namespace corvane::linux
