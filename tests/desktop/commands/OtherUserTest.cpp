#include "DesktopTest.h"
#include "harness/AnotherUser.h"
#include "platform/posix/UnixSocket.h"

#include <gmock/gmock.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// Another user of the machine, who would like to click on this one's desktop.
class OtherUserTest : public DesktopTest, public testing::WithParamInterface<uid_t> {
  protected:
    OtherUserTest() { keepWindowManagerOut(); }

    /// Nothing but the bus itself keeps others out.
    void openFoldersToAll() const {
        for (const auto &folder : {desktop_.folder(), desktop_.folder() / "bus"}) {
            std::filesystem::permissions(folder, std::filesystem::perms::all);
        }
    }

    /// How dbus-send begins a call of that user.
    std::vector<std::string> busCallOf(const std::string &user) const {
        return {"setpriv",
                "--reuid=" + user,
                "--regid=" + user,
                "--clear-groups",
                "dbus-send",
                "--bus=" + desktop_.environment().at("DBUS_SESSION_BUS_ADDRESS"),
                "--print-reply",
                "--dest=org.freedesktop.DBus",
                "/",
                "org.freedesktop.DBus.ListNames"};
    }
};

TEST_P(OtherUserTest, isNotAdmittedToTheSessionBus) {
    const auto corvane = start({});
    openFoldersToAll();
    EXPECT_TRUE(waitUntil([this] {
        return desktop_.run(busCallOf(std::to_string(geteuid()))).find(".Corvane") !=
               std::string::npos;
    })) << corvane->story();
    const auto call = desktop_.start(busCallOf(std::to_string(GetParam())));
    EXPECT_EQ(call->waitForEnd(), (ProcessEnd{.exitCode = 1}));
    EXPECT_THAT(call->standardError(), HasSubstr("Failed to register on connection"));
}

TEST_P(OtherUserTest, getsNoCommandsByHavingMadeTheirFolder) {
    const std::filesystem::path place = "/tmp/corvane-" + std::to_string(geteuid());
    mkdir(place.c_str(), 0700);
    const std::filesystem::path trap = desktop_.folder() / "trap";
    std::filesystem::create_directory(trap);
    ASSERT_EQ(chown(trap.c_str(), GetParam(), GetParam()), 0);
    std::filesystem::permissions(trap, std::filesystem::perms::owner_all);
    auto socket = posix::listenAt(trap / ("display_" + desktop_.display().substr(1) + ".socket"));
    ASSERT_TRUE(socket);

    const auto options = [&](const std::vector<std::string> &arguments) {
        CorvaneProcess::Options result{
            .arguments = arguments,
            .withoutVariables = {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}};
        result.mounts.replace(place, trap);
        return result;
    };
    const auto corvane = start({.clickRate = 50}, options({}));
    EXPECT_TRUE(corvane->waitForLog("Cannot take commands at " + place.string() +
                                    " is open to other users"))
        << corvane->story();
    CorvaneProcess call(desktop_, options({"start"}));
    EXPECT_EQ(call.process().waitForEnd(), (ProcessEnd{.exitCode = 3})) << call.story();
    EXPECT_EQ(accept(socket->get(), nullptr, nullptr), -1);
    EXPECT_EQ(clickCount(), 0);
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
}

// Who is not root cannot act as anybody else.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(OtherUserTest);
INSTANTIATE_TEST_SUITE_P(Users, OtherUserTest, testing::ValuesIn(otherUsers()));

} // namespace

} // namespace corvane::desktop
