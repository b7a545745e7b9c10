#pragma once

#include "platform/Accessibility.h"

#include <memory>

namespace corvane::macos {

class SilentApplications;

/// The Accessibility interface of the system.
class Accessibility : public platform::Accessibility {
  public:
    Accessibility();

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

  private:
    std::shared_ptr<SilentApplications> silent_;
};

} // namespace corvane::macos
