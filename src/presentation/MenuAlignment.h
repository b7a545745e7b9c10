#pragma once

#include "presentation/Menu.h"

#include <cstddef>
#include <vector>

namespace corvane {

/// How the lines of a menu become those of another with as little change as possible: the first
/// `leading` lines and all lines behind the gap stay and take new texts and states; in the gap
/// `removed` lines go and `inserted` lines come.
struct MenuAlignment {
    std::size_t leading = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;

    bool isSameLayout() const { return removed == 0 && inserted == 0; }
};

MenuAlignment alignMenu(const std::vector<MenuItem> &from, const std::vector<MenuItem> &to);

} // namespace corvane
