#include "model/ClickMode.h"

#include "support/Localised.h"

namespace corvane {

std::string_view storedValue(ClickMode mode) {
    return mode == ClickMode::cursor ? "cursor" : "zone";
}

std::optional<ClickMode> clickModeFromStoredValue(std::string_view text) {
    for (const ClickMode mode : allClickModes) {
        if (storedValue(mode) == text) {
            return mode;
        }
    }
    return std::nullopt;
}

std::string displayName(ClickMode mode) {
    return mode == ClickMode::cursor ? localised("Free Cursor") : localised("Defined Zone");
}

} // namespace corvane
