#include "WaylandTest.h"
#include "harness/servers/LabwcDesktop.h"

#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// A compositor that gives programs neither hot keys nor the places of windows.
class LabwcTest : public WaylandTest {
  protected:
    LabwcTest() : WaylandTest(std::make_unique<LabwcDesktop>()) {}

    std::string run(const std::string &command, int exitCode) {
        CorvaneProcess program(desktop_, {.arguments = {command}});
        EXPECT_EQ(program.process().waitForEnd(), (ProcessEnd{.exitCode = exitCode}))
            << program.story();
        return program.standardOutput() + program.standardError();
    }
};

TEST_F(LabwcTest, AnAnchoredZoneDoesNotStartUnasked) {
    const auto corvane = start({.clickMode = "zone",
                                .clickRate = 50,
                                .zone = Area{400, 330, 120, 90},
                                .anchor = Settings::Anchor{.application = "Target",
                                                           .title = "Target",
                                                           .relative = Area{100, 80, 120, 90}}});
    constexpr int refused = 1;
    EXPECT_THAT(run("start", refused), HasSubstr("the anchored window is not there"));
    EXPECT_TRUE(staysQuiet());
}

TEST_F(LabwcTest, TheDoctorSaysWhatIsMissing) {
    constexpr int success = 0;
    const std::string report = run("doctor", success);
    EXPECT_THAT(report,
                HasSubstr("[limited] Hot key: This compositor gives programs no hot keys."));
    EXPECT_THAT(report, HasSubstr("corvane toggle"));
    EXPECT_THAT(report, HasSubstr("zones cannot follow windows"));
}

} // namespace

} // namespace corvane::desktop
