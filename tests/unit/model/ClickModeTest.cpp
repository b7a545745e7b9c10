#include "model/ClickMode.h"

#include "support/Localised.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(ClickModeTest, HasTwoCasesInOrder) {
    EXPECT_EQ(allClickModes, (std::array{ClickMode::cursor, ClickMode::zone}));
}

TEST(ClickModeTest, ReadsBackItsStoredValue) {
    EXPECT_EQ(storedValue(ClickMode::cursor), "cursor");
    EXPECT_EQ(storedValue(ClickMode::zone), "zone");
    for (const ClickMode mode : allClickModes) {
        EXPECT_EQ(clickModeFromStoredValue(storedValue(mode)), mode);
    }
}

TEST(ClickModeTest, KnowsNoOtherText) {
    for (const std::string_view text : {"", "left", "Cursor", "zone ", "Free Cursor"}) {
        EXPECT_EQ(clickModeFromStoredValue(text), std::nullopt) << text;
    }
}

TEST(ClickModeTest, ShowsANameThatIsLookedUpByTheEnglishText) {
    EXPECT_EQ(displayName(ClickMode::cursor), "Free Cursor");
    EXPECT_EQ(displayName(ClickMode::zone), "Defined Zone");
    useTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    EXPECT_EQ(displayName(ClickMode::cursor), "<Free Cursor>");
    EXPECT_EQ(displayName(ClickMode::zone), "<Defined Zone>");
    useTextLookup({});
}

} // namespace
} // namespace corvane
