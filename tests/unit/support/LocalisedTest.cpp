#include "support/Localised.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

class LocalisedTest : public ::testing::Test {
  protected:
    ~LocalisedTest() override { useTextLookup({}); }
};

TEST_F(LocalisedTest, WithoutALookupTheEnglishTextIsShown) {
    EXPECT_EQ(localised("Idle"), "Idle");
    EXPECT_EQ(localised(""), "");
}

TEST_F(LocalisedTest, TheLookupGivesTheText) {
    useTextLookup([](std::string_view english) {
        return std::string(english == "Idle" ? "Bereit" : english);
    });
    EXPECT_EQ(localised("Idle"), "Bereit");
    EXPECT_EQ(localised("Running"), "Running");
    useTextLookup({});
    EXPECT_EQ(localised("Idle"), "Idle");
}

TEST_F(LocalisedTest, ValuesTakeThePlacesInOrder) {
    EXPECT_EQ(localisedFormat("Anchor to \"%@\" (%@)?", {"Editor", "Notes"}),
              "Anchor to \"Editor\" (Notes)?");
    EXPECT_EQ(localisedFormat("%@", {"all"}), "all");
    EXPECT_EQ(localisedFormat("none", {}), "none");
}

TEST_F(LocalisedTest, AValueIsNeverTakenForAFormat) {
    EXPECT_EQ(localisedFormat("%@ and %@", {"%@", "100 %s %d"}), "%@ and 100 %s %d");
}

TEST_F(LocalisedTest, TooFewOrTooManyValuesDoNoHarm) {
    EXPECT_EQ(localisedFormat("%@ and %@", {"one"}), "one and %@");
    EXPECT_EQ(localisedFormat("%@", {"one", "two"}), "one");
}

TEST_F(LocalisedTest, TheFormatIsTranslatedAndTheValuesAreNot) {
    useTextLookup([](std::string_view english) {
        return std::string(english == "Delete \"%@\"?" ? "„%@“ löschen?" : "?");
    });
    EXPECT_EQ(localisedFormat("Delete \"%@\"?", {"Idle"}), "„Idle“ löschen?");
}

} // namespace
} // namespace corvane
