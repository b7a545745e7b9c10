#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/AccessibilityGuide.h"
#include "platform/linux/Applications.h"
#include "platform/qt/alerts/AccessibilityGuideWindow.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <set>

namespace corvane::linux {

/// How a window system gives access to other programs.
struct AccessibilitySource {
    /// What keeps clicks from reaching them now.
    std::function<AccessibilityObstacle()> obstacle;
    /// The windows of these processes, front-most first; null while they cannot be read.
    std::function<std::shared_ptr<const platform::AccessibilityWindows>(
        const std::set<std::int32_t> &processes)>
        windows;
};

/// The right to act on other applications: on Linux a matter of the server and the session.
class Accessibility : public platform::Accessibility {
  public:
    /// The applications and what the source reads from outlive it.
    Accessibility(AccessibilitySource source, Applications &applications,
                  qt::OwnWindows ownWindows);

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    /// A page of our own that says what is missing and how to get it.
    void openSettings() override;
    /// Those of all processes of the application.
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

  private:
    const AccessibilitySource source_;
    Applications &applications_;
    qt::AccessibilityGuideWindow guideWindow_;
};

} // namespace corvane::linux
