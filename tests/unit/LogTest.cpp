#include "support/Log.h"

#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane {
namespace {

using ::testing::MatchesRegex;

constexpr const char *stamp = "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} \\+0000 ";

class LogTest : public ::testing::Test {
  protected:
    std::string content() const {
        std::ifstream stream(file_, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void append(std::string_view message) const { appendLogLine(file_.c_str(), message); }

    testing::TemporaryDirectory directory_;
    std::filesystem::path file_ = directory_.path() / "corvane.log";
};

TEST_F(LogTest, TheFileIsFixed) { EXPECT_STREQ(logPath, "/tmp/corvane.log"); }

TEST_F(LogTest, TheFirstCallCreatesTheFileWithOneLine) {
    append("Clicker started: mode=cursor interval=1.0s maxClicks=0");
    EXPECT_THAT(content(),
                MatchesRegex(std::string(stamp) +
                             "Clicker started: mode=cursor interval=1\\.0s maxClicks=0\n"));
}

TEST_F(LogTest, TwoCallsGiveTwoLinesInOrder) {
    append("one");
    append("two");
    EXPECT_THAT(content(),
                MatchesRegex(std::string(stamp) + "one\n" + std::string(stamp) + "two\n"));
}

TEST_F(LogTest, AnEmptyMessageLeavesTheStampAndABlank) {
    append("");
    EXPECT_THAT(content(), MatchesRegex(std::string(stamp) + "\n"));
}

TEST_F(LogTest, AMessageIsWrittenAsGiven) {
    append("zwei\nZeilen – \"%s\" \\n");
    EXPECT_THAT(content(), MatchesRegex(std::string(stamp) + "zwei\nZeilen – \"%s\" \\\\n\n"));
}

TEST_F(LogTest, WhatIsInTheFileStays) {
    std::ofstream(file_) << "earlier without an end";
    append("later");
    EXPECT_TRUE(content().starts_with("earlier without an end2"));
    EXPECT_TRUE(content().ends_with(" +0000 later\n"));
}

TEST_F(LogTest, AFileThatCannotBeWrittenLosesTheLineSilently) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    appendLogLine(directory_.path().c_str(), "a directory");
    appendLogLine((directory_.path() / "missing" / "corvane.log").c_str(), "no directory");
    appendLogLine("", "no name");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(std::filesystem::is_empty(directory_.path()));
}

TEST_F(LogTest, APipeInTheFilesPlaceIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    append("nobody reads");
    const int reader = open(file_.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    append("somebody reads");
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(LogTest, ALinkInTheFilesPlaceIsNotFollowed) {
    const auto target = directory_.path() / "precious";
    std::ofstream(target) << "precious";
    std::filesystem::create_symlink(target, file_);
    append("elsewhere");
    EXPECT_EQ(std::filesystem::file_size(target), 8U);
}

TEST_F(LogTest, LinesOfSeveralThreadsStayWhole) {
    constexpr int lines = 200;
    std::vector<std::thread> threads;
    for (const char *message : {"aaaaaaaaaaaaaaaaaaaa", "bbbbbbbbbbbbbbbbbbbb"}) {
        threads.emplace_back([this, message] {
            for (int line = 0; line < lines; ++line) {
                append(message);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    std::ifstream stream(file_);
    int count = 0;
    for (std::string line; std::getline(stream, line); ++count) {
        ASSERT_THAT(line, MatchesRegex(std::string(stamp) + "(a{20}|b{20})"));
    }
    EXPECT_EQ(count, 2 * lines);
}

TEST_F(LogTest, ASinkTakesTheMessagesInsteadOfTheFile) {
    const testing::LogCapture capture;
    log("one");
    log("");
    EXPECT_EQ(capture.messages(), (std::vector<std::string>{"one", ""}));
}

} // namespace
} // namespace corvane
