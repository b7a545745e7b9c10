#pragma once

#include "platform/SettingsWindows.h"

#include <memory>

namespace corvane::x11 {

class SymbolImages;

/// Settings windows made of the toolkit's widgets.
class LinuxSettingsWindows : public platform::SettingsWindows {
  public:
    LinuxSettingsWindows();

    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;

  private:
    std::shared_ptr<SymbolImages> symbols_;
};

} // namespace corvane::x11
