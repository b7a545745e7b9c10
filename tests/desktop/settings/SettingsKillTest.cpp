#include "DesktopTest.h"
#include "harness/TextFile.h"
#include "harness/actors/StatusPanel.h"
#include "model/Json.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <random>
#include <set>
#include <thread>

namespace corvane::desktop {

namespace {

/// Large enough that writing it takes a while.
Profile largeProfile(const std::string &name, std::int64_t clickRate) {
    return Profile::fromConfig(
        name, {.windowAnchor = WindowAnchor{"org.example.editor", std::string(20'000, 'x'), {}},
               .clickRate = clickRate});
}

/// The program is killed while the user goes to and fro between two profiles, which saves both
/// files each time.
class SettingsKillTest : public DesktopTest {
  protected:
    SettingsKillTest() {
        writeFile(profilesFile(desktop_), profilesTexts_.front());
        writeFile(settingsFile(desktop_), settingsTexts_.front());
    }

    void playRounds(std::size_t count) {
        for (std::size_t round = 0; round < count && !HasFailure(); ++round) {
            SCOPED_TRACE("round " + std::to_string(round));
            playRound(round % 2);
            found_.insert(readFile(settingsFile(desktop_)));
        }
        // The kills found now the one and now the other profile in use.
        EXPECT_EQ(found_.size(), 2);
        std::cout << count << " kills, " << savesCutShort() << " of them within a save\n";
    }

  private:
    using Texts = std::array<std::string, 2>;

    /// Begins with that profile in use.
    void playRound(std::size_t first) {
        CorvaneProcess corvane(desktop_);
        ASSERT_TRUE(corvane.waitUntilReady()) << corvane.story();
        EXPECT_FALSE(corvane.standardOutput().contains("Failed")) << corvane.story();
        const std::string &settings = settingsTexts_.at(first);
        ASSERT_TRUE(waitUntil([&] { return panel_.choose(names_.at(first)); })) << corvane.story();
        ASSERT_TRUE(waitUntil([&] { return readFile(settingsFile(desktop_)) == settings; }));
        std::thread killer([&corvane, moment = randomMoment()] {
            std::this_thread::sleep_for(moment);
            corvane.process().signal(SIGKILL);
        });
        for (std::size_t next = 1 - first; panel_.choose(names_.at(next)); next = 1 - next) {
        }
        killer.join();
        EXPECT_EQ(corvane.process().waitForEnd(), (ProcessEnd{.signal = SIGKILL}));
        expectOneOf(settingsTexts_, settingsFile(desktop_));
        expectOneOf(profilesTexts_, profilesFile(desktop_));
    }

    static void expectOneOf(const Texts &texts, const std::filesystem::path &file) {
        const std::string found = readFile(file);
        EXPECT_EQ(std::ranges::count(texts, found), 1)
            << file << " holds " << found.size() << " bytes: " << found.substr(0, 500);
    }

    std::chrono::microseconds randomMoment() {
        return std::chrono::microseconds(std::uniform_int_distribution(0, 200'000)(random_));
    }

    /// Each left its temporary file behind.
    int savesCutShort() const {
        return static_cast<int>(std::ranges::count_if(
            std::filesystem::directory_iterator(settingsFile(desktop_).parent_path()),
            [](const auto &entry) { return entry.path().string().contains(".corvane-"); }));
    }

    const Texts names_{"One", "Two"};
    const std::array<Profile, 2> profiles_{largeProfile(names_[0], 1), largeProfile(names_[1], 2)};
    const Texts settingsTexts_{*encodeConfig(profiles_[0].config),
                               *encodeConfig(profiles_[1].config)};
    const Texts profilesTexts_{
        *encodeProfileStore({{profiles_.begin(), profiles_.end()}, profiles_[0].id}),
        *encodeProfileStore({{profiles_.begin(), profiles_.end()}, profiles_[1].id})};
    StatusPanel panel_{desktop_};
    std::mt19937 random_{std::random_device()()};
    std::set<std::string> found_;
};

TEST_F(SettingsKillTest, AKillLeavesBothFilesWhole) { playRounds(25); }

using SettingsKillSoak = SettingsKillTest;

TEST_F(SettingsKillSoak, FiveHundredKillsLeaveBothFilesWhole) { playRounds(500); }

} // namespace

} // namespace corvane::desktop
