#include "platform/linux/environment/UserDirectories.h"

#include "EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

std::filesystem::path homeInPasswordDatabase() {
    return getpwuid(getuid())->pw_dir; // NOLINT(concurrency-mt-unsafe)
}

TEST(UserDirectoriesTest, HomeIsWhatTheEnvironmentSays) {
    const EnvironmentVariable home("HOME", "/somewhere/else");
    EXPECT_EQ(linux::homeDirectory(), "/somewhere/else");
}

TEST(UserDirectoriesTest, WithoutAnAbsoluteHomeThePasswordDatabaseSays) {
    for (const std::optional<std::string> &value :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("relative/path")}) {
        const EnvironmentVariable home("HOME", value);
        EXPECT_EQ(linux::homeDirectory(), homeInPasswordDatabase());
    }
}

TEST(UserDirectoriesTest, DesktopSettingsLieInTheConfiguredDirectory) {
    const EnvironmentVariable home("HOME", "/home/me");
    const EnvironmentVariable config("XDG_CONFIG_HOME", "/settings");
    EXPECT_EQ(linux::configDirectory(), "/settings");
}

TEST(UserDirectoriesTest, DesktopSettingsLieBelowHomeOtherwise) {
    const EnvironmentVariable home("HOME", "/home/me");
    for (const std::optional<std::string> &value :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("relative")}) {
        const EnvironmentVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(linux::configDirectory(), "/home/me/.config");
    }
}

} // namespace

} // namespace corvane::contract
