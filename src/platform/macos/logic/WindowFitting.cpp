#include "platform/macos/logic/WindowFitting.h"

#include <algorithm>

namespace corvane::macos {

Rectangle fittedFrame(const Rectangle &frame, double height, const Rectangle &visible) {
    const double fitted = std::min(height, visible.height);
    const double top = std::min(frame.y + frame.height, visible.y + visible.height);
    return {frame.x, std::max(top - fitted, visible.y), frame.width, fitted};
}

} // namespace corvane::macos
