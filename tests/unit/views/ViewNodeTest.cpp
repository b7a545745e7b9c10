#include "FakeNativeView.h"
#include "ui/ViewBuilding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using views::LayoutDirection;
using views::ViewNode;

View text(std::string words) { return {.content = Text{.text = std::move(words)}}; }

View button(std::string title, std::function<void()> action = {}) {
    return {.content = Button{.title = std::move(title), .action = {std::move(action)}}};
}

View identified(View view, std::string identity) {
    view.identity = std::move(identity);
    return view;
}

class ViewNodeTest : public ::testing::Test {
  protected:
    void show(View view) {
        node_ = std::make_unique<ViewNode>(std::move(view), make_);
        toolkit_.takeLog();
    }

    std::vector<std::string> update(View view) {
        EXPECT_TRUE(node_->canShow(view));
        node_->update(std::move(view));
        return toolkit_.takeLog();
    }

    FakeToolkit::Area &root() { return dynamic_cast<FakeToolkit::Area &>(node_->native()); }

    std::vector<std::string> order() {
        std::vector<std::string> names;
        for (const auto *child : root().children) {
            names.push_back(FakeToolkit::nameOf(child->view));
        }
        return names;
    }

    /// The areas of the children of the outermost view.
    std::vector<Rectangle> layOut(double width,
                                  LayoutDirection direction = LayoutDirection::leftToRight) {
        height_ = node_->layOut(width, direction);
        std::vector<Rectangle> areas;
        for (const auto *child : root().children) {
            areas.push_back(child->area);
        }
        return areas;
    }

    FakeToolkit toolkit_{{.letterWidth = 10, .lineHeight = 20}};
    const views::MakeNativeView make_ = toolkit_.make();
    std::unique_ptr<ViewNode> node_;
    double height_ = 0;
};

TEST_F(ViewNodeTest, WhatIsEqualIsLeftAlone) {
    const View view = column({text("One"), row({text("Two"), button("Press")})}, 8);
    show(view);
    EXPECT_THAT(update(view), IsEmpty());
    EXPECT_THAT(update(column({text("One"), row({text("Three"), button("Press")})}, 8)),
                ElementsAre("show Three"));
}

TEST_F(ViewNodeTest, TheNewestHandlerIsCalledAlsoWhereNothingElseHasChanged) {
    std::string called;
    show(column({button("Press", [&] { called += "old"; })}, 8));
    EXPECT_THAT(update(column({button("Press", [&] { called += "new"; })}, 8)), IsEmpty());
    std::get<Button>(root().children.front()->view.content).action();
    EXPECT_EQ(called, "new");
}

TEST_F(ViewNodeTest, AControlStaysWithItsIdentity) {
    show(column({identified(text("a"), "A"), identified(text("b"), "B"), button("Save")}, 8));
    EXPECT_THAT(update(column({identified(text("b"), "B"), button("Save")}, 8)),
                ElementsAre("destroy A"));
    EXPECT_THAT(order(), ElementsAre("B", "Save"));
    EXPECT_THAT(
        update(column({identified(text("c"), "C"), identified(text("b"), "B"), button("Save")}, 8)),
        ElementsAre("make C", "show C", "insert C"));
    EXPECT_THAT(order(), ElementsAre("C", "B", "Save"));
}

TEST_F(ViewNodeTest, OnlyWhatChangesItsPlaceIsMovedAmongItsSiblings) {
    show(column(
        {identified(text("a"), "A"), identified(text("b"), "B"), identified(text("c"), "C")}, 8));
    EXPECT_THAT(update(column({identified(text("c"), "C"), identified(text("a"), "A"),
                               identified(text("b"), "B")},
                              8)),
                ElementsAre("insert C"));
    EXPECT_THAT(order(), ElementsAre("C", "A", "B"));
}

TEST_F(ViewNodeTest, AnotherKindNeedsAnotherControl) {
    show(text("One"));
    EXPECT_FALSE(node_->canShow(button("One")));
    EXPECT_FALSE(node_->canShow(identified(text("One"), "one")));
    show({.content = Picker{.style = PickerStyle::menu}});
    EXPECT_FALSE(node_->canShow({.content = Picker{.style = PickerStyle::radioGroup}}));
}

TEST_F(ViewNodeTest, ALinkColoursItsLabelUnlessItIsPlainAndIsCalledByItsTexts) {
    const auto link = [](bool isPlain) {
        return View{.content = Link{.address = "http://x",
                                    .isPlain = isPlain,
                                    .label = {row({text("See "), text("more")})}}};
    };
    show(column({link(false), link(true)}, 8));
    const auto label = [this](std::size_t index) {
        return root().children[index]->children.front()->children.front();
    };
    EXPECT_TRUE(label(0)->isInColouredLink);
    EXPECT_FALSE(label(1)->isInColouredLink);
    EXPECT_EQ(root().children.front()->view.accessibilityLabel, "See more");
}

