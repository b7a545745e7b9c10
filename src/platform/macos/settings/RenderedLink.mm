#import "platform/macos/settings/MacLinkView.h"
#import "platform/macos/settings/RenderedView.h"
#import "platform/macos/support/Text.h"

namespace corvane::macos {

namespace {

/// The texts within a view, for a screen reader.
std::string spokenText(const View &view) {
    if (const auto *text = std::get_if<Text>(&view.content)) {
        return text->text;
    }
    std::string texts;
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        for (const View &child : stack->children) {
            texts += spokenText(child);
        }
    }
    return texts;
}

class RenderedLink : public RenderedContent {
  public:
    RenderedLink() = default;
    RenderedLink(const RenderedLink &) = delete;
    RenderedLink &operator=(const RenderedLink &) = delete;
    ~RenderedLink() override { [link_ disconnect]; }

    NSView *view() const override { return link_; }

    void update(const View &next, const Surroundings &surroundings) override {
        const auto &link = std::get<Link>(next.content);
        action_ = link.action;
        showLabel(link.label.front(),
                  link.isPlain ? surroundings : Surroundings{.ordinaryColour = NSColor.linkColor});
        link_.toolTip = systemText(link.address);
        link_.accessibilityLabel =
            systemText(next.accessibilityLabel.empty() ? spokenText(link.label.front())
                                                       : next.accessibilityLabel);
    }

  private:
    void showLabel(const View &label, const Surroundings &surroundings) {
        if (label_ != nullptr && label_->canShow(label)) {
            label_->update(label, surroundings);
            return;
        }
        label_ = std::make_unique<RenderedView>(label, surroundings);
        NSView *box = label_->box();
        [link_ addSubview:box];
        [NSLayoutConstraint activateConstraints:@[
            [box.leadingAnchor constraintEqualToAnchor:link_.leadingAnchor],
            [box.trailingAnchor constraintEqualToAnchor:link_.trailingAnchor],
            [box.topAnchor constraintEqualToAnchor:link_.topAnchor],
            [box.bottomAnchor constraintEqualToAnchor:link_.bottomAnchor],
        ]];
    }

    void pressed() const {
        const auto action = action_;
        action();
    }

    MacLinkView *link_ = [[MacLinkView alloc] initWithAction:[this] { pressed(); }];
    std::unique_ptr<RenderedView> label_;
    Handler<> action_;
};

} // namespace

std::unique_ptr<RenderedContent> makeLink() { return std::make_unique<RenderedLink>(); }

} // namespace corvane::macos
