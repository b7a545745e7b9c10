#pragma once

#include "platform/Applications.h"

namespace corvane::macos {

/// The applications that the workspace knows.
class Applications : public platform::Applications {
  public:
    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;
    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override;
};

} // namespace corvane::macos
