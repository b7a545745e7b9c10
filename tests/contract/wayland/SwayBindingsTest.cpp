#include "platform/wayland/sway/Bindings.h"

#include <gtest/gtest.h>

namespace corvane::wayland::sway {

namespace {

constexpr const char *keys = "Mod4+Shift+y";

TEST(SwayBindingsTest, FindsABindingInAnyOrderCaseAndName) {
    EXPECT_TRUE(bindsKeys("bindsym Mod4+Shift+y exec foot\n", keys));
    EXPECT_TRUE(bindsKeys("bindsym shift+MOD4+Y exec foot\n", keys));
    EXPECT_TRUE(bindsKeys("  bindsym --locked --no-repeat Shift+Super+y kill\n", keys));
}

TEST(SwayBindingsTest, FollowsVariables) {
    EXPECT_TRUE(bindsKeys("set $mod Mod4\nbindsym $mod+Shift+y exec foot\n", keys));
    EXPECT_TRUE(
        bindsKeys("set $m Mod1\nset $mod Mod4\nset $all $mod+Shift\nbindsym $all+y kill", keys));
    EXPECT_FALSE(bindsKeys("set $mod Mod1\nbindsym $mod+Shift+y exec foot\n", keys));
}

TEST(SwayBindingsTest, LeavesOtherKeysAndLinesAlone) {
    EXPECT_FALSE(bindsKeys("", keys));
    EXPECT_FALSE(bindsKeys("bindsym", keys));
    EXPECT_FALSE(bindsKeys("# bindsym Mod4+Shift+y kill\nbindsym Mod4+y kill\n", keys));
    EXPECT_FALSE(bindsKeys("set\nset $\nbindsym --locked\n", keys));
    EXPECT_FALSE(bindsKeys("bindsym Mod4+Shift+Control+y kill\n", keys));
}

} // namespace

} // namespace corvane::wayland::sway
