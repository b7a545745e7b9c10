#include "platform/freedesktop/autostart/LoginItem.h"

#include "TemporaryFolder.h"
#include "platform/posix/PosixFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace corvane::contract {

namespace {

class LoginItemTest : public testing::Test {
  protected:
    static std::string entryWith(const std::string &lines) {
        return "# made by hand\n[Desktop Entry]\nType=Application\nExec=/bin/sh\n" + lines;
    }

    void writeEntry(const std::string &content) const {
        std::filesystem::create_directories(entryFile_.parent_path());
        std::ofstream(entryFile_) << content;
    }

    std::string readEntry() const {
        std::ostringstream content;
        content << std::ifstream(entryFile_).rdbuf();
        return content.str();
    }

    desktop::TemporaryFolder config_;
    std::filesystem::path entryFile_ = config_.path() / "autostart" / "corvane.desktop";
    posix::PosixFileSystem files_;
    freedesktop::LoginItem item_{files_, config_.path(), "/bin/sh"};
};

TEST_F(LoginItemTest, IsOffWithoutAnEntry) { EXPECT_FALSE(item_.isEnabled()); }

TEST_F(LoginItemTest, WritesAnEntryThatStartsTheProgram) {
    ASSERT_TRUE(item_.registerItem().has_value());
    EXPECT_TRUE(item_.isEnabled());
    EXPECT_EQ(readEntry(), "[Desktop Entry]\n"
                           "Type=Application\n"
                           "Name=Corvane\n"
                           "Icon=corvane\n"
                           "Exec=\"/bin/sh\" --at-login\n"
                           "TryExec=/bin/sh\n"
                           "Terminal=false\n");
}

TEST_F(LoginItemTest, RemovesTheEntry) {
    ASSERT_TRUE(item_.registerItem().has_value());
    ASSERT_TRUE(item_.unregisterItem().has_value());
    EXPECT_FALSE(item_.isEnabled());
    EXPECT_FALSE(std::filesystem::exists(entryFile_));
    EXPECT_TRUE(item_.unregisterItem().has_value());
}

TEST_F(LoginItemTest, AnEntryTheDesktopPassesOverIsOff) {
    writeEntry(entryWith(""));
    EXPECT_TRUE(item_.isEnabled());
    for (const char *line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n",
                             "X-MATE-Autostart-enabled=false\n", "TryExec=/nowhere/corvane\n"}) {
        writeEntry(entryWith(line));
        EXPECT_FALSE(item_.isEnabled()) << line;
    }
    writeEntry(entryWith("Hidden = false\n[Desktop Action New]\nHidden=true\n"));
    EXPECT_TRUE(item_.isEnabled());
}

TEST_F(LoginItemTest, AFileThatIsNoEntryIsOff) {
    for (const char *content : {"", "\xff\xfe\n", "Type=Application\nExec=/bin/sh\n",
                                "[Desktop Entry]\nType=Application\n"}) {
        writeEntry(content);
        EXPECT_FALSE(item_.isEnabled()) << content;
    }
}

TEST_F(LoginItemTest, RegisteringSwitchesAHiddenEntryOn) {
    writeEntry(entryWith("Hidden=true\n"));
    ASSERT_TRUE(item_.registerItem().has_value());
    EXPECT_TRUE(item_.isEnabled());
}

TEST_F(LoginItemTest, QuotesAPathAsDesktopFilesWantIt) {
    const auto odd = config_.path() / R"(a "b" $c `d` \e 100%)";
    std::filesystem::copy_file("/bin/sh", odd);
    freedesktop::LoginItem item(files_, config_.path(), odd);
    ASSERT_TRUE(item.registerItem().has_value());
    const std::string directory = config_.path().string();
    EXPECT_NE(readEntry().find("\nExec=\"" + directory + R"(/a \\"b\\" \\$c \\`d\\` \\\\e 100%%")" +
                               " --at-login\n"),
              std::string::npos)
        << readEntry();
    EXPECT_NE(readEntry().find("\nTryExec=" + directory + R"(/a "b" $c `d` \\e 100%)" + "\n"),
              std::string::npos)
        << readEntry();
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(LoginItemTest, ReportsWhyItCannotBeChanged) {
    std::ofstream(config_.path() / "autostart") << "a file in the directory's place";
    const auto refused = item_.registerItem();
    ASSERT_FALSE(refused.has_value());
    EXPECT_NE(refused.error().description.find("autostart"), std::string::npos);
    EXPECT_FALSE(item_.isEnabled());
}

TEST_F(LoginItemTest, ReportsAnEntryThatCannotBeRemoved) {
    std::filesystem::create_directories(entryFile_ / "occupied");
    EXPECT_FALSE(item_.unregisterItem().has_value());
}

} // namespace

} // namespace corvane::contract
