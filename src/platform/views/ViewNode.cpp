#include "platform/views/ViewNode.h"

#include "platform/views/ViewMatching.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace corvane::views {

namespace {

/// The texts within views, for a screen reader.
std::string spokenText(const std::vector<View> &views) {
    std::string texts;
    for (const View &view : views) {
        if (const auto *text = std::get_if<Text>(&view.content)) {
            texts += text->text;
        } else if (const auto *stack = std::get_if<Stack>(&view.content)) {
            texts += spokenText(stack->children);
        }
    }
    return texts;
}

/// A view's children, taken out of it. A link keeps their texts as its words.
std::vector<View> takeChildren(View &view) {
    if (auto *stack = std::get_if<Stack>(&view.content)) {
        return std::exchange(stack->children, {});
    }
    if (auto *link = std::get_if<Link>(&view.content)) {
        if (view.accessibilityLabel.empty()) {
            view.accessibilityLabel = spokenText(link->label);
        }
        return std::exchange(link->label, {});
    }
    return {};
}

/// What is offered to a control to learn how wide it would like to be.
constexpr double widerThanAnyScreen = 100'000;

/// The value, computed if it is not known.
template <typename Value, typename Compute>
Value once(std::optional<Value> &known, const ViewNode &node, Compute compute) {
    if (!known) {
        known = std::invoke(compute, node);
    }
    return *known;
}

bool coloursItsLabel(const View &view) {
    const auto *link = std::get_if<Link>(&view.content);
    return link != nullptr && !link->isPlain;
}

} // namespace

ViewNode::ViewNode(View view, const MakeNativeView &make, bool isInColouredLink)
    : make_(make),
      isInColouredLink_(isInColouredLink) {
    std::vector<View> children = takeChildren(view);
    view_ = std::move(view);
    native_ = make_(view_, isInColouredLink_);
    native_->show();
    changeChildrenTo(std::move(children));
}

ViewNode::~ViewNode() = default;

bool ViewNode::canShow(const View &next) const { return kindOf(view_) == kindOf(next); }

void ViewNode::update(View next) { changeTo(std::move(next)); }

/// Whether anything in here has changed.
bool ViewNode::changeTo(View next) {
    std::vector<View> children = takeChildren(next);
    const bool isOther = view_ != next;
    // In any case: the handlers, which all compare equal, are new.
    view_ = std::move(next);
    if (isOther) {
        native_->show();
    }
    const bool hasChanged = changeChildrenTo(std::move(children)) || isOther;
    if (hasChanged) {
        known_ = {};
    }
    return hasChanged;
}

/// Takes over the nodes that can show the next children, makes those that are missing and lets go
/// of the others. Whether anything has changed.
bool ViewNode::changeChildrenTo(std::vector<View> next) {
    std::vector<ViewKind> formerKinds;
    std::vector<ViewKind> nextKinds;
    std::ranges::transform(children_, std::back_inserter(formerKinds),
                           [](const auto &child) { return kindOf(child->view_); });
    std::ranges::transform(next, std::back_inserter(nextKinds), kindOf);
    bool hasChanged = formerKinds != nextKinds;
    const auto matches = matched(formerKinds, nextKinds);
    auto former = std::exchange(children_, {});
    for (std::size_t index = 0; index < next.size(); ++index) {
        if (matches[index]) {
            children_.push_back(std::move(former[*matches[index]]));
            hasChanged = children_.back()->changeTo(std::move(next[index])) || hasChanged;
        } else {
            children_.push_back(std::make_unique<ViewNode>(
                std::move(next[index]), make_, isInColouredLink_ || coloursItsLabel(view_)));
        }
    }
    for (const auto &gone : former) {
        if (gone != nullptr) {
            std::erase(arranged_, gone->native_.get());
        }
    }
    former.clear();
    arrangeChildren();
    return hasChanged;
}

/// Leaves areas that are in their place alone: moving one would take the keyboard from it.
void ViewNode::arrangeChildren() {
    for (std::size_t index = 0; index < children_.size(); ++index) {
        NativeView *child = children_[index]->native_.get();
        if (index >= arranged_.size() || arranged_[index] != child) {
            std::erase(arranged_, child);
            arranged_.insert(arranged_.begin() + static_cast<std::ptrdiff_t>(index), child);
            native_->insertChild(*child, index);
        }
    }
}

bool ViewNode::isRow() const { return stack() != nullptr && stack()->axis == Axis::horizontal; }

bool ViewNode::isLeaf() const {
    return stack() == nullptr && !std::holds_alternative<Link>(view_.content);
}

