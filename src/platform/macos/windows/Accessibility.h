#pragma once

#include "platform/Accessibility.h"

#include <memory>

namespace corvane::platform {
class ContinuousClock;
}

namespace corvane::macos {

class SilentApplications;

/// The Accessibility interface of the system.
class Accessibility : public platform::Accessibility {
  public:
    /// The clock outlives it.
    explicit Accessibility(const platform::ContinuousClock &clock);

    bool isProcessTrusted() override;
    bool isProcessTrustedWithPrompt() override;
    void openSettings() override;
    std::shared_ptr<const platform::AccessibilityWindows>
    windows(std::int32_t processIdentifier) override;

  private:
    std::shared_ptr<SilentApplications> silent_;
};

} // namespace corvane::macos
