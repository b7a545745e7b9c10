#pragma once

#include <functional>

namespace corvane {

/// What a control calls. Any two are equal: values are compared by what they show, and whoever
/// shows a value calls the handlers of the newest one.
template <typename... Arguments>
struct Handler {
    /// May be empty. Held weakly inside: it may be called after the end of what it acts on.
    std::function<void(Arguments...)> function{};

    void operator()(Arguments... arguments) const {
        if (function) {
            function(arguments...);
        }
    }

    bool operator==(const Handler &) const { return true; }
};

} // namespace corvane
