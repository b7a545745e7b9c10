#pragma once

#include "services/ZonePickerService.h"
#include "support/WeakCallbacks.h"

#include <functional>
#include <optional>

namespace corvane {

namespace platform {
class MainQueue;
}
class RunController;
class SettingsController;
struct SharedServices;

/// Lets the user draw the zone, with the run stopped and the settings out of the way, and stores
/// what was drawn. Main thread.
class ZoneSelection {
  public:
    /// All outlive the selection. `refresh` rebuilds the menu.
    ZoneSelection(platform::MainQueue &mainQueue, SharedServices &shared, RunController &runs,
                  SettingsController &settings, std::function<void()> refresh);

    /// Refused, with a line in the log, while an alert is open: the picker would cover it.
    void select();

  private:
    void pick();
    void picked(const std::optional<ZonePickResult> &result);

    platform::MainQueue &mainQueue_;
    SharedServices &shared_;
    RunController &runs_;
    SettingsController &settings_;
    const std::function<void()> refresh_;
    bool areSettingsHidden_ = false;
    const WeakCallbacks<ZoneSelection> weakly_{*this};
};

} // namespace corvane
