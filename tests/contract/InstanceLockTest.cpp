#include "platform/posix/InstanceLock.h"

#include "TemporaryFolder.h"
#include "platform/posix/PrivateFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

using posix::InstanceLock;

class InstanceLockTest : public testing::Test {
  protected:
    bool isFree() const {
        const auto lock = InstanceLock::claim(file_);
        return lock && *lock;
    }

    desktop::TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_.path() / "Corvane" / "instance.lock";
};

TEST_F(InstanceLockTest, IsHadByOneAtATime) {
    {
        const auto lock = InstanceLock::claim(file_);
        ASSERT_TRUE(lock);
        ASSERT_TRUE(*lock);
        EXPECT_FALSE(isFree());
        EXPECT_TRUE(posix::isPrivateFolder(file_.parent_path()));
    }
    EXPECT_TRUE(isFree());
}

TEST_F(InstanceLockTest, IsFreeAgainHoweverItsOwnerEnds) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t owner = fork();
    if (owner == 0) {
        const auto lock = InstanceLock::claim(file_);
        const char hasLock = lock && *lock ? 1 : 0;
        [[maybe_unused]] const ssize_t written = write(ends[1], &hasLock, 1);
        pause();
        _exit(0);
    }
    char hasLock = 0;
    ASSERT_EQ(read(ends[0], &hasLock, 1), 1);
    EXPECT_EQ(hasLock, 1);
    EXPECT_FALSE(isFree());
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_TRUE(isFree());
    close(ends[0]);
    close(ends[1]);
}

TEST_F(InstanceLockTest, TheSecondGetsTheAnswerOfTheFirstAsSoonAsItAnswers) {
    const auto lock = InstanceLock::claim(file_);
    ASSERT_TRUE(lock && *lock);
    int calls = 0;
    const auto second = posix::claimInstance(file_, [&calls]() -> std::optional<CommandReply> {
        return ++calls < 3 ? std::nullopt : std::optional(CommandReply{.output = "here"});
    });
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().output, "here");
    EXPECT_EQ(calls, 3);
}

TEST_F(InstanceLockTest, TheSecondTakesOverFromAFirstThatIsEnding) {
    auto lock = InstanceLock::claim(file_);
    ASSERT_TRUE(lock && *lock);
    const auto second = posix::claimInstance(file_, [&lock]() -> std::optional<CommandReply> {
        lock->reset();
        return std::nullopt;
    });
    EXPECT_TRUE(second);
}

TEST_F(InstanceLockTest, WhereNoLockCanBeMadeThatIsSaid) {
    std::filesystem::create_directory(file_.parent_path());
    std::filesystem::permissions(file_.parent_path(), std::filesystem::perms::others_all,
                                 std::filesystem::perm_options::add);
    const auto lock = posix::claimInstance(file_, [] { return std::nullopt; });
    ASSERT_FALSE(lock);
    EXPECT_EQ(lock.error().result, CommandResult::refused);
    EXPECT_NE(lock.error().error.find("cannot lock"), std::string::npos);
}

} // namespace

} // namespace corvane::contract
