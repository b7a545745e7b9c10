#pragma once

#include "support/Failure.h"

namespace corvane::platform {

/// Starting this program when the user logs in. Main thread.
class LoginItem {
  public:
    virtual ~LoginItem() = default;

    /// What the system will really do at the next login.
    virtual bool isEnabled() const = 0;

    virtual Outcome<> registerItem() = 0;
    virtual Outcome<> unregisterItem() = 0;
};

} // namespace corvane::platform
