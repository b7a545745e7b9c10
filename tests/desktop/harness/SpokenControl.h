#pragma once

#include <optional>
#include <string>

namespace corvane::desktop {

/// A control as assistive technology finds it.
struct SpokenControl {
    /// As AT-SPI names it, such as "check box".
    std::string role;
    std::string name;
    /// The text that can be edited.
    std::optional<std::string> text{};
    /// In digits.
    std::optional<std::string> number{};
    bool isSelected = false;
    bool isChecked = false;
    bool isEnabled = true;
    std::string description{};

    /// What a screen reader says about the control, such as "check box 'Start at Login' checked";
    /// nothing where it only holds others and has no name for what they have in common.
    std::optional<std::string> line() const;

    /// Whether the parts of such a control only repeat what is said about the whole.
    static bool isSpokenWhole(const std::string &role);
};

} // namespace corvane::desktop
