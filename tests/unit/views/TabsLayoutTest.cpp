#include "FakeNativeView.h"
#include "platform/macos/logic/WindowFitting.h"
#include "support/Localised.h"
#include "support/StringTable.h"
#include "support/recorder/RecordingPlatform.h"
#include "ui/AboutTab.h"
#include "ui/GeneralTab.h"
#include "ui/ProfilesTab.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace corvane::testing {

namespace {

using views::LayoutDirection;
using Area = FakeToolkit::Area;

StringTable translations(const std::string &language) {
    const auto file = std::filesystem::path(CORVANE_SOURCES) / "resources" / "translations" /
                      (language + ".lproj") / "Localizable.strings";
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return parsedStringTable(text).value_or(StringTable());
}

/// Every tab of the settings window in each language, in a narrow, an ordinary and a wide font.
class TabsLayoutTest : public ::testing::TestWithParam<std::tuple<const char *, double>> {
  protected:
    void SetUp() override {
        platform.application().icon = "/icons/corvane.icns";
        useTextLookup([table = translations(std::get<0>(GetParam()))](std::string_view english) {
            const auto found = table.find(std::string(english));
            return found == table.end() ? std::string(english) : found->second;
        });
    }
    ~TabsLayoutTest() override { useTextLookup({}); }

    std::shared_ptr<GeneralTab> generalTab(const CorvaneConfig &config) {
        return std::make_shared<GeneralTab>(config, platform.loginItem(), platform.alerts(),
                                            platform.applications(), resolver_);
    }

    std::shared_ptr<ProfilesTab> profilesTab(std::size_t count) {
        std::vector<Profile> profiles;
        for (std::size_t index = 0; index < count; ++index) {
            profiles.push_back({.id = Uuid::random(),
                                .name = index % 3 == 0 ? std::string(120, 'W') : "Work",
                                .config = {.clickMode = ClickMode::zone}});
        }
        const auto active = profiles.empty() ? std::nullopt : std::optional(profiles.front().id);
        return std::make_shared<ProfilesTab>(profiles, active, platform.alerts(),
                                             platform.applications());
    }

    std::shared_ptr<AboutTab> aboutTab() {
        return std::make_shared<AboutTab>(platform.application(), platform.workspace());
    }

    /// Lays the tab out; the height it needs.
    double layOut(const View &tab, LayoutDirection direction = LayoutDirection::leftToRight) {
        node_ = std::make_unique<views::ViewNode>(tab, make_);
        return node_->layOut(settingsWindowWidth, direction);
    }

    Area &root() { return dynamic_cast<Area &>(node_->native()); }

