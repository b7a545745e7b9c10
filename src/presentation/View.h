#pragma once

#include "presentation/Handler.h"
#include "presentation/Symbol.h"
#include "presentation/ViewStyle.h"
#include "support/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace corvane {

struct View;

enum class Axis { horizontal, vertical };

/// Views beside or below each other.
struct Stack {
    Axis axis = Axis::vertical;
    /// Across the axis.
    Alignment alignment = Alignment::center;
    /// Between neighbours, points.
    double spacing = 0;
    std::vector<View> children;

    bool operator==(const Stack &) const = default;
};

/// Text to read; it wraps where the width ends.
struct Text {
    std::string text;
    /// Of the lines among themselves.
    Alignment lineAlignment = Alignment::leading;
    /// Keeps to one line and leaves out what does not fit, at the end.
    bool isSingleLine = false;

    bool operator==(const Text &) const = default;
};

/// A symbol on its own, in the view's font size and style.
struct SymbolImage {
    std::string name;

    bool operator==(const SymbolImage &) const = default;
};

/// A picture from a file, scaled to the size and clipped to a continuous rounded rectangle.
struct FileImage {
    std::filesystem::path file;
    Size size;
    double cornerRadius = 0;

    bool operator==(const FileImage &) const = default;
};

enum class ControlSize { regular, small };
enum class ButtonStyle {
    bordered,
    /// Filled with the accent colour.
    borderedProminent
};

struct Button {
    std::string title;
    std::optional<Symbol> symbol{};
    ControlSize controlSize = ControlSize::regular;
    ButtonStyle style = ButtonStyle::bordered;
    bool isEnabled = true;
    /// Return performs it from anywhere in the window.
    bool isDefaultAction = false;
    Handler<> action{};

    bool operator==(const Button &) const = default;
};

/// A switch with a symbol and a title as its label. It shows `isOn` whatever the user does: the
/// handler decides whether the value changes.
struct Toggle {
    std::string title;
    std::optional<Symbol> symbol{};
    bool isOn = false;
    Handler<bool> changed{};

    bool operator==(const Toggle &) const = default;
};

enum class PickerStyle { menu, radioGroup };

/// One choice among several, always exactly one. Its own label is for screen readers only.
struct Picker {
    PickerStyle style = PickerStyle::menu;
    std::vector<std::string> options;
    std::size_t selected = 0;
    Handler<std::size_t> changed{};

    bool operator==(const Picker &) const = default;
};

/// A field for a whole number, with a border. What the user types is read by `wholeNumber`: each
/// text it accepts is a change, any other leaves the value as it is. When the typing ends the field
/// shows the value, written by `wholeNumberText`.
struct NumberField {
    std::int64_t value = 0;
    Handler<std::int64_t> changed{};

    bool operator==(const NumberField &) const = default;
};

/// Two small buttons that move a number up and down.
struct Stepper {
    std::int64_t value = 0;
    /// Both belong to the range.
    std::int64_t lowest = 0;
    std::int64_t highest = 0;
    std::int64_t step = 1;
    Handler<std::int64_t> changed{};

    bool operator==(const Stepper &) const = default;

    /// The value one step up, never outside the range; nothing when that is no way up.
    std::optional<std::int64_t> incremented() const;
    /// The value one step down, never outside the range; nothing when that is no way down.
    std::optional<std::int64_t> decremented() const;
};

/// A single line of text to edit, with a border; it fills the width it is given.
struct TextField {
    std::string text;
    std::string placeholder{};
    /// After every edit.
    Handler<std::string> changed{};

    bool operator==(const TextField &) const = default;
};

/// A line between two parts of a stack, across its axis.
struct Divider {
    bool operator==(const Divider &) const = default;
};

/// One entry of a button's menu; without a title, a divider.
struct MenuButtonItem {
    std::string title{};
    /// Drawn as a warning.
    bool isDestructive = false;
    Handler<> action{};

    bool operator==(const MenuButtonItem &) const = default;
};

/// A symbol without a border that opens a menu.
struct MenuButton {
    std::string symbolName;
    std::vector<MenuButtonItem> items;

    bool operator==(const MenuButton &) const = default;
};

/// Opens an address. Its label is drawn in the link colour, or as it is where the style is plain.
struct Link {
    std::string address;
    bool isPlain = false;
    /// Exactly one view.
    std::vector<View> label;
    /// Opens the address.
    Handler<> action{};

    bool operator==(const Link &) const = default;
};

using ViewContent = std::variant<Stack, Text, SymbolImage, FileImage, Button, Toggle, Picker,
                                 NumberField, Stepper, TextField, Divider, MenuButton, Link>;

/// A description of controls: a plain value to be rendered. Lengths in points.
///
/// Around the content come, from the inside out: the padding, the frame, the background. Font and
/// style belong to the view itself and are not handed down to children.
struct View {
    ViewContent content;

    /// Distinguishes siblings of one kind: a view keeps its control, and with it the focus, from
    /// one tree to the next as long as kind and identity stay. Views without one are distinguished
    /// by their order among siblings of their kind.
    std::string identity{};

    Insets padding{};
    /// The whole width with the padding.
    std::optional<double> width{};
    std::optional<double> minHeight{};
    /// Takes all the width there is and aligns the content in it.
    std::optional<Alignment> fullWidth{};
    std::optional<Background> background{};

    Font font{};
    /// Absent for the ordinary colour of such a view in its place.
    std::optional<ShapeStyle> foreground{};

    /// What a screen reader says instead of, or for want of, a title.
    std::string accessibilityLabel{};

    bool operator==(const View &) const = default;
};

} // namespace corvane
