#pragma once

#include "platform/Accessibility.h"
#include "platform/qt/alerts/AccessibilityGuideWindow.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/AccessibilityWindows.h"
#include "platform/x11/windows/ClientWindows.h"

namespace corvane::x11 {

/// The right to act on other applications: here a matter of the server and the session.
class LinuxAccessibility : public platform::Accessibility {
  public:
    /// The connection, on which the program depends, and the windows outlive it.
    LinuxAccessibility(const XcbConnection &connection, ClientWindows &windows);

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

    /// Shows the user what is missing and how to get it.
    void showGuide();

  private:
    AccessibilityObstacle obstacle() const;

    const XcbConnection &connection_;
    LinuxAccessibilityWindows windows_;
    const bool isInsideWayland_;
    AccessibilityGuideWindow guideWindow_;
};

} // namespace corvane::x11