    /// Nothing is cut off, nothing overlaps, everything can be reached by scrolling.
    void expectSound(const View &tab) {
        for (const auto direction : {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
            const double height = layOut(tab, direction);
            EXPECT_EQ(root().area, (Rectangle{0, 0, settingsWindowWidth, height}));
            expectSound(root());
        }
    }

    void expectSound(const Area &area) {
        const std::string name = FakeToolkit::nameOf(area.view);
        for (std::size_t index = 0; index < area.children.size(); ++index) {
            const Rectangle &child = area.children[index]->area;
            EXPECT_GE(child.x, 0) << name;
            EXPECT_GE(child.y, 0) << name;
            EXPECT_LE(child.maxX(), area.area.width) << name;
            EXPECT_LE(child.maxY(), area.area.height) << name;
            for (std::size_t other = 0; other < index; ++other) {
                EXPECT_FALSE(overlap(child, area.children[other]->area)) << name;
            }
            expectSound(*area.children[index]);
        }
        if (area.children.empty()) {
            expectWhole(area);
        }
    }

    void expectWhole(const Area &area) {
        const std::string name = FakeToolkit::nameOf(area.view);
        const Rectangle &content = area.content;
        EXPECT_GE(content.x, 0) << name;
        EXPECT_LE(content.maxX(), area.area.width) << name;
        if (const auto *text = std::get_if<Text>(&area.view.content)) {
            if (!text->isSingleLine) {
                EXPECT_GE(content.width, longestPart(text->text, font_)) << name;
                EXPECT_GE(content.height, wrappedHeight(text->text, content.width, font_)) << name;
            }
            EXPECT_GT(content.width, 0) << name;
        } else {
            const Size natural = const_cast<Area &>(area).measure(settingsWindowWidth);
            EXPECT_GE(content.width, natural.width) << name;
            EXPECT_GE(content.height, natural.height) << name;
            EXPECT_GT(content.width, 0) << name;
        }
    }

    static bool overlap(const Rectangle &one, const Rectangle &other) {
        return one.x < other.maxX() && other.x < one.maxX() && one.y < other.maxY() &&
               other.y < one.maxY();
    }

    RecordingPlatform platform;
    WindowResolver resolver_{platform.windowList(), platform.applications(),
                             platform.accessibility()};
    const FakeFont font_{.letterWidth = std::get<1>(GetParam()), .lineHeight = 16};
    FakeToolkit toolkit_{font_};
    const views::MakeNativeView make_ = toolkit_.make();
    std::unique_ptr<views::ViewNode> node_;
};

TEST_P(TabsLayoutTest, TheGeneralTabShowsEverythingInEachOfItsStates) {
    CorvaneConfig config;
    expectSound(generalTab(config)->body());
    config.clickMode = ClickMode::zone;
    config.maxClicks = 999'999;
    config.timeUnit = TimeUnit::minutes;
    expectSound(generalTab(config)->body());
    config.zoneRect = CodableRect{-12'345, 12'345, 12'345, 12'345};
    config.windowAnchor =
        WindowAnchor{"org.example.a-very-long-identifier", std::string(200, 'W'), {0, 0, 9, 9}};
    expectSound(generalTab(config)->body());
}

TEST_P(TabsLayoutTest, TheProfilesTabShowsEverythingHoweverManyThereAre) {
    for (const std::size_t count : {0U, 1U, 2U, 9U, 500U}) {
        expectSound(profilesTab(count)->body());
    }
}

TEST_P(TabsLayoutTest, TheAboutTabShowsEverything) {
    expectSound(aboutTab()->body());
    EXPECT_GE(node_->layOut(settingsWindowWidth, LayoutDirection::leftToRight), 300);
}

TEST_P(TabsLayoutTest, AWindowWithManyProfilesScrollsInsteadOfLeavingTheScreen) {
    constexpr Rectangle screen{0, 60, 1440, 815};
    const double few = layOut(profilesTab(2)->body());
    EXPECT_EQ(macos::fittedFrame({450, 500, 540, 300}, few, screen).height, few);
    const double many = layOut(profilesTab(500)->body());
    EXPECT_GT(many, 500 * 40);
    EXPECT_EQ(macos::fittedFrame({450, 500, 540, 300}, many, screen).height, screen.height);
}

TEST_P(TabsLayoutTest, ALetterTypedBesideManyProfilesTouchesTheFieldAndItsButtonAlone) {
    const auto tab = profilesTab(500);
    layOut(tab->body());
    toolkit_.takeLog();
    const auto &saveCard = *root().children.back()->children.front();
    const auto &field =
        std::get<TextField>(saveCard.children.back()->children.front()->view.content);
    field.changed("W");
    node_->update(tab->body());
    node_->layOut(settingsWindowWidth, LayoutDirection::leftToRight);
    const auto log = toolkit_.takeLog();
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log.front(), "show field W");
    EXPECT_EQ(log.back(), "show " + localised("Save"));
}

INSTANTIATE_TEST_SUITE_P(LanguagesAndFonts, TabsLayoutTest,
                         ::testing::Combine(::testing::Values("en", "de", "es", "fr", "ja",
                                                              "zh-Hans"),
                                            ::testing::Values(5.0, 6.5, 8.0)),
                         [](const auto &test) {
                             std::string name = std::get<0>(test.param);
                             std::erase(name, '-');
                             const double width = std::get<1>(test.param);
                             return name + (width < 6 ? "Narrow" : width > 7 ? "Wide" : "Ordinary");
                         });

} // namespace

} // namespace corvane::testing
