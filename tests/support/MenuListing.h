#pragma once

#include "presentation/Menu.h"

#include <string>

namespace corvane::testing {

/// A menu as readable text, one item a line, submenus indented:
/// "[x] Title | action | image | hot key Y | key | object" with "(off)" behind a disabled title and
/// "---" for a separator.
std::string listing(const Menu &menu);

} // namespace corvane::testing
