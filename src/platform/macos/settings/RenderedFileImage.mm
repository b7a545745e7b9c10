#import "platform/macos/settings/RenderedContent.h"
#import "platform/macos/support/Text.h"

#import <QuartzCore/QuartzCore.h>

namespace corvane::macos {

namespace {

class RenderedFileImage : public RenderedContent {
  public:
    RenderedFileImage() {
        image_.imageScaling = NSImageScaleProportionallyUpOrDown;
        image_.wantsLayer = YES;
        image_.layer.masksToBounds = YES;
        image_.layer.cornerCurve = kCACornerCurveContinuous;
        [NSLayoutConstraint activateConstraints:@[ width_, height_ ]];
    }

    NSView *view() const override { return image_; }

    void update(const View &next, const Surroundings & /*surroundings*/) override {
        const auto &picture = std::get<FileImage>(next.content);
        if (picture.file != file_) {
            file_ = picture.file;
            NSURL *location = [NSURL fileURLWithPath:systemText(file_.string())];
            image_.image = [[NSImage alloc] initWithContentsOfURL:location];
        }
        width_.constant = picture.size.width;
        height_.constant = picture.size.height;
        image_.layer.cornerRadius = picture.cornerRadius;
        describe(image_, next);
    }

  private:
    NSImageView *image_ = [[NSImageView alloc] initWithFrame:NSZeroRect];
    NSLayoutConstraint *width_ = [image_.widthAnchor constraintEqualToConstant:0];
    NSLayoutConstraint *height_ = [image_.heightAnchor constraintEqualToConstant:0];
    std::filesystem::path file_;
};

} // namespace

std::unique_ptr<RenderedContent> makeFileImage() { return std::make_unique<RenderedFileImage>(); }

} // namespace corvane::macos
