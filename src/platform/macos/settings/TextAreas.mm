#import "platform/macos/settings/Area.h"
#import "platform/macos/settings/Styles.h"
#import "platform/macos/support/Symbols.h"
#import "platform/macos/support/Text.h"

#import <QuartzCore/QuartzCore.h>

namespace corvane::macos {

namespace {

NSTextAlignment systemAlignment(Alignment alignment) {
    const bool isRightToLeft =
        NSApp.userInterfaceLayoutDirection == NSUserInterfaceLayoutDirectionRightToLeft;
    switch (alignment) {
    case Alignment::leading:
    case Alignment::top:
        return NSTextAlignmentNatural;
    case Alignment::center:
        return NSTextAlignmentCenter;
    case Alignment::trailing:
        return isRightToLeft ? NSTextAlignmentLeft : NSTextAlignmentRight;
    }
}

class TextArea : public Area {
  public:
    TextArea(const View &view, NSTextField *label, NSColor *ordinaryColour)
        : Area(view, label),
          label_(label),
          ordinaryColour_(ordinaryColour) {}

    Size measure(double width) override {
        const NSSize size = [label_.cell cellSizeForBounds:NSMakeRect(0, 0, width, CGFLOAT_MAX)];
        return {size.width, size.height};
    }

  protected:
    void render() override {
        const auto &text = content<Text>();
        label_.stringValue = systemText(text.text);
        label_.font = systemFont(view().font);
        label_.textColor = foregroundColour(view().foreground, ordinaryColour_);
        label_.alignment = systemAlignment(text.lineAlignment);
        label_.maximumNumberOfLines = text.isSingleLine ? 1 : 0;
        label_.lineBreakMode =
            text.isSingleLine ? NSLineBreakByTruncatingTail : NSLineBreakByWordWrapping;
        describeControl(label_);
    }

  private:
    NSTextField *label_;
    NSColor *ordinaryColour_;
};

class SymbolArea : public Area {
  public:
    SymbolArea(const View &view, NSImageView *image, NSColor *ordinaryColour)
        : Area(view, image),
          image_(image),
          ordinaryColour_(ordinaryColour) {}

  protected:
    void render() override {
        image_.image = symbolImage({.name = content<SymbolImage>().name});
        image_.symbolConfiguration = symbolConfiguration(view().font);
        image_.contentTintColor = foregroundColour(view().foreground, ordinaryColour_);
        describe(image_);
    }

  private:
    NSImageView *image_;
    NSColor *ordinaryColour_;
};

class FileImageArea : public Area {
  public:
    FileImageArea(const View &view, NSImageView *image) : Area(view, image), image_(image) {
        image_.imageScaling = NSImageScaleProportionallyUpOrDown;
        image_.wantsLayer = YES;
        image_.layer.masksToBounds = YES;
        image_.layer.cornerCurve = kCACornerCurveContinuous;
    }

    Size measure(double /*width*/) override { return content<FileImage>().size; }

  protected:
    void render() override {
        const auto &file = content<FileImage>();
        NSURL *location = [NSURL fileURLWithPath:systemText(file.file.string())];
        image_.image = [[NSImage alloc] initWithContentsOfURL:location];
        image_.layer.cornerRadius = file.cornerRadius;
        describe(image_);
    }

  private:
    NSImageView *image_;
};

class DividerArea : public Area {
  public:
    DividerArea(const View &view, NSBox *line) : Area(view, line) { line.boxType = NSBoxSeparator; }

    Size measure(double /*width*/) override { return {0, 1}; }

  protected:
    void render() override {}
};

} // namespace

std::unique_ptr<Area> makeTextArea(const View &view, NSColor *ordinaryColour) {
    return std::make_unique<TextArea>(view, [NSTextField labelWithString:@""], ordinaryColour);
}

std::unique_ptr<Area> makeSymbolArea(const View &view, NSColor *ordinaryColour) {
    return std::make_unique<SymbolArea>(view, [[NSImageView alloc] initWithFrame:NSZeroRect],
                                        ordinaryColour);
}

std::unique_ptr<Area> makeFileImageArea(const View &view) {
    return std::make_unique<FileImageArea>(view, [[NSImageView alloc] initWithFrame:NSZeroRect]);
}

std::unique_ptr<Area> makeDividerArea(const View &view) {
    return std::make_unique<DividerArea>(view, [[NSBox alloc] initWithFrame:NSZeroRect]);
}

} // namespace corvane::macos
