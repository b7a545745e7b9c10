#pragma once

#include "platform/LoginItem.h"

#include <optional>

namespace corvane::testing {

/// A login item without a system.
class RecordingLoginItem : public platform::LoginItem {
  public:
    bool isEnabled() const override { return enabled; }

    Outcome<> registerItem() override {
        ++registrations;
        return change(true);
    }

    Outcome<> unregisterItem() override {
        ++unregistrations;
        return change(false);
    }

    bool enabled = false;
    /// Why the next changes fail; nothing for success.
    std::optional<Failure> failure;
    int registrations = 0;
    int unregistrations = 0;

  private:
    Outcome<> change(bool isEnabled) {
        if (failure) {
            return std::unexpected(*failure);
        }
        enabled = isEnabled;
        return {};
    }
};

} // namespace corvane::testing
