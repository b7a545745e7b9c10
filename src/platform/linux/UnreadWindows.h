#pragma once

#include "platform/Accessibility.h"
#include "platform/Applications.h"
#include "platform/WindowList.h"

namespace corvane::x11 {

/// Says that the windows of the screen cannot be read.
class UnreadWindowList : public platform::WindowList {
  public:
    std::optional<std::vector<platform::WindowListEntry>> onScreenWindows() override {
        return std::nullopt;
    }
};

/// Knows no application but this one.
class UnknownApplications : public platform::Applications {
  public:
    std::optional<platform::RunningApplication> running(std::int32_t /*process*/) override {
        return std::nullopt;
    }
    std::vector<platform::RunningApplication> running(const std::string & /*bundle*/) override {
        return {};
    }
    std::optional<std::string> displayName(const std::string & /*bundle*/) override {
        return std::nullopt;
    }
    std::string ownBundleIdentifier() const override { return "corvane"; }
};

} // namespace corvane::x11
