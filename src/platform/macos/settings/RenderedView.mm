#import "platform/macos/settings/RenderedView.h"

#import "platform/macos/settings/Widths.h"
#import "platform/macos/support/KeptObjects.h"

namespace corvane::macos {

namespace {

bool haveSameLayout(const View &view, const View &other) {
    return view.padding == other.padding && view.width == other.width &&
           view.minHeight == other.minHeight && view.fullWidth == other.fullWidth &&
           contentFillsWidth(view) == contentFillsWidth(other);
}

} // namespace

RenderedView::RenderedView(const View &view, const Surroundings &surroundings)
    : shown_(view),
      box_([[MacBoxView alloc] initWithFrame:NSZeroRect]),
      content_(makeContent(view)) {
    content_->view().translatesAutoresizingMaskIntoConstraints = NO;
    [box_ addSubview:content_->view()];
    [box_ setBackground:view.background];
    content_->update(view, surroundings);
    layOut();
}

RenderedView::~RenderedView() {
    [box_ removeFromSuperview];
    keepThroughEvents(box_);
}

bool RenderedView::canShow(const View &next) const {
    return areOfOneKind(shown_, next) && shown_.identity == next.identity;
}

void RenderedView::update(const View &next, const Surroundings &surroundings) {
    const bool isLaidOut = haveSameLayout(shown_, next);
    shown_ = next;
    [box_ setBackground:next.background];
    content_->update(next, surroundings);
    if (!isLaidOut) {
        layOut();
    }
}

void RenderedView::layOut() {
    [NSLayoutConstraint deactivateConstraints:constraints_];
    NSMutableArray<NSLayoutConstraint *> *constraints = [NSMutableArray array];
    pinHorizontally(constraints);
    pinVertically(constraints);
    [NSLayoutConstraint activateConstraints:constraints];
    constraints_ = constraints;
}

void RenderedView::pinHorizontally(NSMutableArray<NSLayoutConstraint *> *constraints) const {
    NSView *content = content_->view();
    const Insets &padding = shown_.padding;
    const bool isAligned = (shown_.fullWidth || shown_.width) && !contentFillsWidth(shown_);
    const Alignment alignment = shown_.fullWidth.value_or(Alignment::center);
    const bool touchesLeading = !isAligned || alignment == Alignment::leading;
    const bool touchesTrailing = !isAligned || alignment == Alignment::trailing;

    NSLayoutXAxisAnchor *leading = content.leadingAnchor;
    NSLayoutXAxisAnchor *trailing = content.trailingAnchor;
    [constraints addObjectsFromArray:@[
        touchesLeading ? [leading constraintEqualToAnchor:box_.leadingAnchor
                                                 constant:padding.leading]
                       : [leading constraintGreaterThanOrEqualToAnchor:box_.leadingAnchor
                                                              constant:padding.leading],
        touchesTrailing ? [trailing constraintEqualToAnchor:box_.trailingAnchor
                                                   constant:-padding.trailing]
                        : [trailing constraintLessThanOrEqualToAnchor:box_.trailingAnchor
                                                             constant:-padding.trailing],
    ]];
    if (!touchesLeading && !touchesTrailing) {
        [constraints
            addObject:[content.centerXAnchor
                          constraintEqualToAnchor:box_.centerXAnchor
                                         constant:(padding.leading - padding.trailing) / 2]];
    }
    if (shown_.width) {
        [constraints addObject:[box_.widthAnchor constraintEqualToConstant:*shown_.width]];
    }
}

void RenderedView::pinVertically(NSMutableArray<NSLayoutConstraint *> *constraints) const {
    NSView *content = content_->view();
    const Insets &padding = shown_.padding;
    if (!shown_.minHeight) {
        [constraints addObjectsFromArray:@[
            [content.topAnchor constraintEqualToAnchor:box_.topAnchor constant:padding.top],
            [content.bottomAnchor constraintEqualToAnchor:box_.bottomAnchor
                                                 constant:-padding.bottom],
        ]];
        return;
    }
    [constraints addObjectsFromArray:@[
        [box_.heightAnchor constraintGreaterThanOrEqualToConstant:*shown_.minHeight],
        [content.topAnchor constraintGreaterThanOrEqualToAnchor:box_.topAnchor
                                                       constant:padding.top],
        [content.bottomAnchor constraintLessThanOrEqualToAnchor:box_.bottomAnchor
                                                       constant:-padding.bottom],
        [content.centerYAnchor constraintEqualToAnchor:box_.centerYAnchor
                                              constant:(padding.top - padding.bottom) / 2],
    ]];
}

} // namespace corvane::macos
