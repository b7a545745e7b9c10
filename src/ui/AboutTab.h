#pragma once

#include "ui/SettingsTab.h"

#include <filesystem>
#include <optional>
#include <string>

namespace corvane {

namespace platform {
class Application;
class Workspace;
} // namespace platform

/// What this program is, and where to find more about it.
class AboutTab : public SettingsTab {
  public:
    /// `workspace` outlives the tab.
    AboutTab(const platform::Application &application, platform::Workspace &workspace);

    View body() override;

  private:
    View link(const std::string &address, bool isPlain, View label);
    View webPageLink();
    View donationLink();
    View creditLink();

    /// "2.1 (37)".
    const std::string appVersion_;
    const std::optional<std::filesystem::path> iconFile_;
    platform::Workspace &workspace_;
};

} // namespace corvane
