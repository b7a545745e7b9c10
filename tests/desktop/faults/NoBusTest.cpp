#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/servers/SessionManager.h"

#include <gmock/gmock.h>

#include <csignal>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// A desktop without a message bus.
struct BuslessDesktop {
    const char *name;
    Environment environment;
    /// Taken away from the environment.
    std::vector<std::string> withoutVariables;

    friend std::ostream &operator<<(std::ostream &stream, const BuslessDesktop &desktop) {
        return stream << desktop.name;
    }
};

class NoBusTest : public DesktopTest, public testing::WithParamInterface<BuslessDesktop> {
  protected:
    NoBusTest() {
        keepWindowManagerOut();
        writeFile(launcher_, "#!/bin/sh\necho \"$@\" >> " + launches_.string() + "\n");
        std::filesystem::permissions(launcher_, std::filesystem::perms::owner_all);
    }

    void TearDown() override {
        EXPECT_FALSE(std::filesystem::exists(launches_)) << "dbus-launch " << readFile(launches_);
    }

    CorvaneProcess::Options options(const std::vector<std::string> &arguments = {}) {
        CorvaneProcess::Options options{.arguments = arguments,
                                        .environment = GetParam().environment,
                                        .withoutVariables = GetParam().withoutVariables};
        options.environment["SESSION_MANAGER"] = session_.address();
        options.mounts.replace("/usr/bin/dbus-launch", launcher_);
        return options;
    }

    std::string command(const std::vector<std::string> &words) {
        CorvaneProcess call(desktop_, options(words));
        EXPECT_EQ(call.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << call.story();
        return call.standardOutput();
    }

    /// Takes the place of dbus-launch and notes that it was executed.
    const std::filesystem::path launcher_ = desktop_.folder() / "dbus-launch";
    const std::filesystem::path launches_ = desktop_.folder() / "launches";
    SessionManager session_{desktop_};
};

TEST_P(NoBusTest, TheHotKeyStartsAndStopsAndASignalEnds) {
    const auto corvane = start({.clickRate = 50}, options());
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    corvane->process().signal(SIGTERM);
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_FALSE(pointer_.isLeftButtonDown());
}

TEST_P(NoBusTest, CommandsReachIt) {
    writeFile(profilesFile(desktop_), R"({"profiles": [
        {"id": "6F9619FF-8B86-D011-B42D-00CF4FC964FF", "name": "Slow",
         "clickMode": "cursor", "clickRate": 9, "timeUnit": "m", "maxClicks": 3}]})");
    const auto corvane = start({.clickRate = 50}, options());
    EXPECT_EQ(command({"start"}), "Clicking started.\n");
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_THAT(command({"status"}), StartsWith("Clicking, "));
    EXPECT_THAT(command({"stop"}), StartsWith("Clicking stopped after "));
    EXPECT_TRUE(staysQuiet());
    command({"profile", "load", "Slow"});
    EXPECT_EQ(command({"quit"}), "Corvane ends.\n");
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"clickRate\" : 9"));
}

TEST_P(NoBusTest, TheDoctorReports) {
    CorvaneProcess doctor(desktop_, options({"doctor"}));
    EXPECT_TRUE(doctor.process().waitForEnd().has_value()) << doctor.story();
    EXPECT_THAT(doctor.standardOutput(), HasSubstr("  Menu: "));
}

TEST_P(NoBusTest, ALogoutEndsTheRun) {
    const auto corvane = start({.clickRate = 100}, options());
    ASSERT_TRUE(session_.waitForSaves(1)) << corvane->story();
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_TRUE(session_.logOut());
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane->story();
    expectRunEnded(*corvane);
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, NoBusTest,
    testing::Values(
        BuslessDesktop{.name = "noAddress",
                       .environment = {},
                       .withoutVariables = {"DBUS_SESSION_BUS_ADDRESS"}},
        BuslessDesktop{.name = "noAddressNorRuntimeFolder",
                       .environment = {},
                       .withoutVariables = {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}},
        BuslessDesktop{.name = "addressOfNobody",
                       .environment = {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus"}},
                       .withoutVariables = {}}),
    [](const auto &each) { return std::string(each.param.name); });

} // namespace

} // namespace corvane::desktop
