#pragma once

#include "platform/StatusBar.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

/// One status item as it was used, and a user's hands on its menu. Main thread.
class RecordedStatusItem {
  public:
    explicit RecordedStatusItem(std::function<void(const MenuCommand &)> perform)
        : perform_(std::move(perform)) {}

    /// What the item shows now; absent until set.
    std::optional<StatusIcon> icon;
    std::optional<Menu> menu;
    std::string toolTip;
    int iconsSet = 0;
    int menusSet = 0;
    int menusOpened = 0;
    bool isDestroyed = false;

    /// The titles of the menu's top level, top to bottom; empty for a separator.
    std::vector<std::string> titles() const;

    /// The first item of that title, submenus included; null when there is none.
    const MenuItem *find(const std::string &title) const;

    /// Chooses the first item of that title. Fails the test when there is none or when it cannot be
    /// chosen.
    void choose(const std::string &title);

    /// Sends a command as an item of any menu might.
    void perform(const MenuCommand &command);

  private:
    friend class RecordingStatusBar;

    std::function<void(const MenuCommand &)> perform_;
};

} // namespace corvane::testing
