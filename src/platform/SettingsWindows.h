#pragma once

namespace corvane::platform {

/// The settings window. Main thread.
class SettingsWindows {
  public:
    virtual ~SettingsWindows() = default;
};

} // namespace corvane::platform
