#include "platform/macos/logic/AlertAnswer.h"

namespace corvane::macos {

std::size_t answeredButton(std::ptrdiff_t reported, std::size_t buttonCount) {
    const bool isButton = reported >= 0 && reported < static_cast<std::ptrdiff_t>(buttonCount);
    const std::size_t last = buttonCount > 0 ? buttonCount - 1 : 0;
    return isButton ? static_cast<std::size_t>(reported) : last;
}

} // namespace corvane::macos
