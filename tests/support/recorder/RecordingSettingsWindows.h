#pragma once

#include "platform/SettingsWindows.h"
#include "support/recorder/RecordedSettingsWindow.h"

#include <memory>
#include <vector>

namespace corvane::testing {

/// Settings windows without a screen; keeps every window ever made. Main thread.
class RecordingSettingsWindows : public platform::SettingsWindows {
  public:
    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;

    /// Called when a window is made.
    std::function<void()> whileCreating;

    /// All windows ever made, in that order, the destroyed ones included.
    const std::vector<std::shared_ptr<RecordedSettingsWindow>> &windows() const { return windows_; }

    /// The window made last. Fails the test when there is none.
    RecordedSettingsWindow &window() const;

  private:
    class Window;

    std::vector<std::shared_ptr<RecordedSettingsWindow>> windows_;
};

} // namespace corvane::testing
