#include "services/ProfileService.h"

#include "support/InterruptedFileSystem.h"
#include "support/LineCapture.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

const std::filesystem::path file = "/home/user/.config/corvane/profiles.json";

class ProfileServiceTest : public ::testing::Test {
  protected:
    testing::LogCapture log_;
    testing::MemoryFileSystem files_;
    ProfileService service_{files_, "/home/user"};
};

TEST_F(ProfileServiceTest, KeepsItsFileBesideTheConfiguration) {
    EXPECT_EQ(service_.profilesFileURL(), file);
}

TEST_F(ProfileServiceTest, WithoutAFileTheStoreIsEmptyAndNothingIsDone) {
    EXPECT_EQ(service_.load(), ProfileStore{});
    EXPECT_EQ(log_.lines(), Lines{});
    EXPECT_FALSE(files_.exists(file));
    EXPECT_FALSE(files_.exists(file.parent_path()));
}

TEST_F(ProfileServiceTest, LogsHowManyProfilesItLoaded) {
    files_.put(file, R"({"profiles":[]})");
    EXPECT_EQ(service_.load(), ProfileStore{});
    ASSERT_TRUE(service_.save({.profiles = {Profile::fromConfig("Work", {})}}));
    const auto store = service_.load();
    ASSERT_TRUE(store);
    EXPECT_EQ(store->profiles.size(), 1U);
    EXPECT_EQ(log_.lines(),
              (Lines{"Loaded 0 profiles from /home/user/.config/corvane/profiles.json",
                     "Loaded 1 profiles from /home/user/.config/corvane/profiles.json"}));
}

TEST_F(ProfileServiceTest, LoadsWhatItSaved) {
    const Profile profile = Profile::fromConfig("Work", {.clickRate = 7});
    const ProfileStore store{.profiles = {profile, Profile::fromConfig("Work", {})},
                             .activeProfileID = profile.id};
    ASSERT_TRUE(service_.save(store));
    EXPECT_EQ(service_.load(), store);
}

TEST_F(ProfileServiceTest, ReplacesTheWholeFile) {
    ASSERT_TRUE(service_.save({.profiles = {Profile::fromConfig("Work", {})}}));
    ASSERT_TRUE(service_.save({}));
    EXPECT_EQ(files_.content(file), "{\n  \"profiles\" : [\n\n  ]\n}");
    EXPECT_EQ(log_.lines(), Lines{});
}

TEST_F(ProfileServiceTest, OneBadProfileFailsTheLoadAndTheFileStays) {
    const std::string text =
        R"({"profiles":[{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"Work",)"
        R"("clickMode":"cursor","clickRate":1,"timeUnit":"seconds","maxClicks":0}]})";
    files_.put(file, text);
    EXPECT_EQ(service_.load(),
              std::unexpected(Failure{"profiles: number 1: timeUnit: not a known value"}));
    EXPECT_EQ(files_.content(file), text);
    EXPECT_TRUE(files_.writes().empty());
    EXPECT_EQ(log_.lines(), Lines{});
}

TEST_F(ProfileServiceTest, HandsOnTheFailuresOfTheDisk) {
    files_.setFaults({.createDirectories = Failure{"no directory"}});
    EXPECT_EQ(service_.save({}), std::unexpected(Failure{"no directory"}));
    files_.put(file, R"({"profiles":[]})");
    files_.setFaults({.read = Failure{"unreadable"}, .write = Failure{"disk full"}});
    EXPECT_EQ(service_.load(), std::unexpected(Failure{"unreadable"}));
    EXPECT_EQ(service_.save({}), std::unexpected(Failure{"disk full"}));
    EXPECT_EQ(files_.content(file), R"({"profiles":[]})");
    EXPECT_EQ(log_.lines(), Lines{});
}

TEST_F(ProfileServiceTest, SavingCreatesAMissingDirectory) {
    EXPECT_TRUE(service_.save({}));
    EXPECT_TRUE(files_.isDirectory("/home/user/.config/corvane"));
}

TEST(ProfileServiceThreadsTest, OperationsAreDoneOneAtATime) {
    const testing::LogCapture log;
    testing::InterruptedFileSystem files;
    files.put(file, R"({"profiles":[]})");
    ProfileService service(files, "/home/user");
    const auto load = [&] { EXPECT_TRUE(service.load()); };
    const auto save = [&] { EXPECT_TRUE(service.save({})); };
    {
        SCOPED_TRACE("a save during a load");
        testing::expectOneAtATime(files, load, save);
    }
    {
        SCOPED_TRACE("a save during a save");
        testing::expectOneAtATime(files, save, save);
    }
    {
        SCOPED_TRACE("a load during a save");
        testing::expectOneAtATime(files, save, load);
    }
}

} // namespace
} // namespace corvane
