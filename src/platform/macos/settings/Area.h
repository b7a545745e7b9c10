#pragma once

#import "platform/macos/settings/MacBoxView.h"
#include "platform/views/NativeView.h"

#import <AppKit/AppKit.h>

#include <memory>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// The area of one view on the screen, with its background and the control for its content. Main
/// thread.
class Area : public views::NativeView {
  public:
    /// Without a control for a stack, whose content are the areas of its children.
    Area(const View &view, NSView *_Nullable control);
    Area(const Area &) = delete;
    Area &operator=(const Area &) = delete;
    ~Area() override;

    NSView *box() const { return box_; }

    void show() override;
    Size measure(double width) override;
    void place(const Rectangle &area, const Rectangle &content) override;
    void insertChild(NativeView &child, std::size_t index) override;

  protected:
    /// Shows the view's content in the control.
    virtual void render() = 0;

    const View &view() const { return view_; }
    template <typename Content>
    const Content &content() const {
        return std::get<Content>(view_.content);
    }

    /// Gives the control the view's words for a screen reader.
    void describeControl(NSView *control) const;

    /// Makes a screen reader take notice of an image or a group only where the view has words for
    /// it.
    void describe(NSView *shown) const;

  private:
    const View &view_;
    NSView *_Nullable control_;
    MacBoxView *box_;
};

/// The area for a view of any kind.
std::unique_ptr<views::NativeView> makeArea(const View &view, bool isInColouredLink);

std::unique_ptr<Area> makeTextArea(const View &view, NSColor *ordinaryColour);
std::unique_ptr<Area> makeSymbolArea(const View &view, NSColor *ordinaryColour);
std::unique_ptr<Area> makeFileImageArea(const View &view);
std::unique_ptr<Area> makeDividerArea(const View &view);
std::unique_ptr<Area> makeButtonArea(const View &view);
std::unique_ptr<Area> makeMenuButtonArea(const View &view);
std::unique_ptr<Area> makeLinkArea(const View &view);
std::unique_ptr<Area> makeToggleArea(const View &view);
std::unique_ptr<Area> makeRadioGroupArea(const View &view);
std::unique_ptr<Area> makePopUpArea(const View &view);
std::unique_ptr<Area> makeNumberFieldArea(const View &view);
std::unique_ptr<Area> makeStepperArea(const View &view);
std::unique_ptr<Area> makeTextFieldArea(const View &view);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
