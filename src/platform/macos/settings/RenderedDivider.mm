#import "platform/macos/settings/RenderedContent.h"

namespace corvane::macos {

namespace {

class RenderedDivider : public RenderedContent {
  public:
    RenderedDivider() { line_.boxType = NSBoxSeparator; }

    NSView *view() const override { return line_; }

    void update(const View & /*next*/, const Surroundings & /*surroundings*/) override {}

  private:
    NSBox *line_ = [[NSBox alloc] initWithFrame:NSZeroRect];
};

} // namespace

std::unique_ptr<RenderedContent> makeDivider() { return std::make_unique<RenderedDivider>(); }

} // namespace corvane::macos
