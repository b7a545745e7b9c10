#include "services/StoredFile.h"

#include "services/ConfigService.h"
#include "services/ProfileService.h"
#include "support/LineCapture.h"
#include "support/recorder/MemoryFileSystem.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Path = std::filesystem::path;

const Path folder = "/home/user/.config/corvane";
const Path file = folder / "config.json";
const Path kept = folder / "config.json~";
const Path profiles = folder / "profiles.json";
const Path keptProfiles = folder / "profiles.json~";

class StoredFileTest : public ::testing::Test {
  protected:
    testing::OutputCapture output_;
    testing::LogCapture log_;
    testing::MemoryFileSystem files_;
    StoredFile stored_{files_, file};
};

TEST_F(StoredFileTest, MakesItsFolderOnceOnly) {
    ASSERT_TRUE(stored_.makeFolder());
    EXPECT_TRUE(files_.isDirectory(folder));
    files_.setFaults({.createDirectories = Failure{"must not be requested"}});
    EXPECT_TRUE(stored_.makeFolder());
}

TEST_F(StoredFileTest, ReplacesWhatItKnowsWithoutKeepingIt) {
    files_.put(file, "read");
    stored_.setKnown("read");
    ASSERT_TRUE(stored_.write("first"));
    ASSERT_TRUE(stored_.write("second"));
    EXPECT_EQ(files_.content(file), "second");
    EXPECT_FALSE(files_.exists(kept));
    EXPECT_EQ(files_.writes(), (std::vector<Path>{file, file}));
}

TEST_F(StoredFileTest, KeepsWhatSomebodyElseWrote) {
    ASSERT_TRUE(stored_.makeFolder());
    ASSERT_TRUE(stored_.write("ours"));
    files_.put(file, "theirs");
    ASSERT_TRUE(stored_.write("ours again"));
    EXPECT_EQ(files_.content(file), "ours again");
    EXPECT_EQ(files_.content(kept), "theirs");
}

TEST_F(StoredFileTest, KeepsNothingWhereBothWroteTheSame) {
    files_.put(file, "same");
    ASSERT_TRUE(stored_.write("same"));
    EXPECT_FALSE(files_.exists(kept));
}

TEST_F(StoredFileTest, ReplacesWhatCannotBeKeptAndSaysSo) {
    files_.put(file, "theirs");
    files_.put(kept / "in the way", "");
    EXPECT_TRUE(stored_.write("ours"));
    EXPECT_EQ(files_.content(file), "ours");
    EXPECT_EQ(log_.lines(),
              std::vector<std::string>{"Not kept before it is replaced: " + file.string() + ": " +
                                       kept.string() + ": it is a directory"});
}

TEST_F(StoredFileTest, WhatWasNotWrittenIsNotKnown) {
    files_.put(file, "theirs");
    files_.setFaults({.write = Failure{"disk full"}});
    EXPECT_EQ(stored_.write("ours"), std::unexpected(Failure{"disk full"}));
    files_.setFaults({});
    files_.put(file, "ours");
    ASSERT_TRUE(stored_.write("ours again"));
    EXPECT_EQ(files_.content(kept), "ours");
}

TEST_F(StoredFileTest, OfTwoProgramsNeitherLosesTheOthersSettings) {
    ConfigService one(files_, "/home/user");
    ConfigService other(files_, "/home/user");
    ASSERT_TRUE(one.load());
    ASSERT_TRUE(other.load());
    ASSERT_TRUE(one.save({.clickRate = 2}));
    const auto lastOfOne = files_.content(file);
    ASSERT_TRUE(other.save({.clickRate = 3}));
    EXPECT_EQ(files_.content(kept), lastOfOne);
    EXPECT_EQ(ConfigService(files_, "/home/user").load(), CorvaneConfig{.clickRate = 3});
}

TEST_F(StoredFileTest, OfTwoProgramsNeitherLosesTheOthersProfiles) {
    ProfileService one(files_, "/home/user");
    ProfileService other(files_, "/home/user");
    ASSERT_TRUE(one.load());
    ASSERT_TRUE(other.load());
    ASSERT_TRUE(one.save({.profiles = {Profile::fromConfig("Work", {})}}));
    const auto lastOfOne = files_.content(profiles);
    ASSERT_TRUE(other.save({.profiles = {Profile::fromConfig("Play", {})}}));
    EXPECT_EQ(files_.content(keptProfiles), lastOfOne);
    ASSERT_TRUE(other.save({}));
    EXPECT_EQ(files_.content(keptProfiles), lastOfOne);
}

TEST_F(StoredFileTest, AFileThatWasNotUnderstoodIsKeptByTheNextSave) {
    const std::string typingError = R"({"clickRate":5,})";
    files_.put(file, typingError);
    files_.put(profiles, typingError);
    ConfigService config(files_, "/home/user");
    ProfileService store(files_, "/home/user");
    ASSERT_FALSE(config.load());
    ASSERT_FALSE(store.load());
    ASSERT_TRUE(config.save({}));
    ASSERT_TRUE(store.save({}));
    EXPECT_EQ(files_.content(kept), typingError);
    EXPECT_EQ(files_.content(keptProfiles), typingError);
}

TEST_F(StoredFileTest, SettingsThatWereUnderstoodAreNotKept) {
    files_.put(file, R"({"clickRate":5})");
    files_.put(profiles, R"({"profiles":[]})");
    ConfigService config(files_, "/home/user");
    ProfileService store(files_, "/home/user");
    ASSERT_TRUE(config.load());
    ASSERT_TRUE(store.load());
    ASSERT_TRUE(config.save({.clickRate = 6}));
    ASSERT_TRUE(store.save({.profiles = {Profile::fromConfig("Work", {})}}));
    EXPECT_FALSE(files_.exists(kept));
    EXPECT_FALSE(files_.exists(keptProfiles));
}

} // namespace
} // namespace corvane
