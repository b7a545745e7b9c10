#include "BackEnd.h"
#include "platform/FileSystem.h"
#include "platform/Platform.h"

#include <string>

namespace corvane::contract {

namespace {

class FileSystemContract : public ContractTest {
  protected:
    platform::FileSystem &files() { return platform().fileSystem(); }

    std::filesystem::path directory_ = backEnd().directory();
    std::filesystem::path file_ = directory_ / "file";
};

TEST_P(FileSystemContract, KnowsWhatExists) {
    EXPECT_TRUE(files().exists(directory_));
    EXPECT_FALSE(files().exists(file_));
    EXPECT_FALSE(files().readFile(file_).has_value());
}

TEST_P(FileSystemContract, ReadsBackEveryByte) {
    std::string content;
    for (int byte = 0; byte < 256; ++byte) {
        content += static_cast<char>(byte);
    }
    ASSERT_TRUE(files().replaceFile(file_, content).has_value());
    EXPECT_TRUE(files().exists(file_));
    EXPECT_EQ(files().readFile(file_), content);
}

TEST_P(FileSystemContract, ReplacesTheWholeContent) {
    ASSERT_TRUE(files().replaceFile(file_, "a long first text").has_value());
    ASSERT_TRUE(files().replaceFile(file_, "short").has_value());
    EXPECT_EQ(files().readFile(file_), "short");
    ASSERT_TRUE(files().replaceFile(file_, "").has_value());
    EXPECT_EQ(files().readFile(file_), "");
}

TEST_P(FileSystemContract, MakesDirectoriesWithTheirParents) {
    const auto deep = directory_ / "one" / "two";
    EXPECT_FALSE(files().replaceFile(deep / "file", "text").has_value());
    ASSERT_TRUE(files().createDirectories(deep).has_value());
    ASSERT_TRUE(files().createDirectories(deep).has_value());
    EXPECT_TRUE(files().replaceFile(deep / "file", "text").has_value());
}

TEST_P(FileSystemContract, SaysWhyItFails) {
    const auto refused = files().readFile(file_);
    ASSERT_FALSE(refused.has_value());
    EXPECT_FALSE(refused.error().description.empty());
}

TEST_P(FileSystemContract, MakesNoDirectoryInAFilesPlace) {
    ASSERT_TRUE(files().replaceFile(file_, "text").has_value());
    EXPECT_FALSE(files().createDirectories(file_).has_value());
    EXPECT_FALSE(files().createDirectories(file_ / "one" / "two").has_value());
    EXPECT_FALSE(files().replaceFile(file_ / "one", "text").has_value());
    EXPECT_EQ(files().readFile(file_), "text");
}

TEST_P(FileSystemContract, TakesNoDirectoryForAFile) {
    const auto folder = directory_ / "folder";
    ASSERT_TRUE(files().createDirectories(folder).has_value());
    EXPECT_TRUE(files().exists(folder));
    EXPECT_FALSE(files().readFile(folder).has_value());
    EXPECT_FALSE(files().replaceFile(folder, "text").has_value());
    EXPECT_TRUE(files().replaceFile(folder / "file", "text").has_value());
}

CORVANE_CONTRACT(FileSystemContract);

} // namespace

} // namespace corvane::contract
