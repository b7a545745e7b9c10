#include "FakeNativeView.h"

#include <cmath>

namespace corvane::testing {

namespace {

/// The parts between which a line may be broken: words with the blank behind them, and each
/// character of a script without blanks.
struct Part {
    double width = 0;
    double widthWithoutBlank = 0;
};

std::vector<Part> partsOf(const std::string &text, const FakeFont &font) {
    std::vector<Part> parts(1);
    for (std::size_t index = 0; index < text.size();) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const std::size_t length = byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        index += length;
        const bool isWide = length == 3 && byte >= 0xE3;
        const double width = isWide ? 2 * font.letterWidth : font.letterWidth;
        parts.back().width += width;
        if (byte != ' ') {
            parts.back().widthWithoutBlank = parts.back().width;
        }
        if (byte == ' ' || isWide) {
            parts.emplace_back();
        }
    }
    return parts;
}

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};

double widestOf(const std::vector<std::string> &texts, const FakeFont &font) {
    double widest = 0;
    for (const std::string &text : texts) {
        widest = std::max(widest, lineWidth(text, font));
    }
    return widest;
}

} // namespace

double lineWidth(const std::string &text, const FakeFont &font) {
    double width = 0;
    for (const Part &part : partsOf(text, font)) {
        width += part.width;
    }
    return width;
}

double longestPart(const std::string &text, const FakeFont &font) {
    double longest = 0;
    for (const Part &part : partsOf(text, font)) {
        longest = std::max(longest, part.widthWithoutBlank);
    }
    return longest;
}

double wrappedHeight(const std::string &text, double width, const FakeFont &font) {
    double lines = 1;
    double used = 0;
    for (const Part &part : partsOf(text, font)) {
        if (used > 0 && used + part.widthWithoutBlank > width) {
            ++lines;
            used = 0;
        }
        used += part.width;
    }
    return lines * font.lineHeight;
}

views::MakeNativeView FakeToolkit::make() {
    return [this](const View &view, bool isInColouredLink) {
        return std::make_unique<Area>(*this, view, isInColouredLink);
    };
}

std::string FakeToolkit::nameOf(const View &view) {
    if (!view.identity.empty()) {
        return view.identity;
    }
    return std::visit(
        Overloaded{[](const Text &text) { return text.text; },
                   [](const Button &button) { return button.title; },
                   [](const TextField &field) { return "field " + field.text; },
                   [](const NumberField &field) { return "number " + std::to_string(field.value); },
                   [](const Stack &) { return std::string("stack"); },
                   [](const Link &link) { return "link " + link.address; },
                   [](const auto &) { return std::string("control"); }},
        view.content);
}

FakeToolkit::Area::Area(FakeToolkit &toolkit, const View &shown, bool isColoured)
    : view(shown),
      isInColouredLink(isColoured),
      toolkit_(toolkit) {
    toolkit_.note("make ", view);
}

FakeToolkit::Area::~Area() {
    toolkit_.note("destroy ", view);
    if (parent_ != nullptr) {
        std::erase(parent_->children, this);
    }
}

void FakeToolkit::Area::show() { toolkit_.note("show ", view); }

Size FakeToolkit::Area::measure(double width) {
    const FakeFont &font = toolkit_.font();
    const double line = font.lineHeight;
    const auto titled = [&](const std::string &title, double frame, double height) {
        return Size{lineWidth(title, font) + frame, std::max(height, line)};
    };
    return std::visit(
        Overloaded{
            [&](const Text &text) {
                const double whole = lineWidth(text.text, font);
                return Size{std::min(whole, width),
                            text.isSingleLine ? line : wrappedHeight(text.text, width, font)};
            },
            [&](const SymbolImage &) { return Size{line, line}; },
            [](const FileImage &image) { return image.size; },
            [&](const Button &button) {
                return titled(button.title, button.symbol ? 48 : 28,
                              button.controlSize == ControlSize::small ? 19 : 22);
            },
            [&](const Toggle &toggle) { return titled(toggle.title, toggle.symbol ? 41 : 21, 16); },
            [&](const Picker &picker) {
                const double widest = widestOf(picker.options, font);
                return picker.style == PickerStyle::menu
                           ? Size{widest + 36, 22}
                           : Size{widest + 20, (line + 6) * double(picker.options.size()) - 6};
            },
            [](const NumberField &) { return Size{0, 22}; },
            [](const Stepper &) { return Size{19, 27}; },
            [](const TextField &) { return Size{0, 22}; },
            [](const Divider &) { return Size{0, 1}; },
            [](const MenuButton &) { return Size{26, 20}; },
            [](const auto &) -> Size { throw std::logic_error("nothing to measure"); }},
        view.content);
}

void FakeToolkit::Area::place(const Rectangle &newArea, const Rectangle &newContent) {
    toolkit_.note("place ", view);
    area = newArea;
    content = newContent;
}

void FakeToolkit::Area::insertChild(NativeView &child, std::size_t index) {
    auto &inserted = dynamic_cast<Area &>(child);
    toolkit_.note("insert ", inserted.view);
    std::erase(children, &inserted);
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(index), &inserted);
    inserted.parent_ = this;
}

} // namespace corvane::testing
