#pragma once

#include "platform/Screens.h"

namespace corvane::macos {

/// The screens as the windowing system lists them.
class Screens : public platform::Screens {
  public:
    std::vector<platform::Screen> screens() const override;
};

} // namespace corvane::macos
