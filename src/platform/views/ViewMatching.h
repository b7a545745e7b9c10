#pragma once

#include "presentation/View.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvane::views {

/// What two views must have in common to be shown, one after the other, by the same control.
struct ViewKind {
    std::size_t content = 0;
    /// Different controls for one content, such as the styles of a picker.
    std::size_t variety = 0;
    std::string identity{};

    bool operator==(const ViewKind &) const = default;
};

ViewKind kindOf(const View &view);

/// For each of the next kinds the index of the former one whose control it takes over: the first of
/// the same kind that is left. Nothing where a new control is needed.
template <typename Kind>
std::vector<std::optional<std::size_t>> matched(const std::vector<Kind> &former,
                                                const std::vector<Kind> &next) {
    std::vector<bool> isTaken(former.size());
    std::size_t firstLeft = 0;
    std::vector<std::optional<std::size_t>> matches;
    for (const Kind &kind : next) {
        while (firstLeft < former.size() && isTaken[firstLeft]) {
            ++firstLeft;
        }
        std::optional<std::size_t> match;
        for (std::size_t index = firstLeft; index < former.size() && !match; ++index) {
            if (!isTaken[index] && former[index] == kind) {
                isTaken[index] = true;
                match = index;
            }
        }
        matches.push_back(match);
    }
    return matches;
}

} // namespace corvane::views
