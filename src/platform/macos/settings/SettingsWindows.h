#pragma once

#include "platform/SettingsWindows.h"

namespace corvane::macos {

class KeyboardFocus;

/// Settings windows with a preference toolbar.
class SettingsWindows : public platform::SettingsWindows {
  public:
    /// The keyboard outlives it and every window.
    explicit SettingsWindows(KeyboardFocus &keyboard) : keyboard_(keyboard) {}

    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;

  private:
    KeyboardFocus &keyboard_;
};

} // namespace corvane::macos
