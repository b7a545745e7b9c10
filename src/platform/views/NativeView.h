#pragma once

#include "presentation/View.h"
#include "support/Geometry.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace corvane::views {

/// A toolkit's area for one view, with the control for its content. Main thread. Rectangles are in
/// the parent's area: points, origin at the top left, y growing downwards.
class NativeView {
  public:
    /// Takes it off its parent, also from within one of its own events.
    virtual ~NativeView() = default;

    /// Shows what its view says now. Called once at first, and again only when that has changed.
    virtual void show() = 0;

    /// The size of the content alone, without padding, where it may be that wide at most. The width
    /// is 0 for a control that takes any width. Not called for a stack or a link.
    virtual Size measure(double width) = 0;

    /// Moves the area and the content, whose rectangle is in the area.
    virtual void place(const Rectangle &area, const Rectangle &content) = 0;

    /// Puts a child at that index among the children of a stack or a link; it may be at another one
    /// now.
    virtual void insertChild(NativeView &child, std::size_t index) = 0;
};

/// Makes the area for a view, without showing it yet. The view outlives the area and is kept up to
/// date, its handlers included; the children of a stack or a link are not in it, but a link without
/// an accessibility label has their texts as one. In a link whose
/// label has the link colour, texts and symbols without a style of their own take that colour.
using MakeNativeView =
    std::function<std::unique_ptr<NativeView>(const View &view, bool isInColouredLink)>;

} // namespace corvane::views
