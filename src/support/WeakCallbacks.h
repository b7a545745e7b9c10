#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// Makes callbacks that do nothing once their owner is gone. A member of the owner, which is
/// neither copied nor moved. The callbacks may be copied on any thread and run on the owner's.
template <typename Owner>
class WeakCallbacks {
  public:
    explicit WeakCallbacks(Owner &owner) : owner_(std::make_shared<Owner *>(&owner)) {}
    WeakCallbacks(const WeakCallbacks &) = delete;
    WeakCallbacks &operator=(const WeakCallbacks &) = delete;
    ~WeakCallbacks() = default;

    /// Calls `work`, a member of the owner or a function that takes the owner first.
    template <typename Work>
    auto operator()(Work work) const {
        return [held = std::weak_ptr(owner_), work = std::move(work)](const auto &...arguments) {
            if (const auto owner = held.lock()) {
                std::invoke(work, **owner, arguments...);
            }
        };
    }

  private:
    std::shared_ptr<Owner *> owner_;
};

} // namespace corvane
