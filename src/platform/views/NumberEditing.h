#pragma once

#include "presentation/View.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::views {

/// The text a number field has to show when its value goes from `former` to `next`, where it shows
/// `shown`; nothing where that stays. While the user types, only a value from elsewhere replaces
/// the text.
std::optional<std::string> textToShow(std::int64_t former, std::int64_t next,
                                      std::string_view shown, bool isEditing);

/// The new value that a text typed into a field stands for; nothing where it stands for none or for
/// the present one.
std::optional<std::int64_t> typedValue(std::string_view text, std::int64_t present);

/// The value after a press on a toolkit's stepper that has moved the toolkit's own value by
/// `change`; nothing where that is no way.
std::optional<std::int64_t> steppedValue(const Stepper &stepper, double change);

} // namespace corvane::views
