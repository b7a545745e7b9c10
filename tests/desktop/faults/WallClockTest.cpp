#include "harness/servers/WallClock.h"

#include "DesktopTest.h"
#include "harness/ProfilesText.h"
#include "harness/TextFile.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>

namespace corvane::desktop {

namespace {

using std::chrono::hours;
using std::chrono::seconds;
using std::chrono::system_clock;

/// Somebody sets the system's clock, or the network does: by years in either direction.
class WallClockTest : public DesktopTest {
  protected:
    WallClockTest() { keepWindowManagerOut(); }

    static constexpr std::array offsets{hours(24 * 400), hours(-24 * 3000), hours(24 * 20000),
                                        hours(-1)};

    std::unique_ptr<CorvaneProcess> startWithOwnClock(const Settings &settings) {
        return start(settings, {.environment = clock_.environment()});
    }

    /// The usual time between the last clicks, by the monotonic clock.
    std::int64_t usualInterval(int clicks) const {
        std::vector<std::int64_t> presses;
        for (const ButtonEvent &event : client_.events()) {
            if (event.isPress && event.button == 1) {
                presses.push_back(event.nanoseconds);
            }
        }
        std::vector<std::int64_t> intervals;
        for (auto index = presses.size() - static_cast<std::size_t>(clicks) + 1;
             index < presses.size(); ++index) {
            intervals.push_back(presses[index] - presses[index - 1]);
        }
        const auto middle = intervals.begin() + static_cast<std::ptrdiff_t>(intervals.size() / 2);
        std::ranges::nth_element(intervals, middle);
        return *middle;
    }

    /// How far the time of the last line in the log is from the machine's.
    static seconds logOffset(const CorvaneProcess &corvane) {
        std::tm time{};
        strptime(corvane.lastLogTime().c_str(), "%Y-%m-%d %H:%M:%S +0000", &time);
        return seconds(timegm(&time)) -
               std::chrono::floor<seconds>(system_clock::now().time_since_epoch());
    }

    std::optional<ProcessEnd> load(const StoredProfile &profile) const {
        CorvaneProcess command(desktop_, {.arguments = {"profile", "load", profile.name}});
        return command.process().waitForEnd();
    }

    const WallClock clock_{desktop_};
};

TEST_F(WallClockTest, RunsGoOnAtTheirRateAndTheHotKeyStopsThem) {
    const auto corvane = startWithOwnClock({.clickRate = 20});
    constexpr int someClicks = 12;
    int runs = 0;
    for (const hours offset : offsets) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(someClicks)) << corvane->story();
        const std::int64_t before = usualInterval(someClicks);
        clock_.set(offset);
        ASSERT_TRUE(waitForMoreClicks(someClicks + 1)) << corvane->story();
        const std::int64_t after = usualInterval(someClicks);
        EXPECT_GT(after, before / 2);
        EXPECT_LT(after, before * 2);
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ", ++runs))
            << corvane->story();
        EXPECT_TRUE(staysQuiet());
        EXPECT_FALSE(pointer_.isLeftButtonDown());
        EXPECT_LT(std::chrono::abs(logOffset(*corvane) - offset), std::chrono::minutes(30));
    }
}

TEST_F(WallClockTest, SavesStayWholeAndTheLastOneCounts) {
    std::vector<StoredProfile> profiles;
    for (std::size_t index = 0; index < offsets.size(); ++index) {
        const std::string number = std::to_string(index + 1);
        profiles.push_back({.id = "6F9619FF-8B86-D011-B42D-00CF4FC9640" + number,
                            .name = "Profile " + number,
                            .clickRate = number});
    }
    writeFile(profilesFile(desktop_), profilesText(profiles));
    const auto corvane = startWithOwnClock({});
    for (std::size_t index = 0; index < offsets.size(); ++index) {
        clock_.set(offsets.at(index));
        const StoredProfile &profile = profiles[index];
        EXPECT_EQ(load(profile), ProcessEnd{.exitCode = 0});
        EXPECT_TRUE(waitUntil([&] {
            return readFile(profilesFile(desktop_)) == profilesText(profiles, profile.id) &&
                   readFile(settingsFile(desktop_))
                       .contains("\"clickRate\" : " + profile.clickRate + ",");
        })) << corvane->story();
    }
    // Nothing is taken for another program's and kept, and nothing is left behind.
    const std::filesystem::directory_iterator files(settingsFile(desktop_).parent_path());
    EXPECT_EQ(std::ranges::distance(files), 2);
}

} // namespace

} // namespace corvane::desktop
