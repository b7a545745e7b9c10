#include "BackEnd.h"
#include "platform/LoginItem.h"
#include "platform/Platform.h"

namespace corvane::contract {

namespace {

class LoginItemContract : public ContractTest {
  protected:
    platform::LoginItem &item() { return platform().loginItem(); }
};

TEST_P(LoginItemContract, IsOffUntilRegistered) { EXPECT_FALSE(item().isEnabled()); }

TEST_P(LoginItemContract, IsOnOnceRegisteredHoweverOften) {
    ASSERT_TRUE(item().registerItem().has_value());
    EXPECT_TRUE(item().isEnabled());
    ASSERT_TRUE(item().registerItem().has_value());
    EXPECT_TRUE(item().isEnabled());
}

TEST_P(LoginItemContract, IsOffOnceUnregisteredHoweverOften) {
    ASSERT_TRUE(item().registerItem().has_value());
    ASSERT_TRUE(item().unregisterItem().has_value());
    EXPECT_FALSE(item().isEnabled());
    ASSERT_TRUE(item().unregisterItem().has_value());
    EXPECT_FALSE(item().isEnabled());
}

CORVANE_CONTRACT(LoginItemContract);

} // namespace

} // namespace corvane::contract
