#pragma once

#include "Control.h"

#include <string>
#include <vector>

namespace corvane::desktop {

class KWinControl : public Control {
  public:
    /// The connection outlives it.
    explicit KWinControl(const wayland::Connection &connection) : connection_(connection) {}

    bool carryOut(const std::vector<std::string> &fields) const override;

  private:
    const wayland::Connection &connection_;
};

} // namespace corvane::desktop
