#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

/// Functions that are called with every event until their subscriber gives them up. One thread.
template <typename... Event>
class Subscriptions {
  public:
    using Handler = std::function<void(const Event &...)>;

    /// Destroying it ends the subscription; it may outlive the subscriptions themselves.
    using Subscription = std::shared_ptr<const Handler>;

    [[nodiscard]] Subscription add(Handler handler) {
        std::erase_if(handlers_, [](const auto &known) { return known.expired(); });
        auto subscription = std::make_shared<const Handler>(std::move(handler));
        handlers_.push_back(subscription);
        return subscription;
    }

    /// Handlers may subscribe others and end any subscription, their own included.
    void call(const Event &...event) const {
        const auto handlers = handlers_;
        for (const auto &known : handlers) {
            if (const auto handler = known.lock()) {
                (*handler)(event...);
            }
        }
    }

  private:
    std::vector<std::weak_ptr<const Handler>> handlers_;
};

} // namespace corvane
