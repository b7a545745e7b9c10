#include "platform/linux/ServerAbilities.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

TEST(ServerAbilitiesTest, AnOrdinaryServerTakesPressesAndIsNotInsideWayland) {
    const auto connection = x11::XcbConnection::open();
    ASSERT_TRUE(connection.has_value());
    EXPECT_TRUE(x11::offersFakeInput(**connection));
    EXPECT_FALSE(x11::isInsideWayland(**connection));
}

} // namespace

} // namespace corvane::contract
