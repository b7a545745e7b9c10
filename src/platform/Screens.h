#pragma once

#include "support/Geometry.h"

#include <vector>

namespace corvane::platform {

/// One monitor.
struct Screen {
    /// Screen space.
    Rectangle frame;

    bool operator==(const Screen &) const = default;
};

/// The monitors now in use. Main thread.
class Screens {
  public:
    virtual ~Screens() = default;

    /// The primary screen first; empty when there is none.
    virtual std::vector<Screen> screens() const = 0;
};

} // namespace corvane::platform
