#include "DesktopTest.h"
#include "harness/actors/AnotherUser.h"
#include "platform/posix/UnixSocket.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

/// Another user of the machine, who would like to click on this one's desktop.
class OtherUserTest : public DesktopTest, public testing::WithParamInterface<uid_t> {
  protected:
    OtherUserTest() { keepWindowManagerOut(); }
};

TEST_P(OtherUserTest, GetsNoCommandsByHavingMadeTheirFolder) {
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
