#include "services/ConfigService.h"

#include "support/InterruptedFileSystem.h"
#include "support/LineCapture.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

const std::filesystem::path directory = "/home/user/.config/corvane";
const std::filesystem::path file = directory / "config.json";
constexpr const char *defaultText = "{\n"
                                    "  \"clickMode\" : \"cursor\",\n"
                                    "  \"clickRate\" : 1,\n"
                                    "  \"maxClicks\" : 0,\n"
                                    "  \"timeUnit\" : \"s\"\n"
                                    "}";

class ConfigServiceTest : public ::testing::Test {
  protected:
    testing::OutputCapture output_;
    testing::MemoryFileSystem files_;
    ConfigService service_{files_, "/home/user"};
};

TEST_F(ConfigServiceTest, KeepsItsFileUnderTheHomeDirectory) {
    EXPECT_EQ(service_.configFileURL(), file);
    EXPECT_EQ(service_.currentConfig(), std::nullopt);
}

TEST_F(ConfigServiceTest, TheFirstRunCreatesTheDefault) {
    EXPECT_EQ(service_.load(), CorvaneConfig{});
    EXPECT_TRUE(files_.isDirectory("/home/user/.config"));
    EXPECT_TRUE(files_.isDirectory(directory));
    EXPECT_EQ(files_.content(file), defaultText);
    EXPECT_EQ(service_.currentConfig(), CorvaneConfig{});
    EXPECT_EQ(output_.lines(),
              Lines{"[Corvane] Created default config at /home/user/.config/corvane/config.json"});
}

TEST_F(ConfigServiceTest, LoadsWhatTheFileHolds) {
    files_.put(file, R"({"clickRate":7})");
    EXPECT_EQ(service_.load(), CorvaneConfig{.clickRate = 7});
    EXPECT_EQ(service_.currentConfig(), CorvaneConfig{.clickRate = 7});
    EXPECT_EQ(output_.lines(),
              Lines{"[Corvane] Loaded config from /home/user/.config/corvane/config.json"});
}

TEST_F(ConfigServiceTest, LoadsAnEmptyObjectWithoutRewritingTheFile) {
    files_.put(file, "{}");
    EXPECT_EQ(service_.load(), CorvaneConfig{});
    EXPECT_EQ(files_.content(file), "{}");
    EXPECT_TRUE(files_.writes().empty());
}

TEST_F(ConfigServiceTest, LeavesADamagedFileAsItIs) {
    files_.put(file, "[]");
    EXPECT_EQ(service_.load(), std::unexpected(Failure{"not an object"}));
    EXPECT_EQ(files_.content(file), "[]");
    EXPECT_TRUE(files_.writes().empty());
    EXPECT_EQ(service_.currentConfig(), std::nullopt);
    EXPECT_EQ(output_.lines(), Lines{});
}

TEST_F(ConfigServiceTest, AFailedLoadKeepsTheCurrentConfiguration) {
    files_.put(file, R"({"clickRate":7})");
    ASSERT_TRUE(service_.load());
    files_.setFaults({.read = Failure{"unreadable"}});
    EXPECT_EQ(service_.load(), std::unexpected(Failure{"unreadable"}));
    EXPECT_EQ(service_.currentConfig(), CorvaneConfig{.clickRate = 7});
}

TEST_F(ConfigServiceTest, TheFirstRunFailsWhereNothingCanBeWritten) {
    files_.setFaults({.createDirectories = Failure{"no directory"}});
    EXPECT_EQ(service_.load(), std::unexpected(Failure{"no directory"}));
    files_.setFaults({.write = Failure{"disk full"}});
    EXPECT_EQ(service_.load(), std::unexpected(Failure{"disk full"}));
    EXPECT_EQ(service_.currentConfig(), std::nullopt);
    EXPECT_EQ(output_.lines(), Lines{});
}

TEST_F(ConfigServiceTest, SavesAndRemembersWithoutAWord) {
    EXPECT_TRUE(service_.save({}));
    EXPECT_EQ(files_.content(file), defaultText);
    EXPECT_EQ(service_.currentConfig(), CorvaneConfig{});
    EXPECT_EQ(output_.lines(), Lines{});
}

TEST_F(ConfigServiceTest, SavingRecreatesADeletedDirectory) {
    ASSERT_TRUE(service_.save({}));
    files_.remove("/home/user/.config");
    ASSERT_FALSE(files_.exists(directory));
    EXPECT_TRUE(service_.save({}));
    EXPECT_EQ(files_.content(file), defaultText);
}

TEST_F(ConfigServiceTest, AFailedSaveLeavesTheFileAndTheCurrentConfiguration) {
    ASSERT_TRUE(service_.save({}));
    files_.setFaults({.write = Failure{"disk full"}});
    EXPECT_EQ(service_.save({.clickRate = 9}), std::unexpected(Failure{"disk full"}));
    EXPECT_EQ(files_.content(file), defaultText);
    EXPECT_EQ(service_.currentConfig(), CorvaneConfig{});
}

TEST_F(ConfigServiceTest, WhatCannotBeEncodedIsNotWritten) {
    const CodableRect endless{0, 0, std::numeric_limits<double>::infinity(), 1};
    EXPECT_EQ(service_.save({.zoneRect = endless}),
              std::unexpected(Failure{"a number is not finite"}));
    EXPECT_TRUE(files_.writes().empty());
    EXPECT_EQ(service_.currentConfig(), std::nullopt);
}

TEST(ConfigServiceThreadsTest, OperationsAreDoneOneAtATime) {
    const testing::OutputCapture output;
    testing::InterruptedFileSystem files;
    files.put(file, R"({"clickRate":7})");
    ConfigService service(files, "/home/user");
    const auto load = [&] { EXPECT_TRUE(service.load()); };
    const auto save = [&] { EXPECT_TRUE(service.save({.clickRate = 2})); };
    const auto saveAnother = [&] { EXPECT_TRUE(service.save({.clickRate = 3})); };
    const auto read = [&] { EXPECT_TRUE(service.currentConfig()); };
    {
        SCOPED_TRACE("a save during a load");
        testing::expectOneAtATime(files, load, save);
    }
    EXPECT_EQ(service.currentConfig(), CorvaneConfig{.clickRate = 2});
    {
        SCOPED_TRACE("a save during a save");
        testing::expectOneAtATime(files, save, saveAnother);
    }
    EXPECT_EQ(service.currentConfig(), CorvaneConfig{.clickRate = 3});
    {
        SCOPED_TRACE("a load during a save");
        testing::expectOneAtATime(files, save, load);
    }
    {
        SCOPED_TRACE("a reading during a save");
        testing::expectOneAtATime(files, save, read);
    }
}

} // namespace
} // namespace corvane
