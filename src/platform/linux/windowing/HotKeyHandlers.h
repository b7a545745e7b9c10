#pragma once

#include "platform/HotKeys.h"
#include "support/Subscriptions.h"

#include <functional>
#include <memory>
#include <utility>

namespace corvane::linux {

/// What a window system calls when a registered hot key is pressed. Main thread.
class HotKeyHandlers {
  public:
    /// Destroying the reference removes the handler.
    std::unique_ptr<platform::HotKeyReference> install(std::function<void()> pressed) {
        return std::make_unique<Installed>(handlers_.add(std::move(pressed)));
    }

    /// Handlers may remove themselves and install others.
    void call() const { handlers_.call(); }

  private:
    class Installed : public platform::HotKeyReference {
      public:
        explicit Installed(Subscriptions<>::Subscription handler) : handler_(std::move(handler)) {}

      private:
        const Subscriptions<>::Subscription handler_;
    };

    Subscriptions<> handlers_;
};

} // namespace corvane::linux
