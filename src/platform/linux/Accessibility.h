#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/Applications.h"
#include "platform/qt/alerts/AccessibilityGuideWindow.h"
#include "platform/x11/connection/XcbConnection.h"
#include "platform/x11/windows/ClientWindows.h"

namespace corvane::linux {

/// The right to act on other applications: here a matter of the server and the session.
class Accessibility : public platform::Accessibility {
  public:
    /// All of these outlive it.
    Accessibility(const x11::XcbConnection &connection, x11::ClientWindows &windows,
                  Applications &applications, qt::OwnWindows ownWindows);

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    /// A page of our own that says what is missing and how to get it.
    void openSettings() override;
    /// Those of all processes of the application.
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

  private:
    AccessibilityObstacle obstacle() const;

    const x11::XcbConnection &connection_;
    x11::ClientWindows &windows_;
    Applications &applications_;
    const bool isInsideWayland_;
    qt::AccessibilityGuideWindow guideWindow_;
};

} // namespace corvane::linux