TEST_F(ViewNodeTest, AColumnPlacesItsChildrenBelowEachOther) {
    View view = column({text("ab"), text("abcd")}, 8, Alignment::center);
    view.padding = {.top = 1, .leading = 2, .bottom = 3, .trailing = 4};
    view.width = 106;
    show(view);
    EXPECT_THAT(layOut(500), ElementsAre(Rectangle{42, 1, 20, 20}, Rectangle{32, 29, 40, 20}));
    EXPECT_EQ(height_, 52);
    EXPECT_EQ(root().area, (Rectangle{0, 0, 106, 52}));
}

TEST_F(ViewNodeTest, ARightToLeftLayoutIsTheMirrorImage) {
    View view = row({text("ab"), text("abcd")}, 8);
    view.padding = {.top = 0, .leading = 5, .bottom = 0, .trailing = 0};
    view.fullWidth = Alignment::leading;
    show(view);
    EXPECT_THAT(layOut(100), ElementsAre(Rectangle{5, 0, 20, 20}, Rectangle{33, 0, 40, 20}));
    EXPECT_THAT(layOut(100, LayoutDirection::rightToLeft),
                ElementsAre(Rectangle{75, 0, 20, 20}, Rectangle{27, 0, 40, 20}));
}

TEST_F(ViewNodeTest, WhatStaysInItsPlaceIsNotMoved) {
    show(column({text("ab"), text("cd")}, 8));
    layOut(100);
    toolkit_.takeLog();
    layOut(100);
    EXPECT_THAT(toolkit_.takeLog(), IsEmpty());
    update(column({text("ab"), text("long")}, 8));
    layOut(100);
    EXPECT_THAT(toolkit_.takeLog(), UnorderedElementsAre("place stack", "place long"));
}

TEST_F(ViewNodeTest, ATextBreaksWhereTheWidthEndsAndMakesRoomForItsLines) {
    show(column({text("aaaa bbbb cccc"), text("x")}, 8, Alignment::leading));
    EXPECT_THAT(layOut(100), ElementsAre(Rectangle{0, 0, 100, 40}, Rectangle{0, 48, 10, 20}));
}

TEST_F(ViewNodeTest, TextsGiveWayInARowAndControlsDoNot) {
    View long1 = singleLine(text("0123456789"));
    show(row({long1, button("Go"), long1}, 10));
    // The button takes 48, the gaps 20.
    EXPECT_THAT(layOut(168), ElementsAre(Rectangle{0, 1, 50, 20}, Rectangle{60, 0, 48, 22},
                                         Rectangle{118, 1, 50, 20}));
}

TEST_F(ViewNodeTest, ATextThatKeepsToOneLineGivesWayBeforeOneThatCanBeBroken) {
    show(row({singleLine(text("0123456789")), text("badge")}, 10));
    EXPECT_THAT(layOut(110), ElementsAre(Rectangle{0, 0, 50, 20}, Rectangle{60, 0, 50, 20}));
}

TEST_F(ViewNodeTest, WhatFillsTheWidthSharesIt) {
    const auto card = [](std::string words) {
        View view = text(std::move(words));
        view.fullWidth = Alignment::leading;
        return view;
    };
    show(row({card("ab"), card("abc")}, 10, Alignment::top));
    EXPECT_THAT(layOut(210), ElementsAre(Rectangle{0, 0, 100, 20}, Rectangle{110, 0, 100, 20}));
    show(row({card("0123456789AB"), card("abc")}, 10, Alignment::top));
    EXPECT_THAT(layOut(210), ElementsAre(Rectangle{0, 0, 120, 20}, Rectangle{130, 0, 80, 20}));
}

TEST_F(ViewNodeTest, AFieldTakesWhatTheButtonLeaves) {
    show(row({{.content = TextField{}}, button("Save")}, 8));
    EXPECT_THAT(layOut(200), ElementsAre(Rectangle{0, 0, 124, 22}, Rectangle{132, 0, 68, 22}));
}

TEST_F(ViewNodeTest, AContentThatIsLowerThanItsAreaStandsInTheMiddle) {
    View page = column({text("ab")}, 0);
    page.minHeight = 100;
    show(page);
    EXPECT_THAT(layOut(50), ElementsAre(Rectangle{0, 40, 20, 20}));
    EXPECT_EQ(height_, 100);
}

} // namespace

} // namespace corvane::testing
