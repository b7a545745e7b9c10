#include "model/Json.h"
#include "platform/posix/PosixFileSystem.h"
#include "services/ConfigService.h"
#include "support/FaultyFileCalls.h"
#include "support/LineCapture.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

namespace corvane {
namespace {

namespace fs = std::filesystem;
using testing::FaultyFileCalls;

constexpr CorvaneConfig oldConfig{.clickRate = 5};
constexpr CorvaneConfig newConfig{.clickRate = 60, .timeUnit = TimeUnit::minutes, .maxClicks = 7};

const std::optional<std::string> oldText = *encodeConfig(oldConfig);
const std::optional<std::string> newText = *encodeConfig(newConfig);

/// How the home directory looks before the save.
enum class Home { empty, withSettings, withLink, withOthersSettings };

/// A save into a fresh home directory, one of whose calls meets with a fault.
class FaultySave {
  public:
    explicit FaultySave(Home home) : home_(home) {
        prepare();
        service_ = std::make_unique<ConfigService>(files_, directory_.path());
        if (home_ != Home::empty && home_ != Home::withOthersSettings) {
            EXPECT_TRUE(service_->load());
        }
        callsBefore_ = calls_.count();
    }

    /// The call of the save by its number, from 1.
    void fail(int call, int error) { calls_.fail(callsBefore_ + call, error); }
    void stopAt(int call) { calls_.stopAt(callsBefore_ + call); }
    void shortenWrites() { calls_.shortenWrites(7); }
    void losePower(FaultyFileCalls::Survivors survivors) { calls_.losePower(survivors); }

    bool save() { return service_->save(newConfig).has_value(); }

    int callsMade() const { return calls_.count() - callsBefore_; }

    /// The content of the settings file; nothing when there is no such file.
    std::optional<std::string> settings() const { return contentOf(file()); }
    std::optional<std::string> keptSettings() const { return contentOf(file().string() + "~"); }
    bool isLinkKept() const { return home_ != Home::withLink || fs::is_symlink(file()); }

    std::optional<std::string> settingsBefore() const {
        return home_ == Home::empty ? std::nullopt : oldText;
    }

    /// How many temporary files there are.
    int leftovers() const {
        int count = 0;
        for (const auto &entry : fs::recursive_directory_iterator(directory_.path())) {
            count += entry.path().string().contains(".corvane-") ? 1 : 0;
        }
        return count;
    }

  private:
    static std::optional<std::string> contentOf(const fs::path &path) {
        if (!fs::exists(path)) {
            return std::nullopt;
        }
        std::ifstream stream(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }

    fs::path file() const { return directory_.path() / ".config/corvane/config.json"; }

    void prepare() {
        if (home_ == Home::empty) {
            return;
        }
        fs::create_directories(file().parent_path());
        fs::path written = file();
        if (home_ == Home::withLink) {
            written = directory_.path() / "real.json";
            fs::create_symlink("../../real.json", file());
        }
        std::ofstream(written) << *oldText;
    }

    const Home home_;
    testing::TemporaryDirectory directory_;
    testing::OutputCapture output_;
    FaultyFileCalls calls_;
    posix::PosixFileSystem files_{calls_};
    std::unique_ptr<ConfigService> service_;
    int callsBefore_ = 0;
};

class PowerCutTest : public ::testing::TestWithParam<Home> {
  protected:
    static int callsOfSave() {
        FaultySave undisturbed(GetParam());
        EXPECT_TRUE(undisturbed.save());
        EXPECT_EQ(undisturbed.settings(), newText);
        return undisturbed.callsMade();
    }

    /// Whether the settings are the old or the new ones, whole, and the link to them is there.
    static void expectWhole(const FaultySave &save) {
        const auto settings = save.settings();
        EXPECT_TRUE(settings == save.settingsBefore() || settings == newText)
            << settings.value_or("no file");
        EXPECT_TRUE(save.isLinkKept());
    }

