#pragma once

#include "platform/Screens.h"

namespace corvane::testing {

/// The monitors a test says there are.
class FakeScreens : public platform::Screens {
  public:
    std::vector<platform::Screen> screens() const override { return list; }

    std::vector<platform::Screen> list{{.frame = {0, 0, 1920, 1080}}};
};

} // namespace corvane::testing
