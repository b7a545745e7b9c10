#pragma once

#include "HelperProgram.h"
#include "servers/VirtualDesktop.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// A line of a menu as a panel gets it.
struct MenuLine {
    /// 0 for the lines of the menu itself, 1 for those of a submenu.
    int depth = 0;
    bool isSeparator = false;
    bool isEnabled = true;
    bool isChecked = false;
    std::string title;

    bool operator==(const MenuLine &) const = default;
};

/// A panel that shows status items by the message bus (StatusNotifierItem).
class StatusPanel {
  public:
    explicit StatusPanel(const VirtualDesktop &desktop);

    /// Waits until a program has registered its item; false when time runs out.
    bool waitForItem() const;

    /// How many items have been registered so far.
    int itemCount() const;

    /// The menu of the item that registered last.
    std::vector<MenuLine> menu();

    /// The line with that title; nothing where there is none.
    std::optional<MenuLine> line(const std::string &title);

    /// Chooses the line with that title; false where there is none or the program refuses.
    bool choose(const std::string &title);

    ChildProcess &process() { return program_.process(); }

  private:
    std::vector<std::string> request(const std::string &command);

    HelperProgram program_;
};

} // namespace corvane::desktop
