#include "platform/views/ViewMatching.h"

namespace corvane::views {

ViewKind kindOf(const View &view) {
    std::size_t variety = 0;
    if (const auto *picker = std::get_if<Picker>(&view.content)) {
        variety = static_cast<std::size_t>(picker->style);
    } else if (const auto *link = std::get_if<Link>(&view.content)) {
        variety = link->isPlain ? 1 : 0;
    }
    return {.content = view.content.index(), .variety = variety, .identity = view.identity};
}

} // namespace corvane::views
