#pragma once

#include "platform/Applications.h"
#include "platform/linux/ClientWindows.h"
#include "platform/linux/DesktopEntries.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::x11 {

/// The programs that have windows, and the applications installed by desktop file.
class LinuxApplications : public platform::Applications {
  public:
    /// The windows outlive the applications.
    LinuxApplications(ClientWindows &windows, DesktopEntries entries);

    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;

    /// By process identifier, which is the order in which they were started.
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;

    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return "corvane"; }

  private:
    std::optional<std::string> identifierOf(const WindowOwner &owner);

    ClientWindows &windows_;
    DesktopEntries entries_;
    const std::int32_t ownProcess_;
};

} // namespace corvane::x11
