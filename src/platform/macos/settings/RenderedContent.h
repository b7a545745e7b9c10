#pragma once

#include "presentation/View.h"

#import <AppKit/AppKit.h>

#include <memory>

NS_ASSUME_NONNULL_BEGIN

namespace corvane::macos {

/// What surrounds a view.
struct Surroundings {
    /// Of texts and symbols that name no colour of their own.
    NSColor *ordinaryColour;
};

/// The controls that show one view's content. Main thread.
class RenderedContent {
  public:
    virtual ~RenderedContent() = default;

    virtual NSView *view() const = 0;

    /// Takes on the next state, which is of the kind the controls were made for.
    virtual void update(const View &next, const Surroundings &surroundings) = 0;
};

/// Controls for the view's kind of content, without a state yet.
std::unique_ptr<RenderedContent> makeContent(const View &view);

/// Whether controls made for one view can show the other.
bool areOfOneKind(const View &view, const View &other);

std::unique_ptr<RenderedContent> makeStack();
std::unique_ptr<RenderedContent> makeText();
std::unique_ptr<RenderedContent> makeSymbolImage();
std::unique_ptr<RenderedContent> makeFileImage();
std::unique_ptr<RenderedContent> makeButton();
std::unique_ptr<RenderedContent> makeToggle();
std::unique_ptr<RenderedContent> makeRadioGroup();
std::unique_ptr<RenderedContent> makePopUpButton();
std::unique_ptr<RenderedContent> makeNumberField();
std::unique_ptr<RenderedContent> makeStepper();
std::unique_ptr<RenderedContent> makeTextField();
std::unique_ptr<RenderedContent> makeDivider();
std::unique_ptr<RenderedContent> makeMenuButton();
std::unique_ptr<RenderedContent> makeLink();

/// Gives the control the view's words for a screen reader, and keeps it at its natural width.
void prepareControl(NSView *control, const View &view);

/// Makes a screen reader take notice of a picture or a group only where the view has words for it.
void describe(NSView *shown, const View &view);

} // namespace corvane::macos

NS_ASSUME_NONNULL_END
