#pragma once

#include "platform/Accessibility.h"

#include <functional>
#include <map>

namespace corvane::testing {

/// A window of another application; what is absent cannot be read.
struct FakeWindow {
    std::optional<std::string> title{};
    std::optional<Point> position{};
    std::optional<Size> size{};
};

/// The right and the windows a test says there are. Main thread.
class FakeAccessibility : public platform::Accessibility {
  public:
    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    void openSettings() override { ++settingsOpened; }
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

    bool isTrusted = true;
    /// Called when the user is asked for the right.
    std::function<void()> whilePrompting;
    /// How often the user was asked for the right.
    int prompts = 0;
    int settingsOpened = 0;
    /// How often the right was checked without asking.
    int checks = 0;
    /// How often an application's windows were read.
    int windowReadings = 0;
    /// By process; the windows of any other process cannot be read.
    std::map<std::int32_t, std::vector<FakeWindow>> windowsByProcess;
};

} // namespace corvane::testing
