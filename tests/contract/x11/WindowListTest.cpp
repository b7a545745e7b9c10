#include "platform/x11/windows/WindowList.h"

#include "SampleWindow.h"
#include "WindowSystemTest.h"
#include "actors/ClickClient.h"
#include "platform/linux/environment/TextDecoding.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

#include <unistd.h>

namespace corvane::contract {

namespace {

using desktop::ClickClient;
using desktop::DisplayConnection;
using platform::WindowListEntry;

using Entries = std::vector<WindowListEntry>;

std::optional<WindowListEntry> named(const Entries &entries, const std::string &name) {
    const auto entry = std::ranges::find(entries, std::optional(name), &WindowListEntry::name);
    return entry != entries.end() ? std::optional(*entry) : std::nullopt;
}

std::vector<std::string> names(const Entries &entries) {
    std::vector<std::string> names;
    for (const WindowListEntry &entry : entries) {
        names.push_back(entry.name.value_or("(none)"));
    }
    return names;
}

/// Where the server has the outermost window around one.
Rectangle outerArea(const DisplayConnection &connection, xcb_window_t window) {
    for (;;) {
        const x11::XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection.get(), xcb_query_tree(connection.get(), window), nullptr));
        if (tree->parent == tree->root) {
            break;
        }
        window = tree->parent;
    }
    const x11::XcbReply<xcb_get_geometry_reply_t> area(xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
    const double border = 2.0 * area->border_width;
    return {double(area->x), double(area->y), area->width + border, area->height + border};
}

class WindowListTest : public EveryWindowManagerTest {
  protected:
    Entries entries() { return list_.onScreenWindows().value(); }

    bool turnUntilListed(const std::string &name) {
        return turnUntil([&] { return named(entries(), name).has_value(); });
    }

    bool turnUntilUnlisted(const std::string &name) {
        return turnUntil([&] { return !named(entries(), name); });
    }

    void show(const SampleWindow &window, const std::string &title) {
        window.setTitle(title);
        window.map();
        ASSERT_TRUE(turnUntilListed(title));
    }

    const DisplayConnection &connection() const { return desktop_.connection(); }

