#pragma once

#include <string>

namespace corvane {

enum class FontWeight { regular, medium, semibold, bold };

/// A system symbol by name. A back end that has no symbol of that name shows none.
struct Symbol {
    std::string name;
    /// Points; 0 for the size that fits the place it stands in.
    double pointSize = 0;
    FontWeight weight = FontWeight::regular;
    /// What a screen reader says; empty for a decoration.
    std::string description{};

    bool operator==(const Symbol &) const = default;
};

} // namespace corvane
