#include "ui/ProfilesTab.h"

#include "support/ReadableView.h"
#include "support/ViewUser.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace corvane::testing {

namespace {

class ProfilesTabTest : public ::testing::Test {
  protected:
    ProfilesTab &tab() {
        if (!tab_) {
            tab_ = std::make_shared<ProfilesTab>(profiles, active, platform.alerts(),
                                                 platform.applications());
            tab_->onChange = {[this] { ++changes; }};
            tab_->onLoad = {[this](const Profile &profile) { loaded.push_back(profile); }};
            tab_->onRename = {[this](const Uuid &id, const std::string &name) {
                renamed.emplace_back(id, name);
            }};
            tab_->onDelete = {[this](const Uuid &id) { deleted.push_back(id); }};
            tab_->onSaveCurrent = {[this](const std::string &name) { saved.push_back(name); }};
        }
        return *tab_;
    }

    ViewUser user() { return ViewUser(tab().body()); }
    std::string tree() { return readableText(tab().body()); }

    void rename(AlertResponse answer) {
        platform.alerts().answers = {std::move(answer)};
        user().inside("Slow").chooseMenuItem("More", "Rename...");
    }

    RecordingPlatform platform;
    std::vector<Profile> profiles;
    std::optional<Uuid> active;
    int changes = 0;
    std::vector<Profile> loaded;
    std::vector<std::pair<Uuid, std::string>> renamed;
    std::vector<Uuid> deleted;
    std::vector<std::string> saved;

  private:
    std::shared_ptr<ProfilesTab> tab_;
};

class TwoProfilesTabTest : public ProfilesTabTest {
  protected:
    TwoProfilesTabTest() {
        profiles = {{*Uuid::fromText("11111111-2222-4333-8444-555555555555"),
                     "Slow",
                     {.clickRate = 2, .timeUnit = TimeUnit::minutes}},
                    {*Uuid::fromText("AAAAAAAA-BBBB-4CCC-8DDD-EEEEEEEEEEEE"),
                     "Fast & furious_",
                     {.clickMode = ClickMode::zone,
                      .windowAnchor = WindowAnchor{"org.example.viewer", "Picture", {1, 2, 3, 4}},
                      .clickRate = 10,
                      .maxClicks = 50}}};
        active = profiles[0].id;
        platform.applications().names = {{"org.example.viewer", "Viewer"}};
    }
};

const std::string saveCard =
    R"tree(  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 8
      text "Save current config", headline
      row center 8
        text field "" for "Profile name", says "Profile name"
        button "Save" prominent disabled
)tree";

TEST_F(ProfilesTabTest, ShowsTheEmptyCardAndTheSaveCardWithoutProfiles) {
    EXPECT_EQ(tree(), R"tree(column center 16, padding 20, width 540, is "profiles"
  column center 0, padding 16, full width leading, on quaternary rounded 12
    column center 8, padding 24 0 24 0, full width center
      symbol person.crop.rectangle.stack, system 32, tertiary
      text "No profiles", headline, secondary
      text "Save your current configuration as a profile to quickly switch between setups." center, callout, tertiary
)tree" + saveCard);
}

/// The tab with the two profiles; `slowBadge` and `fastBadge` follow their names.
std::string tabWithTwo(const std::string &slowBadge, const std::string &fastBadge) {
    return R"tree(column center 16, padding 20, width 540, is "profiles"
  column center 0, padding 16, full width leading, on quaternary rounded 12
    column leading 10
      text "Profiles", headline
      row center 12, padding 12, on quaternary rounded 10, says "Slow", is "11111111-2222-4333-8444-555555555555"
        column leading 2, full width leading
          row center 6
            text "Slow" on one line, body medium
)tree" + slowBadge +
           R"tree(          text "Free Cursor · 2/m" on one line, callout, secondary
        button "Load" small
        menu ellipsis.circle "Rename..." | "Delete" destructive, says "More"
      row center 12, padding 12, on quaternary rounded 10, says "Fast & furious_", is "AAAAAAAA-BBBB-4CCC-8DDD-EEEEEEEEEEEE"
        column leading 2, full width leading
          row center 6
            text "Fast & furious_" on one line, body medium
)tree" + fastBadge +
           R"tree(          text "Defined Zone · 10/s · (Viewer)" on one line, callout, secondary
        button "Load" small
        menu ellipsis.circle "Rename..." | "Delete" destructive, says "More"
)tree" + saveCard;
}

