#pragma once

#include "presentation/View.h"

#include <cstddef>
#include <string>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

class ViewWidget;

/// What two views must have in common to be shown, one after the other, by the same widget.
struct ViewKind {
    std::size_t content = 0;
    std::size_t variety = 0;
    /// In a box of its own, because the content's widget has no padding or background itself.
    bool isBoxed = false;
    std::string identity{};

    bool operator==(const ViewKind &) const = default;
};

ViewKind kindOf(const View &view);

/// A widget for views of this kind, which it does not show yet. It belongs to the caller until it
/// is given a parent; `symbols` outlives it.
ViewWidget *makeViewWidget(const View &view, drawing::SymbolImages &symbols);

/// Whether the view takes all the width there is.
bool fillsWidth(const View &view);

} // namespace corvane::qt
