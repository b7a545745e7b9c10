#include "DesktopTest.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

class DoctorOnDesktopTest : public DesktopTest {
  protected:
    struct Report {
        std::optional<int> exitCode;
        std::string text;
    };

    Report examine(const VirtualDesktop &desktop, CorvaneProcess::Options options = {}) {
        options.arguments = {"doctor"};
        CorvaneProcess doctor(desktop, std::move(options));
        const auto end = doctor.process().waitForEnd();
        EXPECT_TRUE(end.has_value()) << doctor.story();
        EXPECT_EQ(doctor.standardError(), "");
        return {end.value_or(ProcessEnd{}).exitCode, doctor.standardOutput()};
    }
};

TEST_F(DoctorOnDesktopTest, WorksWithoutCorvane) {
    const Report report = examine(desktop_);
    EXPECT_EQ(report.exitCode, 0) << report.text;
    EXPECT_THAT(report.text, HasSubstr("[ok]      Corvane: It is not running.\n"));
    EXPECT_THAT(report.text, HasSubstr("the X server " + desktop_.display()));
    EXPECT_THAT(report.text, HasSubstr("[ok]      Hot key: It is free for Corvane.\n"));
    EXPECT_THAT(report.text, HasSubstr("[ok]      Windows: Openbox"));
    EXPECT_FALSE(std::filesystem::exists(settingsFile(desktop_)));
}

TEST_F(DoctorOnDesktopTest, WorksBesideCorvane) {
    const auto corvane = start({});
    EXPECT_THAT(examine(desktop_).text,
                HasSubstr("[ok]      Hot key: It belongs to the running Corvane.\n"));
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker started")) << corvane->story();
    EXPECT_THAT(examine(desktop_).text, HasSubstr("It is running, and clicking."));
}

TEST_F(DoctorOnDesktopTest, SeesThePanelOnTheBus) {
    const StatusPanel panel(desktop_);
    EXPECT_TRUE(waitUntil([this] {
        return examine(desktop_).text.find("[ok]      Menu: A panel shows Corvane's symbol.") !=
               std::string::npos;
    }));
}

TEST_F(DoctorOnDesktopTest, SaysWhatIsMissing) {
    const VirtualDesktop desktop(
        {.windowManager = WindowManager::none, .withoutExtensions = {"XTEST"}});
    const Report report = examine(desktop);
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.text, HasSubstr("[missing] Clicks: "));
    EXPECT_THAT(report.text, HasSubstr("[limited] Windows: No window manager"));
}

TEST_F(DoctorOnDesktopTest, DoesNotNeedADisplay) {
    const Report report = examine(desktop_, {.withoutVariables = {"DISPLAY"}});
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.text, HasSubstr("[missing] Display: There is none"));
}

TEST_F(DoctorOnDesktopTest, IsHonestAboutWayland) {
    const Report inside = examine(desktop_, {.environment = {{"WAYLAND_DISPLAY", "wayland-0"}}});
    EXPECT_THAT(inside.text, HasSubstr("[limited] Display: "));
    EXPECT_THAT(inside.text, HasSubstr("none of those in the Wayland session around it"));
    const Report without = examine(desktop_, {.environment = {{"XDG_SESSION_TYPE", "wayland"}},
                                              .withoutVariables = {"DISPLAY"}});
    EXPECT_EQ(without.exitCode, 1);
    EXPECT_THAT(without.text, HasSubstr("a Wayland session without an X server"));
}

TEST_F(DoctorOnDesktopTest, NamesAFileThatCannotBeWritten) {
    CorvaneProcess::Options options;
    options.mounts.makeReadOnly(desktop_.home());
    const Report report = examine(desktop_, std::move(options));
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.text, HasSubstr("[missing] Files: " + settingsFile(desktop_).string() +
                                       " cannot be written.\n"));
}

} // namespace

} // namespace corvane::desktop
