#include "ui/CardModifier.h"

#include <utility>

namespace corvane {

View cardModifier(View content) {
    return {.content = Stack{.children = {std::move(content)}},
            .padding = Insets::all(16),
            .fullWidth = Alignment::leading,
            .background = Background{.cornerRadius = 12}};
}

} // namespace corvane
