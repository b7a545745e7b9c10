#pragma once

#include "platform/SettingsWindows.h"
#include "platform/qt/OwnWindows.h"

#include <memory>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// Settings windows made of Qt widgets. Main thread.
class SettingsWindows : public platform::SettingsWindows {
  public:
    explicit SettingsWindows(OwnWindows ownWindows);

    std::unique_ptr<platform::NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) override;

  private:
    const OwnWindows ownWindows_;
    std::shared_ptr<drawing::SymbolImages> symbols_;
};

} // namespace corvane::qt
