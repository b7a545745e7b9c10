#include "platform/freedesktop/applications/DesktopEntries.h"

#include "EnvironmentVariable.h"
#include "EventLoop.h"
#include "TemporaryFolder.h"
#include "TextFile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

namespace corvane::contract {

namespace {

class DesktopEntriesTest : public testing::Test {
  protected:
    void write(const std::string &name, const std::string &keys) const {
        desktop::writeFile(folder_.path() / name,
                           "[Desktop Entry]\nType=Application\n" + keys + "\n");
    }

    freedesktop::DesktopEntries entries(std::string_view locale = "C") const {
        return {{folder_.path(), lesserFolder_.path()}, locale};
    }

    desktop::TemporaryFolder folder_;
    desktop::TemporaryFolder lesserFolder_;
};

TEST_F(DesktopEntriesTest, WithoutFilesNothingIsKnown) {
    EXPECT_EQ(entries().identifierFor("editor", "Editor"), std::nullopt);
    EXPECT_EQ(entries().identifierFor("", ""), std::nullopt);
    EXPECT_EQ(entries().nameOf("editor"), std::nullopt);
    freedesktop::DesktopEntries nowhere({"/no/such/folder"}, "");
    EXPECT_EQ(nowhere.nameOf("editor"), std::nullopt);
}

TEST_F(DesktopEntriesTest, TheDeclaredClassCountsMost) {
    write("one.desktop", "Name=One\nStartupWMClass=two\nExec=/usr/bin/three");
    write("two.desktop", "Name=Two");
    EXPECT_EQ(entries().identifierFor("anything", "Two"), "one");
    EXPECT_EQ(entries().identifierFor("two", "Anything"), "one");
}

TEST_F(DesktopEntriesTest, TheFileNameCountsNext) {
    write("org.example.Viewer.desktop", "Name=Viewer\nExec=view");
    EXPECT_EQ(entries().identifierFor("x", "org.example.Viewer"), "org.example.Viewer");
    EXPECT_EQ(entries().identifierFor("org.example.viewer", "X"), "org.example.Viewer");
    EXPECT_EQ(entries().identifierFor("viewer", "Viewer"), "org.example.Viewer");
}

TEST_F(DesktopEntriesTest, TheProgramCountsLast) {
    write("terminal.desktop", "Name=Terminal\nExec=env LANG=C \"/usr/bin/my-term\" --new %U");
    write("hidden.desktop", "Name=Handler\nExec=other-program\nNoDisplay=true");
    EXPECT_EQ(entries().identifierFor("my-term", "MyTerm"), "terminal");
    EXPECT_EQ(entries().identifierFor("other-program", "Other"), std::nullopt);
}

TEST_F(DesktopEntriesTest, FilesInSubfoldersAreNamedAfterThem) {
    write("kde/tool.desktop", "Name=Tool\nStartupWMClass=Tool");
    EXPECT_EQ(entries().identifierFor("", "Tool"), "kde-tool");
    EXPECT_EQ(entries().nameOf("kde-tool"), "Tool");
}

TEST_F(DesktopEntriesTest, TheMoreImportantFolderWins) {
    write("editor.desktop", "Name=Mine");
    desktop::writeFile(lesserFolder_.path() / "editor.desktop",
                       "[Desktop Entry]\nType=Application\nName=Theirs\n");
    desktop::writeFile(lesserFolder_.path() / "removed.desktop",
                       "[Desktop Entry]\nType=Application\nName=Removed\n");
    write("removed.desktop", "Hidden=true");
    EXPECT_EQ(entries().nameOf("editor"), "Mine");
    EXPECT_EQ(entries().nameOf("removed"), std::nullopt);
    EXPECT_EQ(entries().identifierFor("removed", "removed"), std::nullopt);
}

TEST_F(DesktopEntriesTest, NamesAreInTheUsersLanguage) {
    write("editor.desktop", "Name=Editor\nName[de]=Schreiber\nName[de_AT]=Schreiberling\n"
                            "Name[sr@latin]=Pisac\nName[sr]=Писац");
    EXPECT_EQ(entries("de_AT.UTF-8").nameOf("editor"), "Schreiberling");
    EXPECT_EQ(entries("de_DE.UTF-8").nameOf("editor"), "Schreiber");
    EXPECT_EQ(entries("sr_RS.UTF-8@latin").nameOf("editor"), "Pisac");
    EXPECT_EQ(entries("sr_RS").nameOf("editor"), "Писац");
    EXPECT_EQ(entries("fr_FR.UTF-8").nameOf("editor"), "Editor");
    EXPECT_EQ(entries("C").nameOf("editor"), "Editor");
    EXPECT_EQ(entries("").nameOf("editor"), "Editor");
}

TEST_F(DesktopEntriesTest, OtherGroupsAndTypesDoNotCount) {
    desktop::writeFile(folder_.path() / "a.desktop",
                       "[Desktop Action new]\nName=Action\n[Desktop Entry]\nType=Application\n"
                       "Name=Right\n[Other]\nName=Wrong\n");
    desktop::writeFile(folder_.path() / "b.desktop", "[Desktop Entry]\nType=Link\nName=Page\n");
    EXPECT_EQ(entries().nameOf("a"), "Right");
    EXPECT_EQ(entries().nameOf("b"), std::nullopt);
}

TEST_F(DesktopEntriesTest, OddFilesDoNoHarm) {
    const auto put = [this](const char *name, std::string_view text) {
        desktop::writeFile(folder_.path() / name, text);
    };
    put("empty.desktop", "");
    put("garbage.desktop", std::string_view("\0\xFF=\n[\n]\n=", 9));
    put("windows.desktop", "[Desktop Entry]\r\nType = Application\r\n  Name =  Spaced  \r\n");
    put("broken.desktop", "[Desktop Entry]\nType=Application\nName=Bad \xFF name\\s!\\");
    put("long.desktop", "[Desktop Entry]\nType=Application\nName=" + std::string(2 << 20, 'x'));
    put("nameless.desktop", "[Desktop Entry]\nType=Application\n");
    std::filesystem::create_directory(folder_.path() / "folder.desktop");
    std::filesystem::create_symlink("nowhere", folder_.path() / "dangling.desktop");
    std::filesystem::create_directory_symlink(folder_.path(), folder_.path() / "loop");
    ASSERT_EQ(mkfifo((folder_.path() / "pipe.desktop").c_str(), 0600), 0);
    auto all = entries();
    EXPECT_EQ(all.nameOf("windows"), "Spaced");
    EXPECT_EQ(all.nameOf("broken"), "Bad \xEF\xBF\xBD name !\\");
    for (const char *name :
         {"empty", "garbage", "long", "nameless", "folder", "dangling", "pipe"}) {
        EXPECT_EQ(all.nameOf(name), std::nullopt) << name;
    }
}

TEST_F(DesktopEntriesTest, AnApplicationInstalledLaterIsFound) {
    auto all = entries();
    EXPECT_EQ(all.nameOf("later"), std::nullopt);
    write("later.desktop", "Name=Later");
    EXPECT_TRUE(turnUntil([&all] { return all.nameOf("later") == "Later"; }));
}

TEST_F(DesktopEntriesTest, TheEnvironmentSaysWhereTheFilesAre) {
    const auto own = folder_.path() / "own";
    const auto shared = folder_.path() / "shared";
    desktop::writeFile(own / "applications" / "mine.desktop",
                       "[Desktop Entry]\nType=Application\nName=Mine\nName[nl]=De mijne\n");
    desktop::writeFile(shared / "applications" / "all.desktop",
                       "[Desktop Entry]\nType=Application\nName=All\n");
    const EnvironmentVariable home("XDG_DATA_HOME", own);
    const EnvironmentVariable directories("XDG_DATA_DIRS", "relative:" + shared.string() + ":");
    const EnvironmentVariable everything("LC_ALL", "");
    const EnvironmentVariable messages("LC_MESSAGES", "nl_NL.UTF-8");
    auto all = freedesktop::DesktopEntries::ofUser();
    EXPECT_EQ(all.nameOf("mine"), "De mijne");
    EXPECT_EQ(all.nameOf("all"), "All");
}

} // namespace

} // namespace corvane::contract
