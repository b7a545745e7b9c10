#include "ui/AboutTab.h"

#include "support/ReadableView.h"
#include "support/ViewUser.h"
#include "support/recorder/RecordingPlatform.h"
#include "ui/Product.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace corvane::testing {

namespace {

class AboutTabTest : public ::testing::Test {
  protected:
    std::string tree() {
        return readableText(
            std::make_shared<AboutTab>(platform.application(), platform.workspace())->body());
    }

    RecordingPlatform platform;
};

std::string page(const std::string &icon, const std::string &version) {
    return R"(column center 0, padding 24 0 24 0, is "about"
  column center 16, width 540, min height 300
)" + icon +
           R"(    text "Corvane", title bold
    text "Version )" +
           version + R"(", callout, secondary
    text "A simple auto-clicker for macOS.", secondary
    link )" +
           product::webPage +
           R"(
      row center 8
        symbol globe, callout
        text ")" +
           product::hostName + R"(", callout
    plain link )" +
           product::donationPage + R"(
      row center 8, padding 8 16 8 16, on quaternary rounded 8
        symbol heart.fill, callout, pink
        text "Support this app", callout
    plain link )" +
           product::makerPage + R"(
      text ")" +
           product::credit + "\"\n";
}

const std::string icon = "    image /icons/corvane.png 96×96 rounded 22\n";

TEST_F(AboutTabTest, SaysWhatThisProgramIs) { EXPECT_EQ(tree(), page(icon, "2.1 (37)")); }

TEST_F(AboutTabTest, ShowsTheFirstVersionWhereTheProgramCarriesNone) {
    platform.application().version.reset();
    platform.application().build.reset();
    EXPECT_EQ(tree(), page(icon, "1.0 (1)"));
}

TEST_F(AboutTabTest, LeavesOutAMissingIcon) {
    platform.application().icon.reset();
    EXPECT_EQ(tree(), page("", "2.1 (37)"));
}

TEST_F(AboutTabTest, OpensTheLinks) {
    const auto tab = std::make_shared<AboutTab>(platform.application(), platform.workspace());
    const ViewUser user(tab->body());
    user.followLink(product::makerPage);
    user.followLink(product::webPage);
    user.followLink(product::donationPage);
    EXPECT_EQ(
        platform.workspace().opened,
        (std::vector<std::string>{product::makerPage, product::webPage, product::donationPage}));
}

} // namespace

} // namespace corvane::testing
