#include "platform/macos/logic/MenuPresenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::macos {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Menu menuOf(const std::vector<std::string> &titles) {
    Menu menu;
    for (const std::string &title : titles) {
        menu.items.push_back({.title = title});
    }
    return menu;
}

class MenuPresenterTest : public ::testing::Test {
  protected:
    std::vector<std::string> done() { return std::exchange(done_, {}); }

    MenuPresenter presenter_{
        {.replace =
             [this](const Menu &menu) { done_.push_back("replace " + menu.items.back().title); },
         .update =
             [this](const Menu &shown, const Menu &next) {
                 done_.push_back("update " + shown.items.back().title + " to " +
                                 next.items.back().title);
             }}};
    std::vector<std::string> done_;
};

TEST_F(MenuPresenterTest, TheSameLinesTakeNewTextsInPlaceAlsoWhileTheMenuIsOpen) {
    presenter_.show(menuOf({"Idle"}));
    EXPECT_THAT(done(), ElementsAre("replace Idle"));
    presenter_.menuOpened();
    presenter_.show(menuOf({"Running"}));
    presenter_.show(menuOf({"Running (1 clicks)"}));
    EXPECT_THAT(done(),
                ElementsAre("update Idle to Running", "update Running to Running (1 clicks)"));
    presenter_.menuClosed();
    EXPECT_THAT(done(), IsEmpty());
}

TEST_F(MenuPresenterTest, OtherLinesWaitUntilTheOpenMenuHasClosed) {
    presenter_.show(menuOf({"Idle"}));
    presenter_.menuOpened();
    done();
    presenter_.show(menuOf({"Idle", "Grant"}));
    presenter_.show(menuOf({"Idle", "Grant now"}));
    EXPECT_THAT(done(), IsEmpty());
    presenter_.menuClosed();
    EXPECT_THAT(done(), ElementsAre("replace Grant now"));
    presenter_.show(menuOf({"Idle", "Grant", "Third"}));
    EXPECT_THAT(done(), ElementsAre("replace Third"));
}

TEST_F(MenuPresenterTest, ASubmenuOrASeparatorMakesOtherLines) {
    Menu plain = menuOf({"Profiles"});
    presenter_.show(plain);
    Menu withSubmenu = plain;
    withSubmenu.items.front().submenu = menuOf({"Work"}).items;
    presenter_.show(withSubmenu);
    withSubmenu.items.front().submenu = menuOf({"Work", "Play"}).items;
    presenter_.show(withSubmenu);
    plain.items = {MenuItem::separator()};
    presenter_.show(plain);
    EXPECT_THAT(done(), ElementsAre("replace Profiles", "replace Profiles", "replace Profiles",
                                    "replace "));
}

TEST_F(MenuPresenterTest, WhatIsShownAgainByTheTimeTheMenuClosesIsLeftAlone) {
    presenter_.show(menuOf({"Idle"}));
    presenter_.menuOpened();
    presenter_.show(menuOf({"Idle", "Grant"}));
    presenter_.show(menuOf({"Idle"}));
    done();
    presenter_.menuClosed();
    EXPECT_THAT(done(), IsEmpty());
}

} // namespace
} // namespace corvane::macos