const std::string badge =
    "            text \"Active\", caption2 semibold, blue, padding 2 6 2 6, on blue@0.15 capsule\n";

TEST_F(TwoProfilesTabTest, ListsTheProfilesAndMarksTheActiveOne) {
    EXPECT_EQ(tree(), tabWithTwo(badge, ""));
}

TEST_F(TwoProfilesTabTest, MarksTheSecondWhereThatIsActive) {
    active = profiles[1].id;
    EXPECT_EQ(tree(), tabWithTwo("", badge));
}

TEST_F(TwoProfilesTabTest, MarksNoneWhereNoneIsActive) {
    active.reset();
    EXPECT_EQ(tree(), tabWithTwo("", ""));
}

TEST_F(TwoProfilesTabTest, MarksNoneWhereTheActiveOneIsNotInTheList) {
    active = *Uuid::fromText("CCCCCCCC-BBBB-4CCC-8DDD-EEEEEEEEEEEE");
    EXPECT_EQ(tree(), tabWithTwo("", ""));
}

TEST_F(TwoProfilesTabTest, LoadsAProfile) {
    user().inside("Fast & furious_").press("Load");
    EXPECT_EQ(loaded, std::vector{profiles[1]});
}

TEST_F(TwoProfilesTabTest, DeletesAProfileWithoutAsking) {
    user().inside("Slow").chooseMenuItem("More", "Delete");
    EXPECT_EQ(deleted, std::vector{profiles[0].id});
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(TwoProfilesTabTest, AsksForANewName) {
    rename({.button = 0, .fieldText = "Steady"});
    EXPECT_EQ(platform.alerts().shown,
              (std::vector{Alert{.messageText = "Rename Profile",
                                 .informativeText = "Enter a new name:",
                                 .buttons = {"Rename", "Cancel"},
                                 .field = AlertField{.size = {260, 24}, .text = "Slow"}}}));
    EXPECT_EQ(renamed, (std::vector{std::pair(profiles[0].id, std::string("Steady"))}));
}

TEST_F(TwoProfilesTabTest, TakesTheWhiteSpaceOffANewName) {
    rename({.button = 0, .fieldText = " \t Slow and steady\n "});
    EXPECT_EQ(renamed, (std::vector{std::pair(profiles[0].id, std::string("Slow and steady"))}));
}

TEST_F(TwoProfilesTabTest, KeepsTheNameWhenTheNewOneIsBlankOrCancelled) {
    rename({.button = 0, .fieldText = " \n\t "});
    rename({.button = 1, .fieldText = "Steady"});
    EXPECT_EQ(platform.alerts().shown.size(), 2U);
    EXPECT_TRUE(renamed.empty());
}

TEST_F(ProfilesTabTest, SavesUnderATrimmedNameAndClearsTheField) {
    EXPECT_FALSE(user().isButtonEnabled("Save"));
    user().type("Profile name", "   ");
    EXPECT_FALSE(user().isButtonEnabled("Save"));
    user().type("Profile name", " Fishing ");
    EXPECT_TRUE(user().isButtonEnabled("Save"));
    EXPECT_NE(tree().find("text field \" Fishing \""), std::string::npos);
    user().press("Save");
    EXPECT_EQ(saved, std::vector<std::string>{"Fishing"});
    EXPECT_FALSE(user().isButtonEnabled("Save"));
    EXPECT_NE(tree().find("text field \"\""), std::string::npos);
    EXPECT_EQ(changes, 3);
}

TEST_F(TwoProfilesTabTest, AnswersADialogThatOutlivesTheWindow) {
    auto tab =
        std::make_shared<ProfilesTab>(profiles, active, platform.alerts(), platform.applications());
    tab->onRename = {
        [this](const Uuid &id, const std::string &name) { renamed.emplace_back(id, name); }};
    const ViewUser late(tab->body());
    platform.alerts().answers = {{.button = 0, .fieldText = "Steady"}};
    platform.alerts().whileShown = [&](const Alert &) { tab.reset(); };
    late.inside("Slow").chooseMenuItem("More", "Rename...");
    EXPECT_EQ(renamed.size(), 1U);
    late.inside("Slow").chooseMenuItem("More", "Rename...");
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
}

} // namespace

} // namespace corvane::testing
