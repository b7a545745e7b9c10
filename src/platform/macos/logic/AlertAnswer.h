#pragma once

#include <cstddef>

namespace corvane::macos {

/// The index of the button that answered an alert, where the system reports that number counted
/// from the first button; an alert that ended in another way counts as its last button.
std::size_t answeredButton(std::ptrdiff_t reported, std::size_t buttonCount);

} // namespace corvane::macos
