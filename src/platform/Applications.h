#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::platform {

/// A program that shows windows.
struct RunningApplication {
    std::int32_t processIdentifier = 0;
    std::optional<std::string> bundleIdentifier{};

    bool operator==(const RunningApplication &) const = default;
};

/// The applications of this desktop, running or installed. Main thread.
class Applications {
  public:
    virtual ~Applications() = default;

    virtual std::optional<RunningApplication> running(std::int32_t processIdentifier) = 0;

    /// All instances, in the system's own order.
    virtual std::vector<RunningApplication> running(const std::string &bundleIdentifier) = 0;

    /// The name the user knows the application by; nothing when the system does not know it.
    virtual std::optional<std::string> displayName(const std::string &bundleIdentifier) = 0;

    /// This program's own identifier.
    virtual std::string ownBundleIdentifier() const = 0;
};

} // namespace corvane::platform
