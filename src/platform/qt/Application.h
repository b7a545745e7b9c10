#pragma once

#include "platform/Application.h"
#include "platform/qt/OwnWindows.h"

#include <utility>

namespace corvane::qt {

/// The Qt application.
class Application : public platform::Application {
  public:
    explicit Application(OwnWindows ownWindows) : ownWindows_(std::move(ownWindows)) {}

    void terminate() override;
    void activateIgnoringOtherApps() override;
    std::optional<std::string> shortVersion() const override;
    std::optional<std::string> buildVersion() const override;
    std::optional<std::filesystem::path> iconFile() const override;
    std::filesystem::path homeDirectory() const override;

  private:
    const OwnWindows ownWindows_;
};

} // namespace corvane::qt