    /// Whether what another program wrote is there, under the one name or the other.
    static void expectOthersSettings(const FaultySave &save) {
        if (GetParam() == Home::withOthersSettings) {
            EXPECT_TRUE(save.settings() == oldText || save.keptSettings() == oldText);
        }
    }
};

TEST_P(PowerCutTest, AKillBeforeAnyCallLeavesTheOldOrTheNewSettings) {
    const int calls = callsOfSave();
    EXPECT_GT(calls, 8);
    for (int call = 1; call <= calls + 1; ++call) {
        SCOPED_TRACE("killed before call " + std::to_string(call));
        FaultySave save(GetParam());
        save.stopAt(call);
        save.save();
        expectWhole(save);
        expectOthersSettings(save);
    }
}

TEST_P(PowerCutTest, APowerCutBeforeAnyCallLeavesTheOldOrTheNewSettings) {
    using Survivors = FaultyFileCalls::Survivors;
    const int calls = callsOfSave();
    for (const auto survivors : {Survivors::everything, Survivors::names, Survivors::nothing}) {
        for (int call = 1; call <= calls + 1; ++call) {
            SCOPED_TRACE("power cut before call " + std::to_string(call));
            FaultySave save(GetParam());
            save.stopAt(call);
            save.save();
            save.losePower(survivors);
            expectWhole(save);
            expectOthersSettings(save);
        }
    }
}

TEST_P(PowerCutTest, ASavedFileOutlastsAPowerCut) {
    FaultySave save(GetParam());
    ASSERT_TRUE(save.save());
    save.losePower(FaultyFileCalls::Survivors::nothing);
    EXPECT_EQ(save.settings(), newText);
}

TEST_P(PowerCutTest, AFailureOfAnyCallIsReportedAndLeavesNothingBeside) {
    const int calls = callsOfSave();
    int failures = 0;
    for (const int error : {EIO, ENOSPC, EACCES, EROFS}) {
        for (int call = 1; call <= calls; ++call) {
            SCOPED_TRACE("error " + std::to_string(error) + " of call " + std::to_string(call));
            FaultySave save(GetParam());
            save.fail(call, error);
            const bool isSaved = save.save();
            failures += isSaved ? 0 : 1;
            expectWhole(save);
            EXPECT_EQ(save.settings(), isSaved ? newText : save.settingsBefore());
            EXPECT_EQ(save.leftovers(), 0);
            EXPECT_TRUE(save.save());
            EXPECT_EQ(save.settings(), newText);
        }
    }
    EXPECT_GT(failures, 4 * 5);
}

TEST_P(PowerCutTest, AnInterruptedCallIsMadeAgain) {
    const int calls = callsOfSave();
    int repetitions = 0;
    for (int call = 1; call <= calls; ++call) {
        SCOPED_TRACE("interrupted call " + std::to_string(call));
        FaultySave save(GetParam());
        save.fail(call, EINTR);
        repetitions += save.save() && save.callsMade() == calls + 1 ? 1 : 0;
        expectWhole(save);
    }
    // Opening, writing and synchronising the file, opening and synchronising its folder.
    EXPECT_GE(repetitions, 5);
}

TEST_P(PowerCutTest, ShortWritesAreContinued) {
    FaultySave save(GetParam());
    save.shortenWrites();
    EXPECT_TRUE(save.save());
    EXPECT_EQ(save.settings(), newText);
}

INSTANTIATE_TEST_SUITE_P(Homes, PowerCutTest,
                         ::testing::Values(Home::empty, Home::withSettings, Home::withLink,
                                           Home::withOthersSettings),
                         [](const auto &test) {
                             switch (test.param) {
                             case Home::empty:
                                 return "empty";
                             case Home::withSettings:
                                 return "withSettings";
                             case Home::withLink:
                                 return "withLink";
                             case Home::withOthersSettings:
                                 return "withOthersSettings";
                             }
                             return "";
                         });

} // namespace
} // namespace corvane
