#include "support/LocalisedTexts.h"
#include "support/StringTable.h"
#include "ui/Product.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace corvane {
namespace {

namespace fs = std::filesystem;

const fs::path sources = CORVANE_SOURCES;

std::string contentsOf(const fs::path &file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Every text that the program looks up.
const std::set<std::string> &lookedUpTexts() {
    static const std::set<std::string> texts = [] {
        std::set<std::string> found = {product::credit};
        for (const auto &file : fs::recursive_directory_iterator(sources / "src")) {
            if (file.path().extension() == ".cpp") {
                for (const auto &text : testing::localisedTexts(contentsOf(file.path()))) {
                    found.insert(text);
                }
            }
        }
        return found;
    }();
    return texts;
}

std::string blanksAround(const std::string &text) {
    const std::size_t first = text.find_first_not_of(' ');
    const std::size_t last = text.find_last_not_of(' ');
    return first == std::string::npos ? text : text.substr(0, first) + "|" + text.substr(last + 1);
}

/// The values a text has places for; any other per cent sign stays visible in it.
std::size_t placesIn(const std::string &text) {
    std::size_t places = 0;
    for (std::size_t at = text.find("%@"); at != std::string::npos; at = text.find("%@", at + 2)) {
        ++places;
    }
    return places;
}

class TranslationsTest : public ::testing::TestWithParam<const char *> {
  protected:
    StringTable table() const {
        const fs::path file = sources / "resources" / "translations" /
                              (std::string(GetParam()) + ".lproj") / "Localizable.strings";
        auto parsed = parsedStringTable(contentsOf(file));
        EXPECT_TRUE(parsed) << file << " is no table";
        return parsed.value_or(StringTable());
    }
};

TEST_P(TranslationsTest, EveryTextHasATranslation) {
    const StringTable translations = table();
    ASSERT_GT(lookedUpTexts().size(), 60U);
    for (const std::string &text : lookedUpTexts()) {
        EXPECT_TRUE(translations.contains(text)) << "no translation of \"" << text << '"';
    }
}

TEST_P(TranslationsTest, EveryTranslationHasAText) {
    for (const auto &[text, translation] : table()) {
        EXPECT_TRUE(lookedUpTexts().contains(text)) << "nothing looks up \"" << text << '"';
        EXPECT_NE(translation, "") << text;
    }
}

TEST_P(TranslationsTest, EveryValueHasItsPlace) {
    for (const auto &[text, translation] : table()) {
        EXPECT_EQ(placesIn(translation), placesIn(text)) << text;
        EXPECT_EQ(std::ranges::count(translation, '%'), std::ranges::count(text, '%')) << text;
    }
}

TEST_P(TranslationsTest, TextsThatAreJoinedKeepTheirBlanks) {
    for (const auto &[text, translation] : table()) {
        if (text.ends_with(' ')) {
            // Chinese and Japanese punctuation brings its own space.
            EXPECT_TRUE(translation.ends_with(' ') || translation.ends_with("：")) << text;
        } else {
            EXPECT_EQ(blanksAround(translation), "|") << text;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationsTest,
                         ::testing::Values("de", "es", "fr", "ja", "zh-Hans"),
                         [](const auto &language) {
                             std::string name = language.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST(TranslationTablesTest, NoLanguageEscapesTheTests) {
    std::set<std::string> languages;
    for (const auto &folder : fs::directory_iterator(sources / "resources" / "translations")) {
        // A Mac's Finder leaves files of its own.
        if (folder.is_directory()) {
            languages.insert(folder.path().filename());
        }
    }
    EXPECT_THAT(languages, ::testing::ElementsAre("de.lproj", "en.lproj", "es.lproj", "fr.lproj",
                                                  "ja.lproj", "zh-Hans.lproj"));
}

TEST(LocalisedTextsTest, LiteralsInLookupsAreFound) {
    EXPECT_THAT(testing::localisedTexts(R"(a = localised("One"); b = localisedFormat(
                    "Two \"%@\" "
                    "three", {x});)"),
                ::testing::ElementsAre("One", "Two \"%@\" three"));
    EXPECT_THAT(testing::localisedTexts(R"(other("One"); localised(product::credit);
                    std::string localised(std::string_view english) {})"),
                ::testing::IsEmpty());
}

TEST(LocalisedTextsTest, ALookupOfAnythingElseIsReported) {
    EXPECT_THAT(testing::localisedTexts(R"(localised(isOne ? "One" : "Two"))"),
                ::testing::ElementsAre("localised(isOne ? \"One\" : \"Two\")"));
}

} // namespace
} // namespace corvane
