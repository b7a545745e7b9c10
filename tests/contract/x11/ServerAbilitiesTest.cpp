#include "platform/x11/connection/ServerAbilities.h"

#include "EnvironmentVariable.h"
#include "servers/VirtualDesktop.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

TEST(ServerAbilitiesTest, AnOrdinaryServerTakesPressesAndIsNotInsideWayland) {
    const auto connection = x11::XcbConnection::open();
    ASSERT_TRUE(connection.has_value());
    EXPECT_TRUE(x11::offersFakeInput(**connection));
    EXPECT_FALSE(x11::isInsideWayland(**connection));
}

TEST(ServerAbilitiesTest, AServerWithoutTheTestExtensionTakesNoPresses) {
    const desktop::VirtualDesktop desktop(
        {.windowManager = desktop::WindowManager::none, .withoutExtensions = {"XTEST"}});
    const EnvironmentVariable display("DISPLAY", desktop.display());
    const auto connection = x11::XcbConnection::open();
    ASSERT_TRUE(connection.has_value());
    EXPECT_FALSE(x11::offersFakeInput(**connection));
}

} // namespace

} // namespace corvane::contract
