#pragma once

#include "platform/LoginItem.h"

namespace corvane::macos {

/// The application's own login item service.
class LoginItem : public platform::LoginItem {
  public:
    bool isEnabled() const override;
    Outcome<> registerItem() override;
    Outcome<> unregisterItem() override;
};

} // namespace corvane::macos
