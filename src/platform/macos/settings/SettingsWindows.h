#pragma once

#include "platform/SettingsWindows.h"

namespace corvane::macos {

/// Settings windows with a preference toolbar.
class SettingsWindows : public platform::SettingsWindows {
  public:
    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;
};

} // namespace corvane::macos
