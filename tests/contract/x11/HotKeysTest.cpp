#include "platform/x11/hotkey/HotKeys.h"

#include "EventLoop.h"
#include "XClient.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane::contract {

namespace {

using platform::HotKeyReference;

constexpr HotKey commandShiftY{.letter = 'Y', .command = true, .shift = true};

constexpr xcb_keycode_t superKey = 133;
constexpr xcb_keycode_t shiftKey = 50;
constexpr xcb_keycode_t americanY = desktop::Keyboard::physicalY;
constexpr xcb_keycode_t germanY = desktop::Keyboard::physicalZ;

constexpr std::uint16_t combination = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;

constexpr platform::HotKeyStatus badValue = 2;
constexpr platform::HotKeyStatus badAccess = 10;

class HotKeysTest : public testing::Test {
  protected:
    HotKeysTest() {
        setLayouts("us");
        settle(events_);
    }

    ~HotKeysTest() override {
        user_.lockModifiers(0xFF, false);
        user_.lockLayout(0);
    }

    void registerKey() {
        handler_ = hotKeys_.installHandler([this] { ++presses_; }).value_or(nullptr);
        ASSERT_NE(handler_, nullptr);
        key_ = hotKeys_.registerHotKey(commandShiftY).value_or(nullptr);
        ASSERT_NE(key_, nullptr);
    }

    /// How often the handler is called for one press of Super, Shift and the key.
    int pressesOf(xcb_keycode_t key) {
        const int before = presses_;
        user_.strike({superKey, shiftKey, key});
        settle(events_);
        return presses_ - before;
    }

    XClient user_;
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
    x11::HotKeys hotKeys_{events_};
    int presses_ = 0;
    std::unique_ptr<HotKeyReference> handler_;
    std::unique_ptr<HotKeyReference> key_;
};

TEST_F(HotKeysTest, NamesItsMechanism) { EXPECT_EQ(hotKeys_.mechanism(), "X11"); }

TEST_F(HotKeysTest, HearsOnlyTheWholeCombination) {
    registerKey();
    EXPECT_EQ(pressesOf(americanY), 1);
    EXPECT_EQ(pressesOf(germanY), 0);
    user_.strike({superKey, americanY});
    user_.strike({shiftKey, americanY});
    user_.strike({americanY});
    settle(events_);
    EXPECT_EQ(presses_, 1);
}

TEST_F(HotKeysTest, HearsItWhateverLocksAreOn) {
    registerKey();
    constexpr std::uint8_t capsLock = XCB_MOD_MASK_LOCK;
    constexpr std::uint8_t numLock = XCB_MOD_MASK_2;
    constexpr std::uint8_t both = capsLock | numLock;
    for (const std::uint8_t locks : {capsLock, numLock, both}) {
        user_.lockModifiers(locks, true);
        EXPECT_EQ(pressesOf(americanY), 1) << "locks " << int{locks};
        user_.lockModifiers(locks, false);
    }
}

TEST_F(HotKeysTest, HoldingTheKeyIsOnePress) {
    registerKey();
    user_.keyboard().press(superKey);
    user_.keyboard().press(shiftKey);
    user_.keyboard().press(americanY);
    // The server repeats the key by itself; the repeats are events like any other.
    int repeats = 0;
    const auto subscription = events_.subscribe([&repeats](const xcb_generic_event_t &event) {
        repeats += event.response_type == XCB_KEY_PRESS ? 1 : 0;
    });
    ASSERT_TRUE(turnUntil([&repeats] { return repeats >= 3; }));
    EXPECT_EQ(presses_, 1);
    // Letting go of the modifiers first is no press either.
    user_.keyboard().release(superKey);
    user_.keyboard().release(shiftKey);
    user_.keyboard().release(americanY);
    settle(events_);
    EXPECT_EQ(presses_, 1);
    EXPECT_EQ(pressesOf(americanY), 1);
}

TEST_F(HotKeysTest, TakesTheKeyThatCarriesTheLetter) {
    setLayouts("de");
    registerKey();
    EXPECT_EQ(pressesOf(germanY), 1);
    EXPECT_EQ(pressesOf(americanY), 0);
}

TEST_F(HotKeysTest, TakesThePlaceOfTheLetterUnderALayoutWithoutIt) {
    setLayouts("ru");
    registerKey();
    EXPECT_EQ(pressesOf(americanY), 1);
    EXPECT_EQ(pressesOf(germanY), 0);
}

TEST_F(HotKeysTest, FollowsAnotherKeyboardMap) {
    registerKey();
    setLayouts("de");
    settle(events_);
    EXPECT_EQ(pressesOf(germanY), 1);
    EXPECT_EQ(pressesOf(americanY), 0);
    setLayouts("us");
    settle(events_);
    EXPECT_EQ(pressesOf(germanY), 0);
    EXPECT_EQ(pressesOf(americanY), 1);
}

TEST_F(HotKeysTest, FollowsTheActiveLayout) {
    setLayouts("us,de,ru");
    registerKey();
    EXPECT_EQ(pressesOf(americanY), 1);
    user_.lockLayout(1);
    settle(events_);
    EXPECT_EQ(pressesOf(germanY), 1);
    EXPECT_EQ(pressesOf(americanY), 0);
    user_.lockLayout(2);
    settle(events_);
    EXPECT_EQ(pressesOf(americanY), 1);
    EXPECT_EQ(pressesOf(germanY), 0);
}

TEST_F(HotKeysTest, IsRefusedWhileAnotherProgramHasIt) {
    XClient other;
    ASSERT_EQ(other.grabKey(americanY, combination), 0);

    const auto refused = hotKeys_.registerHotKey(commandShiftY);
    ASSERT_FALSE(refused.has_value());
    EXPECT_EQ(refused.error(), badAccess);

    other.giveKeysBack();
    registerKey();
    EXPECT_EQ(pressesOf(americanY), 1);
}

TEST_F(HotKeysTest, ARefusalLeavesNoCombinationTaken) {
    XClient other;
    ASSERT_EQ(other.grabKey(americanY, combination | XCB_MOD_MASK_LOCK), 0);
    ASSERT_FALSE(hotKeys_.registerHotKey(commandShiftY).has_value());
    settle(events_);
    EXPECT_EQ(other.grabKey(americanY, combination), 0);
}

TEST_F(HotKeysTest, IsGivenBackWithItsReference) {
    registerKey();
    XClient other;
    EXPECT_EQ(other.grabKey(americanY, combination), badAccess);
    key_.reset();
    settle(events_);
    EXPECT_EQ(pressesOf(americanY), 0);
    EXPECT_EQ(other.grabKey(americanY, combination), 0);
}

TEST_F(HotKeysTest, ComesBackWithALayoutUnderWhichItIsFree) {
    registerKey();
    XClient other;
    ASSERT_EQ(other.grabKey(germanY, combination), 0);
    setLayouts("de");
    settle(events_);
    EXPECT_EQ(pressesOf(germanY), 0);
    setLayouts("us");
    settle(events_);
    EXPECT_EQ(pressesOf(americanY), 1);
}

TEST_F(HotKeysTest, APressWithoutAHandlerIsIgnored) {
    registerKey();
    handler_.reset();
    EXPECT_EQ(pressesOf(americanY), 0);
}

TEST_F(HotKeysTest, RefusesAKeyTheKeyboardHasNot) {
    HotKey unknown = commandShiftY;
    unknown.letter = 0;
    const auto refused = hotKeys_.registerHotKey(unknown);
    ASSERT_FALSE(refused.has_value());
    EXPECT_EQ(refused.error(), badValue);
}

} // namespace

} // namespace corvane::contract
