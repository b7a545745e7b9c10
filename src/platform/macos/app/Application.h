#pragma once

#include "platform/Application.h"

namespace corvane::macos {

/// The shared application object and the main bundle.
class Application : public platform::Application {
  public:
    void terminate() override;
    void activateIgnoringOtherApps() override;
    std::optional<std::string> shortVersion() const override;
    std::optional<std::string> buildVersion() const override;
    std::optional<std::filesystem::path> iconFile() const override;
    std::filesystem::path homeDirectory() const override;
};

} // namespace corvane::macos
