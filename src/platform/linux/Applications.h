#pragma once

#include "platform/Applications.h"
#include "platform/freedesktop/applications/DesktopEntries.h"
#include "platform/x11/windows/ClientWindows.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::linux {

/// The programs that have windows, and the applications installed by desktop file.
class Applications : public platform::Applications {
  public:
    /// The windows outlive the applications.
    Applications(x11::ClientWindows &windows, freedesktop::DesktopEntries entries);

    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;

    /// By process identifier, which is the order in which they were started.
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;

    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return "corvane"; }

  private:
    std::vector<platform::RunningApplication> instances(const x11::ClientWindows::Owners &owners,
                                                        const std::string &bundleIdentifier);
    std::optional<std::string> identifierOf(const x11::WindowOwner &owner);

    x11::ClientWindows &windows_;
    freedesktop::DesktopEntries entries_;
    const std::int32_t ownProcess_;
    /// The last answer, for whom, and from which windows.
    std::vector<platform::RunningApplication> answer_;
    std::string answered_;
    std::shared_ptr<const x11::ClientWindows::Owners> answeredFrom_;
};

} // namespace corvane::linux
