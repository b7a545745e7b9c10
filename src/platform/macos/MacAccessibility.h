#pragma once

#include "platform/Accessibility.h"

namespace corvane::macos {

/// The Accessibility interface of the system.
class MacAccessibility : public platform::Accessibility {
  public:
    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    std::optional<std::vector<std::unique_ptr<platform::AccessibilityWindow>>>
    windows(std::int32_t processIdentifier) override;
};

} // namespace corvane::macos
