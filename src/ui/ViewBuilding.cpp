#include "ui/ViewBuilding.h"

#include <utility>

namespace corvane {

View row(std::vector<View> children, double spacing, Alignment alignment) {
    return {.content = Stack{.axis = Axis::horizontal,
                             .alignment = alignment,
                             .spacing = spacing,
                             .children = std::move(children)}};
}

View column(std::vector<View> children, double spacing, Alignment alignment) {
    return {.content = Stack{.axis = Axis::vertical,
                             .alignment = alignment,
                             .spacing = spacing,
                             .children = std::move(children)}};
}

View heading(std::string text) {
    return {.content = Text{.text = std::move(text)}, .font = {FontRole::headline}};
}

View styledText(std::string text, Font font, ShapeStyle style) {
    return {.content = Text{.text = std::move(text)}, .font = font, .foreground = style};
}

View singleLine(View text) {
    std::get<Text>(text.content).isSingleLine = true;
    return text;
}

View symbolImage(std::string name, Font font, ShapeStyle style) {
    return {.content = SymbolImage{.name = std::move(name)}, .font = font, .foreground = style};
}

} // namespace corvane
