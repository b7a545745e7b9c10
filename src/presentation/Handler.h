#pragma once

#include <functional>
#include <utility>

namespace corvane {

/// What a control calls. Any two are equal: values are compared by what they show, and whoever
/// shows a value calls the handlers of the newest one.
template <typename... Arguments>
struct Handler {
    /// May be empty. Held weakly inside: it may be called after the end of what it acts on.
    std::function<void(Arguments...)> function{};

    void operator()(Arguments... arguments) const {
        // A copy, because the call may replace the value that holds this one.
        if (const auto held = function) {
            held(std::move(arguments)...);
        }
    }

    bool operator==(const Handler &) const { return true; }
};

} // namespace corvane
