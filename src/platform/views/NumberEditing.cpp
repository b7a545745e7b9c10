#include "platform/views/NumberEditing.h"

#include "presentation/WholeNumber.h"

namespace corvane::views {

std::optional<std::string> textToShow(std::int64_t former, std::int64_t next,
                                      std::string_view shown, bool isEditing) {
    if (isEditing && (next == former || wholeNumber(shown) == next)) {
        return std::nullopt;
    }
    std::string text = wholeNumberText(next);
    return text == shown ? std::nullopt : std::optional(std::move(text));
}

std::optional<std::int64_t> typedValue(std::string_view text, std::int64_t present) {
    const auto typed = wholeNumber(text);
    return typed == present ? std::nullopt : typed;
}

std::optional<std::int64_t> steppedValue(const Stepper &stepper, double change) {
    if (change == 0) {
        return std::nullopt;
    }
    return change > 0 ? stepper.incremented() : stepper.decremented();
}

} // namespace corvane::views
