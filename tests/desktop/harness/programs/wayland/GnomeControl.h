#pragma once

#include "Control.h"

#include <string>
#include <vector>

namespace corvane::desktop {

class GnomeControl : public Control {
  public:
    GnomeControl();

    bool carryOut(const std::vector<std::string> &fields) const override;
};

} // namespace corvane::desktop
