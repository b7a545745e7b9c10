#include "platform/posix/PosixFileSystem.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace corvane::posix {
namespace {

namespace fs = std::filesystem;

class PosixFileSystemTest : public ::testing::Test {
  protected:
    static mode_t permissions(const fs::path &path) {
        struct stat status{};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777U;
    }

    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(directory_.path()), fs::directory_iterator()));
    }

    testing::TemporaryDirectory directory_;
    fs::path file_ = directory_.path() / "config.json";
    PosixFileSystem files_;
};

TEST_F(PosixFileSystemTest, AMissingFileIsAnErrorThatNamesIt) {
    EXPECT_FALSE(files_.exists(file_));
    EXPECT_EQ(files_.readFile(file_),
              std::unexpected(Failure{file_.string() + ": No such file or directory"}));
}

TEST_F(PosixFileSystemTest, ReplacesAFileAndLeavesNothingBeside) {
    ASSERT_TRUE(files_.replaceFile(file_, "first"));
    ASSERT_TRUE(files_.replaceFile(file_, "second"));
    EXPECT_EQ(files_.readFile(file_), "second");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(PosixFileSystemTest, WhatIsNewHasDefaultPermissionsAsFarAsTheMaskLeavesThem) {
    for (const mode_t mask : std::array<mode_t, 4>{0, 022, 027, 077}) {
        const fs::path outer = directory_.path() / std::to_string(mask);
        const mode_t before = umask(mask);
        ASSERT_TRUE(files_.createDirectories(outer / "inner"));
        ASSERT_TRUE(files_.replaceFile(outer / "inner" / "file", "text"));
        umask(before);
        EXPECT_EQ(permissions(outer), 0777U & ~mask);
        EXPECT_EQ(permissions(outer / "inner"), 0777U & ~mask);
        EXPECT_EQ(permissions(outer / "inner" / "file"), 0666U & ~mask);
    }
}

TEST_F(PosixFileSystemTest, AReplacedFileKeepsItsPermissions) {
    ASSERT_TRUE(files_.replaceFile(file_, "text"));
    ASSERT_EQ(chmod(file_.c_str(), 0600), 0);
    ASSERT_TRUE(files_.replaceFile(file_, "text"));
    EXPECT_EQ(permissions(file_), 0600U);
}

TEST_F(PosixFileSystemTest, AReplacedFileKeepsTheLinksThatLeadToIt) {
    const fs::path target = directory_.path() / "dotfiles" / "real.json";
    fs::create_directory(target.parent_path());
    ASSERT_TRUE(files_.replaceFile(target, "old"));
    fs::create_symlink("dotfiles/real.json", file_);
    ASSERT_TRUE(files_.replaceFile(file_, "new"));
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(files_.readFile(target), "new");
}

TEST_F(PosixFileSystemTest, ANewFileIsPutWhereAChainOfLinksEnds) {
    const fs::path target = directory_.path() / "dotfiles" / "real.json";
    fs::create_directory(target.parent_path());
    fs::create_symlink("dotfiles/link", file_);
    fs::create_symlink("../dotfiles/real.json", target.parent_path() / "link");
    ASSERT_FALSE(files_.exists(file_));
    ASSERT_TRUE(files_.replaceFile(file_, "new"));
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_TRUE(fs::is_symlink(target.parent_path() / "link"));
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(files_.readFile(target), "new");
}

TEST_F(PosixFileSystemTest, LinksThatLeadNowhereAreAnErrorAndStay) {
    fs::create_symlink("config.json", file_);
    EXPECT_EQ(files_.replaceFile(file_, "new"),
              Outcome<>(std::unexpected(
                  Failure{file_.string() + ": Too many levels of symbolic links"})));
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(PosixFileSystemTest, WhatAKilledProgramLeftBehindDisappearsInTheEnd) {
    const auto leftBehind = [this](const std::string &name, std::chrono::minutes age) {
        const fs::path file = directory_.path() / name;
        std::ofstream(file) << "half";
        fs::last_write_time(file, fs::file_time_type::clock::now() - age);
    };
    leftBehind("config.json.corvane-1", std::chrono::minutes(61));
    leftBehind("config.json.corvane-2", std::chrono::minutes(59));
    leftBehind("config.json.2026", std::chrono::minutes(61));
    leftBehind("profiles.json.corvane-3", std::chrono::minutes(61));
    ASSERT_TRUE(files_.replaceFile(file_, "text"));
    EXPECT_FALSE(files_.exists(directory_.path() / "config.json.corvane-1"));
    EXPECT_EQ(entries(), 4U);
}

TEST_F(PosixFileSystemTest, ADirectoryInTheFilesPlaceIsAnError) {
    fs::create_directory(file_);
    const auto expected = std::unexpected(Failure{file_.string() + ": it is a directory"});
    EXPECT_EQ(files_.readFile(file_), expected);
    EXPECT_EQ(files_.replaceFile(file_, "text"), Outcome<>(expected));
    EXPECT_TRUE(fs::is_directory(file_));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(PosixFileSystemTest, APipeInTheFilesPlaceIsAnErrorAndIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    const auto expected = std::unexpected(Failure{file_.string() + ": it is not an ordinary file"});
    EXPECT_EQ(files_.readFile(file_), expected);
    EXPECT_EQ(files_.replaceFile(file_, "text"), Outcome<>(expected));
    EXPECT_TRUE(fs::is_fifo(file_));
}

TEST_F(PosixFileSystemTest, ADeviceIsNeverReplaced) {
    fs::create_symlink("/dev/null", file_);
    EXPECT_EQ(files_.replaceFile(file_, "text"),
              Outcome<>(std::unexpected(Failure{file_.string() + ": it is not an ordinary file"})));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(PosixFileSystemTest, AnOversizedFileIsAnError) {
    ASSERT_TRUE(files_.replaceFile(file_, "text"));
    fs::resize_file(file_, PosixFileSystem::largestFile);
    EXPECT_TRUE(files_.readFile(file_));
    fs::resize_file(file_, PosixFileSystem::largestFile + 1);
    EXPECT_EQ(files_.readFile(file_),
              std::unexpected(Failure{file_.string() + ": it is larger than 134217728 bytes"}));
}

TEST_F(PosixFileSystemTest, AMissingDirectoryIsAnError) {
    const fs::path lost = directory_.path() / "missing" / "config.json";
    EXPECT_EQ(files_.replaceFile(lost, "text"),
              Outcome<>(std::unexpected(Failure{lost.string() + ": No such file or directory"})));
}

TEST_F(PosixFileSystemTest, CreatesDirectoriesWithTheirParents) {
    const fs::path deep = directory_.path() / "one" / "two";
    ASSERT_TRUE(files_.createDirectories(deep));
    EXPECT_TRUE(fs::is_directory(deep));
    EXPECT_TRUE(files_.createDirectories(deep));
}

TEST_F(PosixFileSystemTest, ADirectoryInAFilesPlaceCannotBeCreated) {
    ASSERT_TRUE(files_.replaceFile(file_, "text"));
    EXPECT_FALSE(files_.createDirectories(file_ / "deeper"));
}

TEST_F(PosixFileSystemTest, AReaderNeverSeesAHalfWrittenFile) {
    const std::string old(300'000, 'a');
    const std::string replacement(200'000, 'b');
    ASSERT_TRUE(files_.replaceFile(file_, old));
    std::atomic isWriting = true;
    std::thread writer([&] {
        for (int turn = 0; turn < 20; ++turn) {
            EXPECT_TRUE(files_.replaceFile(file_, turn % 2 == 0 ? replacement : old));
        }
        isWriting = false;
    });
    while (isWriting) {
        const auto text = files_.readFile(file_);
        EXPECT_TRUE(text == old || text == replacement);
    }
    writer.join();
}

TEST_F(PosixFileSystemTest, FilesOfManyThreadsDoNotMix) {
    std::vector<std::thread> threads;
    for (const std::string name : {"one", "two", "three", "four"}) {
        threads.emplace_back([this, name] {
            for (int turn = 0; turn < 10; ++turn) {
                EXPECT_TRUE(files_.replaceFile(directory_.path() / name, name));
                EXPECT_EQ(files_.readFile(directory_.path() / name), name);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(entries(), 4U);
}

} // namespace
} // namespace corvane::posix