    x11::WindowList list_{events_.connection()};
};

TEST_P(WindowListTest, TheFrontMostComesFirst) {
    const SampleWindow one(connection());
    const SampleWindow other(connection());
    show(one, "One");
    show(other, "Other");
    one.raise();
    EXPECT_TRUE(
        turnUntil([this] { return names(entries()) == std::vector<std::string>{"One", "Other"}; }));
    other.raise();
    EXPECT_TRUE(
        turnUntil([this] { return names(entries()) == std::vector<std::string>{"Other", "One"}; }));
}

TEST_P(WindowListTest, BoundsAreThoseOfTheFrame) {
    const SampleWindow window(connection(), {.x = 200, .y = 150, .width = 320, .height = 240});
    show(window, "Framed");
    EXPECT_TRUE(turnUntil([&] {
        const auto entry = named(entries(), "Framed");
        return entry && entry->bounds == outerArea(connection(), window.id()) &&
               entry->bounds->height > 240;
    }));
}

TEST_P(WindowListTest, AShadowThatTheProgramDrawsItselfDoesNotCount) {
    const SampleWindow window(connection(), {.width = 340, .height = 250});
    // No frame from the window manager, and a shadow of different widths.
    window.setNumbers("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
    window.setNumbers("_GTK_FRAME_EXTENTS", "CARDINAL", {10, 20, 30, 40});
    show(window, "Own frame");
    const auto outer = outerArea(connection(), window.id());
    EXPECT_EQ(named(entries(), "Own frame")->bounds,
              (Rectangle{outer.x + 10, outer.y + 30, 310, 180}));
}

TEST_P(WindowListTest, AMovedWindowIsWhereItIsNow) {
    const SampleWindow window(connection());
    show(window, "Moved");
    const auto before = named(entries(), "Moved")->bounds;
    window.moveTo(400, 300);
    EXPECT_TRUE(turnUntil([&] {
        const auto bounds = named(entries(), "Moved")->bounds;
        return bounds != before && bounds == outerArea(connection(), window.id());
    }));
}

TEST_P(WindowListTest, WhatIsNotOnScreenIsLeftOut) {
    const SampleWindow stays(connection());
    show(stays, "Stays");
    const SampleWindow minimised(connection());
    show(minimised, "Minimised");
    minimised.minimise();
    EXPECT_TRUE(turnUntilUnlisted("Minimised"));
    minimised.restore();
    EXPECT_TRUE(turnUntilListed("Minimised"));
    minimised.unmap();
    EXPECT_TRUE(turnUntilUnlisted("Minimised"));
    EXPECT_TRUE(named(entries(), "Stays"));
}

TEST_P(WindowListTest, WindowsOfOtherWorkspacesAreLeftOut) {
    const SampleWindow elsewhere(connection());
    const SampleWindow everywhere(connection());
    show(elsewhere, "Elsewhere");
    show(everywhere, "Everywhere");
    constexpr std::uint32_t secondDesktop = 1;
    constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
    elsewhere.ask("_NET_WM_DESKTOP", {secondDesktop, 1});
    everywhere.ask("_NET_WM_DESKTOP", {everyDesktop, 1});
    EXPECT_TRUE(turnUntilUnlisted("Elsewhere"));
    EXPECT_TRUE(named(entries(), "Everywhere"));
}

TEST_P(WindowListTest, OnlyOrdinaryWindowsAreOnLayerZero) {
    const std::map<std::string, bool> isOrdinary{
        {"NORMAL", true}, {"DIALOG", true}, {"UTILITY", true}, {"DOCK", false}, {"SPLASH", false}};
    for (const auto &[type, isOnLayerZero] : isOrdinary) {
        const SampleWindow window(connection());
        window.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_" + type});
        show(window, type);
        EXPECT_EQ(named(entries(), type)->layer == 0, isOnLayerZero) << type;
    }
}

TEST_P(WindowListTest, TheDesktopItselfIsLeftOut) {
    const SampleWindow background(connection());
    background.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DESKTOP"});
    background.setTitle("Background");
    background.map();
    const SampleWindow later(connection());
    show(later, "Later");
    EXPECT_FALSE(named(entries(), "Background"));
}

TEST_P(WindowListTest, TheServerKnowsBetterWhoseWindowItIs) {
    ClickClient client(desktop_);
    client.open({.title = "Honest"});
    client.open({.title = "Lying", .pid = 1});
    client.open({.title = "Silent", .pid = 0});
    for (const char *title : {"Honest", "Lying", "Silent"}) {
        ASSERT_TRUE(turnUntilListed(title));
        EXPECT_EQ(named(entries(), title)->ownerProcessIdentifier, client.pid()) << title;
    }
}

TEST_P(WindowListTest, TitlesAreValidText) {
    const SampleWindow window(connection());
    show(window, "First");
    window.setTitle("Broken \xFF\xC3 end");
    EXPECT_TRUE(turnUntilListed("Broken \xEF\xBF\xBD\xEF\xBF\xBD end"));
    window.setTitle("");
    EXPECT_TRUE(turnUntilListed(""));
    window.setTitle(std::string_view("Before\0after", 12));
    EXPECT_TRUE(turnUntilListed("Before"));
    window.setTitle("Grüße – 窓");
    EXPECT_TRUE(turnUntilListed("Grüße – 窓"));
}

TEST_P(WindowListTest, AVeryLongTitleIsCutButThere) {
    const SampleWindow window(connection());
    show(window, "Short");
    window.setTitle(std::string(200000, 'x'));
    EXPECT_TRUE(turnUntil([this] {
        const auto all = entries();
        return all.size() == 1 && all.front().name && all.front().name->size() > 60000;
    }));
}

TEST_P(WindowListTest, OldProgramsHaveTitlesToo) {
    const SampleWindow latin(connection());
    latin.setText("WM_NAME", "STRING",
                  "Stra\xDF"
                  "e");
    latin.map();
    EXPECT_TRUE(turnUntilListed("Straße"));
    const SampleWindow compound(connection());
    compound.setText("WM_NAME", "COMPOUND_TEXT", "A \x1b%GΩ\x1b%@ z");
    compound.map();
    EXPECT_TRUE(turnUntilListed("A Ω z"));
}

TEST_P(WindowListTest, WindowsMayVanishWhileTheyAreRead) {
    const SampleWindow stays(connection());
    show(stays, "Stays");
    std::atomic<bool> isOver = false;
    std::thread vanishing([&] {
        const DisplayConnection own(desktop_.display());
        while (!isOver) {
            const SampleWindow window(own);
            window.setTitle("Brief");
            window.map();
        }
    });
    for (int count = 0; count < 300; ++count) {
        const auto all = list_.onScreenWindows();
        ASSERT_TRUE(all);
        EXPECT_TRUE(named(*all, "Stays"));
        for (const WindowListEntry &entry : *all) {
            EXPECT_TRUE(entry.bounds && entry.layer);
        }
    }
    isOver = true;
    vanishing.join();
}

INSTANTIATE_TEST_SUITE_P(All, WindowListTest, windowManagers, windowManagerName);

/// Without a window manager, the children of the root window are listed.
class UnmanagedWindowListTest : public WindowSystemTest {
  protected:
    UnmanagedWindowListTest() : WindowSystemTest({.windowManager = desktop::WindowManager::none}) {}

    Entries entries() { return list_.onScreenWindows().value(); }
    const DisplayConnection &connection() const { return desktop_.connection(); }

    x11::WindowList list_{events_.connection()};
};

TEST_F(UnmanagedWindowListTest, AnEmptyScreenHasNoWindows) { EXPECT_TRUE(entries().empty()); }

TEST_F(UnmanagedWindowListTest, TheFrontMostComesFirst) {
    const SampleWindow one(connection());
    const SampleWindow other(connection(), {.x = 7, .y = 8, .width = 90, .height = 100});
    const SampleWindow hidden(connection());
    one.setTitle("One");
    other.setTitle("Other");
    one.map();
    other.map();
    EXPECT_EQ(names(entries()), (std::vector<std::string>{"Other", "One"}));
    EXPECT_EQ(entries().front().bounds, (Rectangle{7, 8, 90, 100}));
    EXPECT_EQ(entries().front().layer, 0);
    one.raise();
    EXPECT_EQ(names(entries()), (std::vector<std::string>{"One", "Other"}));
}

TEST_F(UnmanagedWindowListTest, AWindowWithoutATitleHasNone) {
    const SampleWindow window(connection());
    window.map();
    EXPECT_EQ(entries().front().name, std::nullopt);
}

TEST_F(UnmanagedWindowListTest, MenusAndTheLikeAreNotOrdinary) {
    const SampleWindow popup(connection(), {.isOverride = true});
    popup.map();
    EXPECT_NE(entries().front().layer, 0);
    for (const char *type : {"DOCK", "TOOLBAR", "MENU", "DROPDOWN_MENU", "POPUP_MENU", "COMBO",
                             "TOOLTIP", "NOTIFICATION", "SPLASH", "DND"}) {
        const SampleWindow window(connection());
        window.setAtoms("_NET_WM_WINDOW_TYPE", {std::string("_NET_WM_WINDOW_TYPE_") + type});
        window.map();
        EXPECT_NE(entries().front().layer, 0) << type;
    }
}

TEST_F(UnmanagedWindowListTest, TheFirstTypeThatIsKnownCounts) {
    const SampleWindow window(connection());
    window.setAtoms("_NET_WM_WINDOW_TYPE",
                    {"_EXAMPLE_TYPE", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NORMAL"});
    window.map();
    EXPECT_NE(entries().front().layer, 0);
}

TEST_F(UnmanagedWindowListTest, WindowsThatShowNothingAreLeftOut) {
    const SampleWindow invisible(connection(), {.isInputOnly = true});
    invisible.map();
    EXPECT_TRUE(entries().empty());
}

TEST_F(UnmanagedWindowListTest, MalformedDescriptionsAreIgnored) {
    const SampleWindow window(connection());
    window.setTitle("Odd");
    window.setText("_NET_FRAME_EXTENTS", "CARDINAL", "abc");
    window.setNumbers("_GTK_FRAME_EXTENTS", "CARDINAL", {1, 2});
    window.setText("_NET_WM_WINDOW_TYPE", "ATOM", "x");
    window.setText("_NET_WM_PID", "CARDINAL", "");
    window.map();
    const auto entry = named(entries(), "Odd");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->bounds, (Rectangle{100, 100, 300, 200}));
    EXPECT_EQ(entry->layer, 0);
    EXPECT_EQ(entry->ownerProcessIdentifier, getpid());
}

TEST_F(UnmanagedWindowListTest, AManagerThatHasGoneIsNotBelieved) {
    const SampleWindow window(connection());
    window.setTitle("Real");
    window.map();
    const std::uint32_t gone = 0x123456;
    const auto property = [this, &gone](std::string_view name) {
        xcb_change_property(connection().get(), XCB_PROP_MODE_REPLACE, connection().root(),
                            connection().atom(name), XCB_ATOM_WINDOW, 32, 1, &gone);
        connection().synchronize();
    };
    property("_NET_SUPPORTING_WM_CHECK");
    property("_NET_CLIENT_LIST");
    property("_NET_CLIENT_LIST_STACKING");
    EXPECT_EQ(names(entries()), std::vector<std::string>{"Real"});
}

TEST(WindowTitleTest, CompoundTextKeepsWhatItCan) {
    EXPECT_EQ(linux::compoundText("plain"), "plain");
    EXPECT_EQ(linux::compoundText("\xE4"), "ä");
    EXPECT_EQ(linux::compoundText("\x1b-A\xE4"), "ä");
    EXPECT_EQ(linux::compoundText("\x1b%Gä\x1b%@b"), "äb");
    EXPECT_EQ(linux::compoundText("end\x1b"), "end");
    EXPECT_EQ(linux::compoundText("end\x1b%G"), "end");
    EXPECT_EQ(linux::compoundText(""), "");
}

} // namespace

} // namespace corvane::contract
