#pragma once

#include "platform/SettingsWindows.h"

#include <memory>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// Settings windows made of Qt widgets. Main thread.
class SettingsWindows : public platform::SettingsWindows {
  public:
    SettingsWindows();

    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;

  private:
    std::shared_ptr<drawing::SymbolImages> symbols_;
};

} // namespace corvane::qt
