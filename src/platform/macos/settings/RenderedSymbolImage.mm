#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Symbols.h"

namespace corvane::macos {

namespace {

class RenderedSymbolImage : public RenderedContent {
  public:
    NSView *view() const override { return image_; }

    void update(const View &next, const Surroundings &surroundings) override {
        image_.image = symbolImage({.name = std::get<SymbolImage>(next.content).name});
        image_.symbolConfiguration = symbolConfiguration(next.font);
        image_.contentTintColor = foregroundColour(next.foreground, surroundings.ordinaryColour);
        prepareControl(image_, next);
        describe(image_, next);
    }

  private:
    NSImageView *image_ = [[NSImageView alloc] initWithFrame:NSZeroRect];
};

} // namespace

std::unique_ptr<RenderedContent> makeSymbolImage() {
    return std::make_unique<RenderedSymbolImage>();
}

} // namespace corvane::macos
