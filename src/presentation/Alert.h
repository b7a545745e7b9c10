#pragma once

#include "support/Geometry.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

enum class AlertStyle { warning, informational };

/// A single line of text to edit inside an alert.
struct AlertField {
    Size size;
    std::string text{};
    std::string placeholder{};

    bool operator==(const AlertField &) const = default;
};

/// A modal question or notice.
struct Alert {
    AlertStyle style = AlertStyle::warning;
    std::string messageText;
    std::string informativeText;
    /// In the order they are added; the first is the default, answered by Return.
    std::vector<std::string> buttons;
    std::optional<AlertField> field{};

    bool operator==(const Alert &) const = default;
};

/// How an alert ended.
struct AlertResponse {
    /// Index into the alert's buttons; an alert closed in another way answers with its last one.
    std::size_t button = 0;
    /// The field's text; empty without a field.
    std::string fieldText{};

    bool isFirstButton() const { return button == 0; }
};

} // namespace corvane
