#include "SampleWindow.h"
#include "WindowSystemTest.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/x11/windows/WindowReader.h"

#include <algorithm>
#include <random>

namespace corvane::contract {

namespace {

/// Windows may say anything of themselves, and the root window of all of them.
class ForeignPropertiesTest : public WindowSystemTest,
                              public testing::WithParamInterface<unsigned> {
  protected:
    ForeignPropertiesTest() : WindowSystemTest({.windowManager = desktop::WindowManager::none}) {
        window_.map();
    }

    std::uint32_t chance(std::uint32_t end) {
        return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(random_);
    }

    template <typename List>
    auto anyOf(const List &list) {
        return list[chance(static_cast<std::uint32_t>(std::size(list)))];
    }

    /// Mostly short; bytes that mean something in one of the encodings are frequent.
    std::vector<std::uint8_t> anyBytes() {
        constexpr std::array<std::uint8_t, 10> special{0x00, 0x1B, 0x25, 0x47, 0x40,
                                                       0xC3, 0xED, 0xF4, 0xFF, 0x0A};
        std::vector<std::uint8_t> bytes(std::size_t{4} *
                                        (chance(50) == 0 ? chance(30000) : chance(24)));
        for (std::uint8_t &byte : bytes) {
            byte = chance(2) == 0 ? anyOf(special) : static_cast<std::uint8_t>(chance(256));
        }
        return bytes;
    }

    void setAnything(xcb_window_t window, std::span<const char *const> properties) {
        constexpr std::array types{"STRING", "UTF8_STRING", "COMPOUND_TEXT", "CARDINAL",
                                   "ATOM",   "WINDOW",      "NONSENSE"};
        constexpr std::array<std::uint8_t, 3> formats{8, 16, 32};
        const std::uint8_t format = anyOf(formats);
        const auto bytes = anyBytes();
        xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, window,
                            client_.atom(anyOf(properties)), client_.atom(anyOf(types)), format,
                            static_cast<std::uint32_t>(bytes.size() / (format / 8U)), bytes.data());
        client_.synchronize();
    }

    void expectSound(const x11::WindowInfo &info) const {
        EXPECT_GE(info.bounds.width, 0);
        EXPECT_GE(info.bounds.height, 0);
        if (info.title) {
            EXPECT_EQ(linux::utf8Text(*info.title), *info.title);
        }
    }

    void expectSound(const x11::WindowOwner &owner) const {
        EXPECT_GT(owner.processIdentifier.value_or(1), 0);
        EXPECT_EQ(linux::utf8Text(owner.instanceName), owner.instanceName);
        EXPECT_EQ(linux::utf8Text(owner.className), owner.className);
    }

    std::mt19937 random_{GetParam()};
    desktop::DisplayConnection client_{desktop_.display()};
    SampleWindow window_{client_};
    x11::WindowReader reader_{events_.connection()};
};

TEST_P(ForeignPropertiesTest, AreReadAsSoundValuesOrNone) {
    constexpr std::array ofWindows{"WM_NAME",           "_NET_WM_NAME",        "WM_CLASS",
                                   "WM_STATE",          "_NET_WM_PID",         "_NET_WM_STATE",
                                   "_NET_WM_DESKTOP",   "_NET_WM_WINDOW_TYPE", "_NET_FRAME_EXTENTS",
                                   "_GTK_FRAME_EXTENTS"};
    constexpr std::array ofTheRoot{"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING",
                                   "_NET_CURRENT_DESKTOP", "_NET_SUPPORTING_WM_CHECK"};
    for (int round = 0; round < 400; ++round) {
        setAnything(window_.id(), ofWindows);
        setAnything(client_.root(), ofTheRoot);
        const std::array windows{window_.id()};
        const auto info = reader_.info(windows);
        ASSERT_EQ(info.size(), 1U);
        expectSound(info.front());
        const auto owners = reader_.owners(windows);
        ASSERT_EQ(owners.size(), 1U);
        expectSound(owners.front());
        // What a list names may not exist.
        const auto listed = reader_.windows();
        EXPECT_LE(reader_.info(listed).size(), listed.size());
        EXPECT_EQ(reader_.owners(listed).size(), listed.size());
        ASSERT_FALSE(HasFailure()) << "in round " << round;
    }
    EXPECT_FALSE(events_.connection().isLost());
}

/// A window manager leads the reader to the lists of windows.
TEST_P(ForeignPropertiesTest, AListOfWindowsMayNameAnything) {
    window_.setNumbers("_NET_SUPPORTING_WM_CHECK", "WINDOW", {window_.id()});
    const std::uint32_t manager = window_.id();
    xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, client_.root(),
                        client_.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 1, &manager);
    for (int round = 0; round < 100; ++round) {
        constexpr std::array lists{"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING"};
        setAnything(client_.root(), lists);
        const auto listed = reader_.windows();
        for (const x11::WindowInfo &info : reader_.info(listed)) {
            expectSound(info);
        }
        for (const x11::WindowOwner &owner : reader_.owners(listed)) {
            expectSound(owner);
        }
        ASSERT_FALSE(HasFailure()) << "in round " << round;
    }
    EXPECT_FALSE(events_.connection().isLost());
}

INSTANTIATE_TEST_SUITE_P(Seeds, ForeignPropertiesTest, testing::Values(1U, 2U, 3U, 4U));

} // namespace

} // namespace corvane::contract
