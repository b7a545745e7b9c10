#include "support/ReadableView.h"

#include "support/NumberText.h"

#include <array>
#include <string_view>
#include <vector>

namespace corvane::testing {

namespace {

std::string number(double value) { return shortestNumberText(value); }

std::string inQuotes(std::string_view text) { return " \"" + std::string(text) + "\""; }

std::string_view name(Alignment alignment) {
    static constexpr std::array names = {"leading", "center", "trailing", "top"};
    return names.at(static_cast<std::size_t>(alignment));
}

std::string_view name(FontRole role) {
    static constexpr std::array names = {"body",     "callout", "caption2",
                                         "headline", "title",   "system"};
    return names.at(static_cast<std::size_t>(role));
}

std::string_view name(FontWeight weight) {
    static constexpr std::array names = {"regular", "medium", "semibold", "bold"};
    return names.at(static_cast<std::size_t>(weight));
}

std::string_view name(ColourName colour) {
    static constexpr std::array names = {"clear", "black",  "white", "blue",
                                         "green", "orange", "pink"};
    return names.at(static_cast<std::size_t>(colour));
}

std::string readable(const ShapeStyle &style) {
    static constexpr std::array levels = {"primary", "secondary", "tertiary", "quaternary"};
    if (const auto *level = std::get_if<HierarchicalStyle>(&style)) {
        return levels.at(static_cast<std::size_t>(*level));
    }
    const Colour colour = std::get<Colour>(style);
    return std::string(name(colour.name)) + (colour.alpha == 1 ? "" : "@" + number(colour.alpha));
}

std::string readable(const Font &font) {
    std::string text(name(font.role));
    text += font.role == FontRole::system ? " " + number(font.size) : "";
    text += font.weight ? " " + std::string(name(*font.weight)) : "";
    return text + (font.isMonospaced ? " monospaced" : "");
}

std::string readable(const Insets &padding) {
    if (padding == Insets::all(padding.top)) {
        return number(padding.top);
    }
    return number(padding.top) + " " + number(padding.leading) + " " + number(padding.bottom) +
           " " + number(padding.trailing);
}

std::string readable(const Background &background) {
    return readable(background.fill) + (background.shape == BackgroundShape::capsule
                                            ? " capsule"
                                            : " rounded " + number(background.cornerRadius));
}

std::string modifiers(const View &view) {
    std::string text;
    text += view.font == Font{} ? "" : ", " + readable(view.font);
    text += view.foreground ? ", " + readable(*view.foreground) : "";
    text += view.padding == Insets{} ? "" : ", padding " + readable(view.padding);
    text += view.width ? ", width " + number(*view.width) : "";
    text += view.minHeight ? ", min height " + number(*view.minHeight) : "";
    text += view.fullWidth ? ", full width " + std::string(name(*view.fullWidth)) : "";
    text += view.background ? ", on " + readable(*view.background) : "";
    text += view.accessibilityLabel.empty() ? "" : ", says" + inQuotes(view.accessibilityLabel);
    return text + (view.identity.empty() ? "" : ", is" + inQuotes(view.identity));
}

std::string symbolName(const std::optional<Symbol> &symbol) {
    return symbol ? " " + symbol->name : "";
}

/// Writes what is special about each kind of view.
struct ContentText {
    std::string operator()(const Stack &stack) const {
        return std::string(stack.axis == Axis::vertical ? "column " : "row ") +
               std::string(name(stack.alignment)) + " " + number(stack.spacing);
    }
    std::string operator()(const Text &text) const {
        return "text" + inQuotes(text.text) + (text.isSingleLine ? " on one line" : "") +
               (text.lineAlignment == Alignment::leading
                    ? ""
                    : " " + std::string(name(text.lineAlignment)));
    }
    std::string operator()(const SymbolImage &symbol) const { return "symbol " + symbol.name; }
    std::string operator()(const FileImage &image) const {
        return "image " + image.file.string() + " " + number(image.size.width) + "×" +
               number(image.size.height) + " rounded " + number(image.cornerRadius);
    }
    std::string operator()(const Button &button) const {
        return "button" + symbolName(button.symbol) + inQuotes(button.title) +
               (button.controlSize == ControlSize::small ? " small" : "") +
               (button.style == ButtonStyle::borderedProminent ? " prominent" : "") +
               (button.isDefaultAction ? " default" : "") + (button.isEnabled ? "" : " disabled");
    }
    std::string operator()(const Toggle &toggle) const {
        return "toggle" + symbolName(toggle.symbol) + inQuotes(toggle.title) +
               (toggle.isOn ? " on" : " off");
    }
    std::string operator()(const Picker &picker) const {
        std::string text = picker.style == PickerStyle::radioGroup ? "radio group" : "picker";
        for (std::size_t index = 0; index < picker.options.size(); ++index) {
            text += index == picker.selected ? " *" : " ";
            text += picker.options[index];
        }
        return text;
    }
    std::string operator()(const NumberField &field) const {
        return "number field " + std::to_string(field.value);
    }
    std::string operator()(const Stepper &stepper) const {
        return "stepper " + std::to_string(stepper.value) + " in " +
               std::to_string(stepper.lowest) + "..." + std::to_string(stepper.highest) + " by " +
               std::to_string(stepper.step);
    }
    std::string operator()(const TextField &field) const {
        return "text field" + inQuotes(field.text) + " for" + inQuotes(field.placeholder);
    }
    std::string operator()(const Divider &) const { return "divider"; }
    std::string operator()(const MenuButton &menu) const {
        std::string text = "menu " + menu.symbolName;
        for (const MenuButtonItem &item : menu.items) {
            text += item.title.empty() ? " |" : inQuotes(item.title);
            text += item.isDestructive ? " destructive" : "";
        }
        return text;
    }
    std::string operator()(const Link &link) const {
        return std::string(link.isPlain ? "plain link " : "link ") + link.address;
    }
};

std::vector<View> childrenOf(const View &view) {
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        return stack->children;
    }
    if (const auto *link = std::get_if<Link>(&view.content)) {
        return link->label;
    }
    return {};
}

void append(std::string &text, const View &view, std::size_t depth) {
    text.append(2 * depth, ' ');
    text += std::visit(ContentText{}, view.content) + modifiers(view) + "\n";
    for (const View &child : childrenOf(view)) {
        append(text, child, depth + 1);
    }
}

} // namespace

std::string readableText(const View &view) {
    std::string text;
    append(text, view, 0);
    return text;
}

} // namespace corvane::testing
