#pragma once

#include "platform/views/NativeView.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace corvane::views {

enum class LayoutDirection { leftToRight, rightToLeft };

/// A view and, as nodes of their own, its children, on the controls of a toolkit: shows each next
/// state by changing what differs, and computes where everything stands. Main thread.
class ViewNode {
  public:
    /// `make` is called for this view and for children, also later ones; it outlives the node.
    ViewNode(View view, const MakeNativeView &make, bool isInColouredLink = false);
    ViewNode(const ViewNode &) = delete;
    ViewNode &operator=(const ViewNode &) = delete;
    ~ViewNode();

    NativeView &native() const { return *native_; }

    /// Whether the controls that are there can show the next state.
    bool canShow(const View &next) const;

    /// Shows the next state, which it can show.
    void update(View next);

    /// Places everything in an area of that width with its top left corner at the origin; the
    /// height of that area. Points.
    double layOut(double width, LayoutDirection direction);

  private:
    /// Lengths that were computed since anything in here has changed: most of a long list stays as
    /// it is when one line changes.
    struct Known {
        std::optional<bool> fillsWidth;
        std::optional<double> idealWidth;
        std::optional<double> cutWidth;
        std::optional<double> brokenWidth;
        /// With the width offered.
        std::vector<std::pair<double, Size>> contentSizes;
    };

    bool changeTo(View next);
    bool changeChildrenTo(std::vector<View> next);
    void arrangeChildren();

    const Stack *stack() const { return std::get_if<Stack>(&view_.content); }
    bool isRow() const;
    bool isLeaf() const;
    bool takesAnyWidth() const;
    bool contentFillsWidth() const;
    bool fillsWidth() const;
    bool isFilling() const;
    double gaps() const;
    double horizontalPadding() const { return view_.padding.leading + view_.padding.trailing; }
    double verticalPadding() const { return view_.padding.top + view_.padding.bottom; }

    double idealWidth() const;
    double widest() const;
    double cutWidth() const;
    double brokenWidth() const;
    double narrowed(double (ViewNode::*widthOf)() const, bool keepsLines) const;
    double contentWidth(double (ViewNode::*widthOf)() const) const;
    double widthIn(double offered) const;
    Size contentSizeIn(double width) const;
    Size computedContentSize(double width) const;
    Size sizeIn(double offered) const;
    std::vector<double> sharedWidths(double width) const;
    double narrow(std::vector<double> &widths, double (ViewNode::*leastWidthOf)() const,
                  double excess) const;
    void widen(std::vector<double> &widths, double left) const;

    void place(const Rectangle &area, LayoutDirection direction);
    Rectangle contentIn(Size area) const;
    std::vector<Rectangle> childrenIn(const Rectangle &content) const;

    const MakeNativeView &make_;
    const bool isInColouredLink_;
    /// Without its children.
    View view_;
    std::unique_ptr<NativeView> native_;
    std::vector<std::unique_ptr<ViewNode>> children_;
    /// The children's areas in the order in which the toolkit has them.
    std::vector<NativeView *> arranged_;
    /// The area and the content as the toolkit has them.
    std::optional<std::pair<Rectangle, Rectangle>> placed_;
    mutable Known known_;
};

} // namespace corvane::views
