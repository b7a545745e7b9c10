#pragma once

#include "platform/OverlayWindows.h"
#include "support/OneThread.h"
#include "support/recorder/RecordedOverlay.h"

#include <memory>
#include <vector>

namespace corvane::testing {

/// Overlays without a screen; keeps every one ever made. Main thread.
class RecordingOverlayWindows : public platform::OverlayWindows {
  public:
    std::unique_ptr<platform::NativeOverlay> create(const BorderlessWindow &window,
                                                    platform::OverlayEvents events) override;

    /// Overlays made from now on receive nothing while one of these alerts is open; none for
    /// always.
    const RecordingAlerts *deafUnder = nullptr;
    /// Whether the system refuses the keyboard to overlays, which then have the Escape key alone.
    bool isKeyboardRefused = false;

    /// All overlays ever made, in that order, the destroyed ones included.
    const std::vector<std::shared_ptr<RecordedOverlay>> &all() const { return overlays_; }

    /// Those on the screen now, in the order they were made.
    std::vector<std::shared_ptr<RecordedOverlay>> visible() const;

    /// Those that are not destroyed.
    std::vector<std::shared_ptr<RecordedOverlay>> living() const;

    /// Ends every animation under way and calls the completions.
    void completeAnimations();

  private:
    class Overlay;

    const OneThread mainThread_{"overlay windows"};
    std::vector<std::shared_ptr<RecordedOverlay>> overlays_;
};

} // namespace corvane::testing
