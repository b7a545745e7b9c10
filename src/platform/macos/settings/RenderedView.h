#pragma once

#import "platform/macos/settings/MacBoxView.h"
#import "platform/macos/settings/RenderedContent.h"

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// One view on the screen: its content inside its padding, frame and background. Main thread.
class RenderedView {
  public:
    RenderedView(const View &view, const Surroundings &surroundings);
    RenderedView(const RenderedView &) = delete;
    RenderedView &operator=(const RenderedView &) = delete;
    ~RenderedView();

    NSView *box() const { return box_; }

    /// What is shown now.
    const View &shown() const { return shown_; }

    /// Whether the next state can be shown with the controls that are there.
    bool canShow(const View &next) const;

    void update(const View &next, const Surroundings &surroundings);

  private:
    void layOut();
    void pinHorizontally(NSMutableArray<NSLayoutConstraint *> *constraints) const;
    void pinVertically(NSMutableArray<NSLayoutConstraint *> *constraints) const;

    View shown_;
    MacBoxView *box_;
    std::unique_ptr<RenderedContent> content_;
    NSArray<NSLayoutConstraint *> *constraints_ = @[];
};

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
