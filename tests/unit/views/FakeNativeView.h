#pragma once

#include "platform/views/ViewNode.h"

#include <algorithm>
#include <string>
#include <vector>

namespace corvane::testing {

/// A font whose letters are all equally wide; those of Chinese and Japanese are twice as wide.
struct FakeFont {
    double letterWidth = 7;
    double lineHeight = 16;
};

/// The width of the text on one line, of its longest part between two places where a line may be
/// broken, and its height in lines of at most that width. Points.
double lineWidth(const std::string &text, const FakeFont &font);
double longestPart(const std::string &text, const FakeFont &font);
double wrappedHeight(const std::string &text, double width, const FakeFont &font);

/// A toolkit in memory: controls as large as those of macOS with that font, and what was done to
/// them.
class FakeToolkit {
  public:
    class Area;

    explicit FakeToolkit(FakeFont font = {}) : font_(font) {}

    views::MakeNativeView make();

    /// What was made, shown, moved, put in its place and taken away since the last call.
    std::vector<std::string> takeLog() { return std::exchange(log_, {}); }

    const FakeFont &font() const { return font_; }
    void note(const std::string &what, const View &view) { log_.push_back(what + nameOf(view)); }

    /// What a reader of the test knows the view by.
    static std::string nameOf(const View &view);

  private:
    FakeFont font_;
    std::vector<std::string> log_;
};

/// One area as the toolkit has it.
class FakeToolkit::Area : public views::NativeView {
  public:
    Area(FakeToolkit &toolkit, const View &shown, bool isColoured);
    Area(const Area &) = delete;
    Area &operator=(const Area &) = delete;
    ~Area() override;

    void show() override;
    Size measure(double width) override;
    void place(const Rectangle &newArea, const Rectangle &newContent) override;
    void insertChild(NativeView &child, std::size_t index) override;

    const View &view;
    const bool isInColouredLink;
    Rectangle area;
    Rectangle content;
    std::vector<Area *> children;

  private:
    FakeToolkit &toolkit_;
    Area *parent_ = nullptr;
};

} // namespace corvane::testing
