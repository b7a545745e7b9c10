#pragma once

#include <expected>
#include <string>

namespace corvane {

/// Why an operation could not be done, in words for a log line or standard output.
struct Failure {
    std::string description;

    bool operator==(const Failure &) const = default;
};

/// The value of an operation, or why there is none.
template <typename Value = void>
using Outcome = std::expected<Value, Failure>;

} // namespace corvane