bool ViewNode::takesAnyWidth() const {
    return std::holds_alternative<TextField>(view_.content) ||
           std::holds_alternative<NumberField>(view_.content) ||
           std::holds_alternative<Divider>(view_.content);
}

/// Whether the content takes all the width there is.
bool ViewNode::contentFillsWidth() const {
    return isLeaf() ? takesAnyWidth() : std::ranges::any_of(children_, [](const auto &child) {
        return child->fillsWidth();
    });
}

bool ViewNode::fillsWidth() const { return once(known_.fillsWidth, *this, &ViewNode::isFilling); }

bool ViewNode::isFilling() const {
    return !view_.width && (view_.fullWidth || contentFillsWidth());
}

/// Between the children, all together.
double ViewNode::gaps() const {
    return stack() == nullptr || children_.empty()
               ? 0
               : stack()->spacing * static_cast<double>(children_.size() - 1);
}

/// As wide as no line of text need be broken.
double ViewNode::idealWidth() const { return once(known_.idealWidth, *this, &ViewNode::widest); }

double ViewNode::widest() const {
    if (view_.width) {
        return *view_.width;
    }
    return horizontalPadding() + (isLeaf() ? contentSizeIn(widerThanAnyScreen).width
                                           : contentWidth(&ViewNode::idealWidth));
}

/// With the texts cut off that keep to one line.
double ViewNode::cutWidth() const {
    return once(known_.cutWidth, *this,
                [](const ViewNode &node) { return node.narrowed(&ViewNode::cutWidth, true); });
}

/// With the other texts broken into lines, too.
double ViewNode::brokenWidth() const {
    return once(known_.brokenWidth, *this,
                [](const ViewNode &node) { return node.narrowed(&ViewNode::brokenWidth, false); });
}

double ViewNode::narrowed(double (ViewNode::*widthOf)() const, bool keepsLines) const {
    if (view_.width) {
        return *view_.width;
    }
    if (!isLeaf()) {
        return horizontalPadding() + contentWidth(widthOf);
    }
    constexpr double leastText = 30;
    const auto *text = std::get_if<Text>(&view_.content);
    const bool givesWay = text != nullptr && (text->isSingleLine || !keepsLines);
    return givesWay ? std::min(leastText, idealWidth()) : idealWidth();
}

double ViewNode::contentWidth(double (ViewNode::*widthOf)() const) const {
    double widest = 0;
    double sum = gaps();
    for (const auto &child : children_) {
        const double width = (child.get()->*widthOf)();
        widest = std::max(widest, width);
        sum += width;
    }
    return isRow() ? sum : widest;
}

double ViewNode::widthIn(double offered) const {
    if (view_.width) {
        return *view_.width;
    }
    return fillsWidth() ? offered : std::min(offered, idealWidth());
}

Size ViewNode::contentSizeIn(double width) const {
    auto &sizes = known_.contentSizes;
    const auto found = std::ranges::find(sizes, width, &std::pair<double, Size>::first);
    if (found != sizes.end()) {
        return found->second;
    }
    const Size size = computedContentSize(width);
    sizes.emplace_back(width, size);
    return size;
}

Size ViewNode::computedContentSize(double width) const {
    Size size;
    if (isLeaf()) {
        const Size measured = native_->measure(width);
        size = {std::min(std::ceil(measured.width), width), std::ceil(measured.height)};
        // A control's own width is not that of the widest screen.
        return takesAnyWidth() && width < widerThanAnyScreen ? Size{width, size.height} : size;
    }
    if (isRow()) {
        const std::vector<double> widths = sharedWidths(width);
        size.width = gaps();
        for (std::size_t index = 0; index < children_.size(); ++index) {
            size.width += widths[index];
            size.height = std::max(size.height, children_[index]->sizeIn(widths[index]).height);
        }
    } else {
        size.height = gaps();
        for (const auto &child : children_) {
            const Size childSize = child->sizeIn(width);
            size.width = std::max(size.width, childSize.width);
            size.height += childSize.height;
        }
    }
    return contentFillsWidth() ? Size{width, size.height} : size;
}

Size ViewNode::sizeIn(double offered) const {
    const double width = widthIn(offered);
    const double height = contentSizeIn(width - horizontalPadding()).height + verticalPadding();
    return {width, std::max(height, view_.minHeight.value_or(0))};
}

