#include "platform/wayland/sway/Windows.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace corvane::wayland::sway {

namespace {

using nlohmann::json;

json windowNode(const std::string &name, int x) {
    return {{"name", name},
            {"pid", 12},
            {"app_id", "org.example.Editor"},
            {"visible", true},
            {"rect", {{"x", x}, {"y", 20}, {"width", 300}, {"height", 200}}}};
}

TEST(SwayWindowsTest, ReadsASwayTree) {
    const auto windows = windowsOf({{"nodes", json::array({windowNode("Text", 10)})}});
    ASSERT_TRUE(windows.has_value());
    EXPECT_EQ(*windows, (std::vector{Window{.title = "Text",
                                            .instanceName = "org.example.Editor",
                                            .className = "org.example.Editor",
                                            .processIdentifier = 12,
                                            .frame = {10, 20, 300, 200},
                                            .isOnScreen = true}}));
}

TEST(SwayWindowsTest, AnXClientIsKnownByItsClass) {
    json node = windowNode("Text", 10);
    node["app_id"] = nullptr;
    node["window_properties"] = {{"class", "Editor"}, {"instance", "editor"}};
    node["visible"] = false;
    const auto windows = windowsOf({{"nodes", json::array({node})}});
    ASSERT_EQ(windows->size(), 1U);
    EXPECT_EQ(windows->front().className, "Editor");
    EXPECT_EQ(windows->front().instanceName, "editor");
    EXPECT_FALSE(windows->front().isOnScreen);
}

TEST(SwayWindowsTest, FullscreenWindowsLieAboveFloatingOnesAndThoseAboveTiledOnes) {
    json fullscreen = windowNode("fullscreen", 0);
    fullscreen["fullscreen_mode"] = 1;
    const auto windows = windowsOf(
        {{"nodes", json::array({fullscreen, windowNode("tiled", 1)})},
         {"floating_nodes", json::array({windowNode("lower", 2), windowNode("upper", 3)})}});
    ASSERT_EQ(windows->size(), 4U);
    std::vector<std::string> titles;
    for (const Window &window : *windows) {
        titles.push_back(window.title);
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"fullscreen", "upper", "lower", "tiled"}));
}

TEST(SwayWindowsTest, TakesNothingFromWhatIsNoTree) {
    EXPECT_EQ(windowsOf(json()), std::nullopt);
    EXPECT_EQ(windowsOf(json::array({1})), std::nullopt);
    EXPECT_EQ(windowsOf(json::parse("{", nullptr, false)), std::nullopt);
    const auto windows = windowsOf(
        {{"nodes", json::array({1, "x", json{{"pid", "12"}}, json{{"pid", 3}, {"rect", 4}}})},
         {"floating_nodes", true}});
    ASSERT_TRUE(windows.has_value());
    EXPECT_EQ(*windows, (std::vector{Window{.processIdentifier = 3}}));
}

} // namespace

} // namespace corvane::wayland::sway
