#import "platform/macos/settings/RenderedView.h"
#import "platform/macos/settings/Widths.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvane::macos {

namespace {

NSLayoutAttribute systemAlignment(const Stack &stack) {
    switch (stack.alignment) {
    case Alignment::leading:
        return NSLayoutAttributeLeading;
    case Alignment::trailing:
        return NSLayoutAttributeTrailing;
    case Alignment::top:
        return NSLayoutAttributeTop;
    case Alignment::center:
        return stack.axis == Axis::vertical ? NSLayoutAttributeCenterX : NSLayoutAttributeCenterY;
    }
}

class RenderedStack : public RenderedContent {
  public:
    RenderedStack() { stack_.accessibilityRole = NSAccessibilityGroupRole; }

    NSView *view() const override { return stack_; }

    void update(const View &next, const Surroundings &surroundings) override {
        const auto &stack = std::get<Stack>(next.content);
        stack_.orientation = stack.axis == Axis::vertical
                                 ? NSUserInterfaceLayoutOrientationVertical
                                 : NSUserInterfaceLayoutOrientationHorizontal;
        stack_.alignment = systemAlignment(stack);
        stack_.distribution = NSStackViewDistributionFill;
        stack_.spacing = stack.spacing;
        // One that takes all the width there is does not cling to its children.
        [stack_ setHuggingPriority:contentFillsWidth(next) ? 1 : NSLayoutPriorityDefaultLow
                    forOrientation:NSLayoutConstraintOrientationHorizontal];
        describe(stack_, next);
        updateChildren(stack, surroundings);
        arrange();
        shareWidth(stack.axis);
    }

  private:
    using Child = std::unique_ptr<RenderedView>;

    /// Each child takes over the first one left that can show it, or is made anew.
    void updateChildren(const Stack &stack, const Surroundings &surroundings) {
        std::vector<Child> previous = std::exchange(children_, {});
        for (const View &next : stack.children) {
            const auto kept = std::ranges::find_if(previous, [&](const Child &child) {
                return child != nullptr && child->canShow(next);
            });
            if (kept == previous.end()) {
                children_.push_back(std::make_unique<RenderedView>(next, surroundings));
            } else {
                (*kept)->update(next, surroundings);
                children_.push_back(std::move(*kept));
            }
        }
    }

    /// Leaves views that are in their place alone: taking one out would take its focus away.
    void arrange() {
        NSUInteger index = 0;
        for (const Child &child : children_) {
            NSArray<NSView *> *arranged = stack_.arrangedSubviews;
            if (index >= arranged.count || arranged[index] != child->box()) {
                [stack_ insertArrangedSubview:child->box() atIndex:static_cast<NSInteger>(index)];
            }
            ++index;
        }
    }

    /// Children that take all the width there is are as wide as a column. In a row they are equally
    /// wide where that cuts off no text.
    void shareWidth(Axis axis) {
        [NSLayoutConstraint deactivateConstraints:constraints_];
        NSMutableArray<NSLayoutConstraint *> *constraints = [NSMutableArray array];
        NSView *reference = axis == Axis::vertical ? stack_ : nil;
        for (const Child &child : children_) {
            if (!fillsWidth(child->shown())) {
                continue;
            }
            if (reference == nil) {
                reference = child->box();
            } else {
                NSLayoutConstraint *constraint =
                    [child->box().widthAnchor constraintEqualToAnchor:reference.widthAnchor];
                constraint.priority = axis == Axis::vertical ? NSLayoutPriorityRequired
                                                             : NSLayoutPriorityDefaultLow - 1;
                [constraints addObject:constraint];
            }
        }
        [NSLayoutConstraint activateConstraints:constraints];
        constraints_ = constraints;
    }

    NSStackView *stack_ = [[NSStackView alloc] initWithFrame:NSZeroRect];
    std::vector<Child> children_;
    NSArray<NSLayoutConstraint *> *constraints_ = @[];
};

} // namespace

std::unique_ptr<RenderedContent> makeStack() { return std::make_unique<RenderedStack>(); }

} // namespace corvane::macos