/// The widths of a row's children. What is too much is taken from the texts, first from those that
/// keep to one line; what is left over goes to what fills the width, the narrowest first.
std::vector<double> ViewNode::sharedWidths(double width) const {
    std::vector<double> widths;
    double sum = gaps();
    for (const auto &child : children_) {
        widths.push_back(child->idealWidth());
        sum += widths.back();
    }
    for (const auto leastWidthOf : {&ViewNode::cutWidth, &ViewNode::brokenWidth}) {
        if (sum > width) {
            sum -= narrow(widths, leastWidthOf, sum - width);
        }
    }
    if (sum < width) {
        widen(widths, width - sum);
    }
    return widths;
}

/// Takes what is too much from the widths, from each as much as it can spare in relation to the
/// others; what was taken.
double ViewNode::narrow(std::vector<double> &widths, double (ViewNode::*leastWidthOf)() const,
                        double excess) const {
    std::vector<double> spare;
    double wholeSpare = 0;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        spare.push_back(widths[index] - (children_[index].get()->*leastWidthOf)());
        wholeSpare += spare.back();
    }
    double taken = 0;
    for (std::size_t index = 0; index < widths.size() && wholeSpare > 0; ++index) {
        const double part = std::ceil(spare[index] * std::min(1.0, excess / wholeSpare));
        widths[index] -= part;
        taken += part;
    }
    return taken;
}

/// Gives what is left over to the children that fill the width, so that as many as can be become
/// equally wide.
void ViewNode::widen(std::vector<double> &widths, double left) const {
    std::vector<double *> filling;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        if (children_[index]->fillsWidth()) {
            filling.push_back(&widths[index]);
        }
    }
    std::ranges::sort(filling, std::ranges::greater(), [](const double *one) { return *one; });
    for (const double *one : filling) {
        left += *one;
    }
    for (std::size_t index = 0; index < filling.size(); ++index) {
        const double share = std::floor(left / static_cast<double>(filling.size() - index));
        *filling[index] = std::max(*filling[index], share);
        left -= *filling[index];
    }
}

double ViewNode::layOut(double width, LayoutDirection direction) {
    const Size size = sizeIn(width);
    place({0, 0, size.width, size.height}, direction);
    return size.height;
}

void ViewNode::place(const Rectangle &area, LayoutDirection direction) {
    const auto facing = [&](Rectangle part) {
        if (direction == LayoutDirection::rightToLeft) {
            part.x = area.width - part.maxX();
        }
        return part;
    };
    const Rectangle content = contentIn(area.size());
    const std::pair placed{area, facing(content)};
    if (placed_ != placed) {
        placed_ = placed;
        native_->place(placed.first, placed.second);
    }
    const std::vector<Rectangle> areas = childrenIn(content);
    for (std::size_t index = 0; index < children_.size(); ++index) {
        children_[index]->place(facing(areas[index]), direction);
    }
}

/// Where the content of an area stands, read from left to right.
Rectangle ViewNode::contentIn(Size area) const {
    const Insets &padding = view_.padding;
    const double width = area.width - horizontalPadding();
    const Size size = contentSizeIn(width);
    Rectangle content{padding.leading, padding.top, std::min(size.width, width), size.height};
    const double spare = width - content.width;
    switch (view_.fullWidth.value_or(Alignment::center)) {
    case Alignment::leading:
    case Alignment::top:
        break;
    case Alignment::center:
        content.x += std::floor(spare / 2);
        break;
    case Alignment::trailing:
        content.x += spare;
        break;
    }
    if (view_.minHeight) {
        content.y += std::floor((area.height - verticalPadding() - size.height) / 2);
    }
    return content;
}

/// The areas of the children, read from left to right.
std::vector<Rectangle> ViewNode::childrenIn(const Rectangle &content) const {
    const std::vector<double> widths =
        isRow() ? sharedWidths(content.width) : std::vector<double>();
    const Alignment alignment = stack() != nullptr ? stack()->alignment : Alignment::leading;
    const double spacing = stack() != nullptr ? stack()->spacing : 0;
    std::vector<Rectangle> areas;
    Point next{content.x, content.y};
    for (std::size_t index = 0; index < children_.size(); ++index) {
        const Size size = children_[index]->sizeIn(isRow() ? widths[index] : content.width);
        Rectangle area{next.x, next.y, size.width, size.height};
        if (isRow()) {
            if (alignment != Alignment::top) {
                area.y += std::floor((content.height - size.height) / 2);
            }
            next.x += widths[index] + spacing;
        } else {
            if (alignment == Alignment::center) {
                area.x += std::floor((content.width - size.width) / 2);
            } else if (alignment == Alignment::trailing) {
                area.x += content.width - size.width;
            }
            next.y += size.height + spacing;
        }
        areas.push_back(area);
    }
    return areas;
}

} // namespace corvane::views
