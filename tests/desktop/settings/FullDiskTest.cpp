#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"

#include <gmock/gmock.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;
using testing::Not;

/// Nothing can be written any more while the program runs, and later it can again.
class FullDiskTest : public DesktopTest {
  protected:
    FullDiskTest() { keepWindowManagerOut(); }

    /// The program finds a small file system in the place of its home.
    std::unique_ptr<CorvaneProcess> startWithSmallHome() {
        constexpr std::size_t bytes{65'536};
        CorvaneProcess::Options options;
        options.mounts.putSmallFileSystem(desktop_.home(), bytes);
        return startAndAwaitItem(std::move(options));
    }

    std::unique_ptr<CorvaneProcess> startAndAwaitItem(CorvaneProcess::Options options) {
        auto corvane = std::make_unique<CorvaneProcess>(desktop_, std::move(options));
        EXPECT_TRUE(corvane->waitUntilReady()) << corvane->story();
        EXPECT_TRUE(panel_.waitForItem()) << corvane->story();
        return corvane;
    }

    /// A file as the program sees it.
    std::filesystem::path seenBy(CorvaneProcess &corvane, const std::filesystem::path &file) {
        return "/proc/" + std::to_string(corvane.process().pid()) + "/root" + file.string();
    }
    std::string settingsOf(CorvaneProcess &corvane) {
        return readFile(seenBy(corvane, settingsFile(desktop_)));
    }

    void fillHome(CorvaneProcess &corvane) {
        constexpr mode_t attributes = 0600;
        const posix::FileDescriptor file(
            open(filler(corvane).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, attributes));
        ASSERT_TRUE(file.isOpen());
        while (write(file.get(), "x", 1) == 1) {
        }
        ASSERT_EQ(errno, ENOSPC);
    }
    void makeRoomInHome(CorvaneProcess &corvane) { std::filesystem::remove(filler(corvane)); }
    std::filesystem::path filler(CorvaneProcess &corvane) {
        return seenBy(corvane, desktop_.home() / "filler");
    }

    static void limitFiles(CorvaneProcess &corvane, rlim_t bytes) {
        const rlimit limit{.rlim_cur = bytes, .rlim_max = RLIM_INFINITY};
        ASSERT_EQ(prlimit(corvane.process().pid(), RLIMIT_FSIZE, &limit, nullptr), 0);
    }

    void startRun(CorvaneProcess &corvane) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(1)) << corvane.story();
    }

    void expectGoesOnAndStops(CorvaneProcess &corvane) {
        EXPECT_TRUE(waitForMoreClicks(1)) << corvane.story();
        keyboard_.pressHotKey();
        EXPECT_TRUE(waitUntil([this] { return panel_.line("Start").has_value(); }))
            << corvane.story();
        EXPECT_TRUE(staysQuiet());
        EXPECT_FALSE(pointer_.isLeftButtonDown());
    }

    void chooseZoneMode() {
        ASSERT_TRUE(panel_.choose("Defined Zone"));
        ASSERT_TRUE(waitUntil([this] { return panel_.line("Define zone...").has_value(); }));
    }

    void expectSavesAgain(CorvaneProcess &corvane) {
        ASSERT_TRUE(panel_.choose("Free Cursor"));
        chooseZoneMode();
        EXPECT_TRUE(waitUntil([&] {
            return settingsOf(corvane).find("\"clickMode\" : \"zone\"") != std::string::npos;
        })) << settingsOf(corvane);
    }

    StatusPanel panel_{desktop_};
};

TEST_F(FullDiskTest, AFullFileSystemCostsTheSavesOnly) {
    const auto corvane = startWithSmallHome();
    const std::string before = settingsOf(*corvane);
    ASSERT_THAT(before, HasSubstr("\"clickMode\" : \"cursor\""));
    startRun(*corvane);
    fillHome(*corvane);
    expectGoesOnAndStops(*corvane);
    chooseZoneMode();
    EXPECT_TRUE(waitUntil([&] {
        return corvane->standardOutput().find("[Corvane] Failed to save config: ") !=
               std::string::npos;
    })) << corvane->story();
    EXPECT_EQ(settingsOf(*corvane), before);
    makeRoomInHome(*corvane);
    expectSavesAgain(*corvane);
}

/// Neither the settings nor the log nor what is printed.
TEST_F(FullDiskTest, FilesThatMayNotGrowCostTheFilesOnly) {
    const auto corvane = startAndAwaitItem({});
    const std::string before = settingsOf(*corvane);
    startRun(*corvane);
    limitFiles(*corvane, 0);
    expectGoesOnAndStops(*corvane);
    chooseZoneMode();
    EXPECT_THAT(corvane->log(), Not(testing::Contains(HasSubstr("Clicker stopped"))));
    EXPECT_EQ(settingsOf(*corvane), before);
    limitFiles(*corvane, RLIM_INFINITY);
    expectSavesAgain(*corvane);
    startRun(*corvane);
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
