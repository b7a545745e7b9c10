#pragma once

#include "presentation/SettingsWindow.h"
#include "presentation/View.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace corvane::testing {

/// One settings window as it was used, and a user's hands on its frame. Main thread.
class RecordedSettingsWindow {
  public:
    RecordedSettingsWindow(const SettingsWindow &window,
                           std::function<void(const std::string &)> toolbarItemSelected)
        : created(window),
          title(window.title),
          selectedToolbarItem(window.toolbar.selectedItem),
          toolbarItemSelected_(std::move(toolbarItemSelected)) {}

    /// As it was asked for.
    const SettingsWindow created;

    // What it shows now.
    std::string title;
    std::string selectedToolbarItem;
    std::optional<View> content;

    bool isVisible = false;
    bool isDestroyed = false;
    int centerings = 0;
    /// How often it was brought to the front with the keyboard.
    int ordersFront = 0;
    /// How often its content was shown afresh.
    int contentsSet = 0;
    int contentUpdates = 0;

    void chooseToolbarItem(const std::string &identifier) const {
        toolbarItemSelected_(identifier);
    }
    void closeByUser() { isVisible = false; }

  private:
    std::function<void(const std::string &)> toolbarItemSelected_;
};

} // namespace corvane::testing
