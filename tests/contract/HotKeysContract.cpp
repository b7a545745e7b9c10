#include "BackEnd.h"
#include "platform/HotKeys.h"
#include "platform/Platform.h"

namespace corvane::contract {

namespace {

constexpr HotKey commandShiftY{.letter = 'Y', .command = true, .shift = true};

class HotKeysContract : public ContractTest {
  protected:
    platform::HotKeys &hotKeys() { return platform().hotKeys(); }
};

TEST_P(HotKeysContract, NamesItsMechanism) { EXPECT_FALSE(hotKeys().mechanism().empty()); }

TEST_P(HotKeysContract, GivesReferencesToAHandlerAndAKey) {
    const auto handler = hotKeys().installHandler([] {});
    ASSERT_TRUE(handler.has_value());
    EXPECT_NE(*handler, nullptr);
    const auto key = hotKeys().registerHotKey(commandShiftY);
    ASSERT_TRUE(key.has_value());
    EXPECT_NE(*key, nullptr);
}

TEST_P(HotKeysContract, AKeyGivenBackCanBeRegisteredAgain) {
    for (int turn = 0; turn < 3; ++turn) {
        const auto handler = hotKeys().installHandler([] {});
        EXPECT_TRUE(handler.has_value());
        EXPECT_TRUE(hotKeys().registerHotKey(commandShiftY).has_value());
    }
}

CORVANE_WINDOW_CONTRACT(HotKeysContract);

} // namespace

} // namespace corvane::contract
