#include "platform/wayland/kwin/Windows.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace corvane::wayland::kwin {

namespace {

constexpr const char *editor = R"({"title": "Text — Editor", "instance": "org.example.Editor",
    "class": "editor", "pid": 12, "x": -5.5, "y": 20, "width": 300, "height": 200,
    "isOnScreen": true})";

TEST(KWinWindowsTest, ReadsWhatTheScriptReports) {
    const auto windows = windowsOf("[" + std::string(editor) + "]");
    EXPECT_EQ(windows, (std::vector{Window{.title = "Text — Editor",
                                           .instanceName = "org.example.Editor",
                                           .className = "editor",
                                           .processIdentifier = 12,
                                           .frame = {-5.5, 20, 300, 200},
                                           .isOnScreen = true}}));
}

TEST(KWinWindowsTest, KeepsTheOrder) {
    const auto windows = windowsOf(R"([{"title": "front"}, {"title": "rear"}])");
    ASSERT_TRUE(windows.has_value());
    ASSERT_EQ(windows->size(), 2U);
    EXPECT_EQ(windows->front().title, "front");
}

TEST(KWinWindowsTest, TakesNothingFromWhatIsNoList) {
    EXPECT_EQ(windowsOf(""), std::nullopt);
    EXPECT_EQ(windowsOf("[{]"), std::nullopt);
    EXPECT_EQ(windowsOf(editor), std::nullopt);
}

TEST(KWinWindowsTest, AValueOfAnotherTypeCountsAsMissing) {
    const auto windows = windowsOf(R"([4, {"title": 5, "pid": "12", "x": null, "isOnScreen": 1}])");
    EXPECT_EQ(windows, (std::vector<Window>(2)));
}

} // namespace

} // namespace corvane::wayland::kwin
