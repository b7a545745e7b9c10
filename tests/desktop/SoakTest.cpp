#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/WindowTree.h"

#include <filesystem>
#include <iterator>
#include <sstream>

namespace corvane::desktop {

namespace {

/// What the program holds of the system at one moment.
struct Holdings {
    long memoryKilobytes = 0;
    long openFiles = 0;
    long threads = 0;
};

long statusField(const std::string &status, const std::string &name) {
    std::istringstream rest(status.substr(status.find(name) + name.size()));
    long value = 0;
    rest >> value;
    return value;
}

Holdings holdingsOf(pid_t pid) {
    const std::filesystem::path process = "/proc/" + std::to_string(pid);
    const std::string status = readFile(process / "status");
    return {.memoryKilobytes = statusField(status, "VmRSS:"),
            .openFiles = std::distance(std::filesystem::directory_iterator(process / "fd"), {}),
            .threads = statusField(status, "Threads:")};
}

/// Long runs: what the program holds does not grow with the clicks.
class Soak : public DesktopTest {
  protected:
    Soak() : DesktopTest({.hasCompositor = true, .hasPanel = true}) { keepWindowManagerOut(); }

    /// The limit of each run counts its clicks.
    void playRuns(CorvaneProcess &corvane, int count) {
        for (int run = 0; run < count; ++run) {
            keyboard_.pressHotKey();
            ASSERT_TRUE(corvane.waitForLog(finished, ++runs_)) << corvane.log().back();
            ASSERT_TRUE(waitUntil([this] { return hasNoRipples(); }));
        }
    }

    /// The last ripple is gone, so the program has taken note of the end of its run.
    bool hasNoRipples() const {
        for (const SeenWindow &window : corvaneWindows(desktop_.connection())) {
            if (window.isOverride && window.area.width == 50) {
                return false;
            }
        }
        return true;
    }

    static constexpr const char *finished = "Clicker finished after 1000 clicks (limit reached)";
    int runs_ = 0;
};

TEST_F(Soak, tenThousandsOfClicksLeaveNothingBehind) {
    const auto corvane = start({.clickRate = 200, .maxClicks = 1000});
    playRuns(*corvane, 2);
    const Holdings before = holdingsOf(corvane->process().pid());
    playRuns(*corvane, 18);
    const Holdings after = holdingsOf(corvane->process().pid());
    waitForEverything();

    EXPECT_EQ(clickCount(), 20'000);
    EXPECT_EQ(after.openFiles, before.openFiles);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_LT(after.memoryKilobytes, before.memoryKilobytes * 11 / 10);
}

} // namespace

} // namespace corvane::desktop
