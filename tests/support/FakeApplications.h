#pragma once

#include "platform/Applications.h"

#include <map>

namespace corvane::testing {

/// The applications a test says there are.
class FakeApplications : public platform::Applications {
  public:
    std::optional<platform::RunningApplication> running(std::int32_t processIdentifier) override;
    std::vector<platform::RunningApplication> running(const std::string &bundleIdentifier) override;
    std::optional<std::string> displayName(const std::string &bundleIdentifier) override;
    std::string ownBundleIdentifier() const override { return ownIdentifier; }

    /// In the system's order.
    std::vector<platform::RunningApplication> runningApplications;
    /// By bundle identifier; any other is unknown.
    std::map<std::string, std::string> names;
    std::string ownIdentifier = "org.example.corvane";
};

} // namespace corvane::testing
