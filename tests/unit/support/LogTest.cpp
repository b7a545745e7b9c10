#include "support/Log.h"

#include "support/LineCapture.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
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

    static std::string stampOf(std::time_t time) {
        std::tm utc{};
        gmtime_r(&time, &utc);
        std::ostringstream text;
        text << std::put_time(&utc, "%Y-%m-%d %H:%M:%S");
        return text.str();
    }

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

TEST_F(LogTest, EachLineTellsWhenItWasWritten) {
    const std::time_t start = std::time(nullptr);
    for (std::time_t before = start; before == start;) {
        std::filesystem::remove(file_);
        before = std::time(nullptr);
        append("now");
        const std::time_t after = std::time(nullptr);
        const std::string written = content().substr(0, stampOf(start).size());
        ASSERT_GE(written, stampOf(before));
        ASSERT_LE(written, stampOf(after));
    }
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
    std::filesystem::remove(target);
    append("elsewhere");
    EXPECT_FALSE(std::filesystem::exists(target));
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
}

TEST_F(LogTest, AnotherNameOfAFileInTheFilesPlaceIsNotWritten) {
    const auto target = directory_.path() / "precious";
    std::ofstream(target) << "precious";
    std::filesystem::create_hard_link(target, file_);
    append("elsewhere");
    EXPECT_EQ(std::filesystem::file_size(target), 8U);
}

TEST_F(LogTest, AFileOfAnotherUserLosesTheLineSilently) {
    constexpr uid_t somebodyElse = 65534;
    constexpr auto sameGroup = static_cast<gid_t>(-1);
    std::ofstream(file_) << "theirs";
    std::filesystem::permissions(file_, std::filesystem::perms::all);
    // Only the superuser can give a file away; for anybody else, this one is another user's.
    const bool isGiven = chown(file_.c_str(), somebodyElse, sameGroup) == 0;
    const std::filesystem::path theirs = isGiven ? file_ : "/etc/passwd";
    const auto size = std::filesystem::file_size(theirs);
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    appendLogLine(theirs.c_str(), "ours");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(std::filesystem::file_size(theirs), size);
}

TEST_F(LogTest, AnOwnFileWithoutWritePermissionLosesTheLineSilently) {
    constexpr uid_t unprivileged = 65534;
    std::ofstream(file_) << "kept";
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // Permissions do not stop the superuser.
        const bool isOwned = geteuid() != 0 || (chown(file_.c_str(), unprivileged, 0) == 0 &&
                                                chmod(directory_.path().c_str(), 0755) == 0 &&
                                                setuid(unprivileged) == 0);
        if (!isOwned || chmod(file_.c_str(), 0444) != 0 || access(file_.c_str(), W_OK) == 0) {
            _exit(EXIT_FAILURE);
        }
        append("lost");
        _exit(EXIT_SUCCESS);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, EXIT_SUCCESS);
    EXPECT_EQ(content(), "kept");
    struct stat after{};
    ASSERT_EQ(stat(file_.c_str(), &after), 0);
    EXPECT_EQ(after.st_mode & 07777U, 0444U);
}

TEST_F(LogTest, ANewFileHasDefaultPermissionsAsFarAsTheMaskLeavesThem) {
    const mode_t before = umask(027);
    append("first");
    umask(before);
    struct stat status{};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

/// Lines of several writers at the same time, too long for a buffer on the way.
class LogOfManyTest : public LogTest {
  protected:
    static constexpr int lines = 200;
    static constexpr std::size_t length = 10'000;

    void appendLinesOf(char letter) const {
        for (int line = 0; line < lines; ++line) {
            append(std::string(length, letter));
        }
    }

    /// Whether every line of the writers is there and whole.
    void expectWholeLinesOf(std::string_view letters) const {
        std::map<std::string, int> counts;
        std::ifstream stream(file_);
        for (std::string line; std::getline(stream, line);) {
            ++counts[line.substr(std::min(line.size(), stampLength))];
        }
        EXPECT_EQ(counts.size(), letters.size());
        for (const char letter : letters) {
            EXPECT_EQ(counts[std::string(length, letter)], lines) << letter;
        }
    }

  private:
    static constexpr std::size_t stampLength =
        std::string_view("2026-11-16 00:06:06 +0000 ").size();
};

TEST_F(LogOfManyTest, LinesOfSeveralThreadsStayWhole) {
    std::thread other([this] { appendLinesOf('a'); });
    appendLinesOf('b');
    other.join();
    expectWholeLinesOf("ab");
}

TEST_F(LogOfManyTest, LinesOfSeveralProcessesStayWhole) {
    const pid_t other = fork();
    ASSERT_GE(other, 0);
    if (other == 0) {
        appendLinesOf('a');
        _exit(EXIT_SUCCESS);
    }
    appendLinesOf('b');
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, EXIT_SUCCESS);
    expectWholeLinesOf("ab");
}

TEST_F(LogTest, ASinkTakesTheMessagesInsteadOfTheFile) {
    const testing::LogCapture capture;
    log("one");
    log("");
    EXPECT_EQ(capture.lines(), (std::vector<std::string>{"one", ""}));
}

} // namespace
} // namespace corvane
