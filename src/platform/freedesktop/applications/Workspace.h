#pragma once

#include "platform/Workspace.h"

#include <functional>

namespace corvane::freedesktop {

/// Opens addresses through the desktop.
class Workspace : public platform::Workspace {
  public:
    /// `showAccessibilityGuide` stands in for the settings page this desktop does not have.
    explicit Workspace(std::function<void()> showAccessibilityGuide);

    void openUrl(const std::string &url) override;

  private:
    std::function<void()> showAccessibilityGuide_;
};

} // namespace corvane::freedesktop
