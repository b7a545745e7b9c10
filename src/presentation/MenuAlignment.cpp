#include "presentation/MenuAlignment.h"

#include <algorithm>
#include <iterator>

namespace corvane {

namespace {

/// Whether a line can become the other in place. Some panels fix the kind of a line, and whether it
/// has a check mark, when they first see it.
bool isSameKind(const MenuItem &one, const MenuItem &other) {
    return one.isSeparator == other.isSeparator && one.isOn == other.isOn &&
           one.submenu.has_value() == other.submenu.has_value();
}

/// Whether both stand for the same thing, whatever their texts and states.
bool isSameItem(const MenuItem &one, const MenuItem &other) {
    return isSameKind(one, other) && one.action == other.action &&
           one.representedObject == other.representedObject;
}

} // namespace

MenuAlignment alignMenu(const std::vector<MenuItem> &from, const std::vector<MenuItem> &to) {
    const auto [fromHead, toHead] = std::ranges::mismatch(from, to, isSameItem);
    const auto [fromTail, toTail] =
        std::mismatch(from.rbegin(), std::make_reverse_iterator(fromHead), to.rbegin(),
                      std::make_reverse_iterator(toHead), isSameItem);
    const auto leading = static_cast<std::size_t>(std::distance(from.begin(), fromHead));
    const auto removed = static_cast<std::size_t>(std::distance(fromHead, fromTail.base()));
    const auto inserted = static_cast<std::size_t>(std::distance(toHead, toTail.base()));

    const auto canBecomeInPlace =
        std::equal(fromHead, fromTail.base(), toHead, toTail.base(), isSameKind);
    if (canBecomeInPlace) {
        return {.leading = leading + removed};
    }
    return {.leading = leading, .removed = removed, .inserted = inserted};
}

} // namespace corvane
