#pragma once

#include "CommandInput.h"
#include "ItemWatcher.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// A panel that shows status items, as far as a test needs one. Its commands: "menu" reports the
/// lines of the menu, "choose" with a label chooses from it.
class PanelProgram {
  public:
    bool appear() { return watcher_.appear(); }

  private:
    bool carryOut(const std::vector<std::string> &fields) const;
    void reportMenu() const;
    bool choose(const std::string &label) const;

    ItemWatcher watcher_;
    CommandInput commands_{[this](const auto &fields) { return carryOut(fields); }};
};

} // namespace corvane::desktop
