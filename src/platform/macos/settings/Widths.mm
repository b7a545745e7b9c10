#import "platform/macos/settings/Widths.h"

#include <algorithm>

namespace corvane::macos {

namespace {

bool hasFillingChild(const Stack &stack) {
    return std::ranges::any_of(stack.children, [&](const View &child) {
        // Across a row a divider stands upright.
        const bool isUpright =
            stack.axis == Axis::horizontal && std::holds_alternative<Divider>(child.content);
        return !isUpright && fillsWidth(child);
    });
}

} // namespace

bool contentFillsWidth(const View &view) {
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        return hasFillingChild(*stack);
    }
    if (const auto *link = std::get_if<Link>(&view.content)) {
        return fillsWidth(link->label.front());
    }
    return std::holds_alternative<TextField>(view.content) ||
           std::holds_alternative<NumberField>(view.content) ||
           std::holds_alternative<Divider>(view.content);
}

bool fillsWidth(const View &view) {
    return !view.width && (view.fullWidth || contentFillsWidth(view));
}

} // namespace corvane::macos
