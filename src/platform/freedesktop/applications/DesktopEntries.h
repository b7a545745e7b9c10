#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::freedesktop {

/// The applications installed for the user, by their desktop files. Read on first use, and again
/// when a folder has changed. Main thread.
class DesktopEntries {
  public:
    /// `folders` hold desktop files, the most important first. Names are in the language of
    /// `locale`, such as "de_AT.UTF-8".
    DesktopEntries(std::vector<std::filesystem::path> folders, std::string_view locale);

    /// With the folders and the language of the environment.
    static DesktopEntries ofUser();

    /// The identifier of the application whose windows have that WM_CLASS: its desktop file's name
    /// without the suffix. Nothing when none fits.
    /// Valid until the next call.
    const std::optional<std::string> &identifierFor(const std::string &instanceName,
                                                    const std::string &className);

    /// The application's name in the user's language.
    std::optional<std::string> nameOf(const std::string &identifier);

  private:
    struct Entry {
        std::string name;
        // Both in lower case: the case in windows and in files rarely agrees.
        std::string windowClass;
        std::string program;
        bool isListed = true;
    };
    using Times = std::vector<std::filesystem::file_time_type>;
    using Clock = std::chrono::steady_clock;

    void readAgainIfChanged();
    Times folderTimes() const;
    void readFolder(const std::filesystem::path &folder);
    void readFile(const std::filesystem::path &file, const std::string &identifier);
    std::string localisedName(const std::map<std::string, std::string> &values) const;
    std::optional<std::string> find(const std::string &instanceName,
                                    const std::string &className) const;

    const std::vector<std::filesystem::path> folders_;
    /// The keys of the name, the best first.
    const std::vector<std::string> nameKeys_;
    std::optional<Times> readTimes_;
    Clock::time_point lastCheck_;
    /// By identifier; nothing for one that is hidden on purpose.
    std::map<std::string, std::optional<Entry>> entries_;
    /// The results of find, by class name and then by instance name.
    std::map<std::string, std::map<std::string, std::optional<std::string>>> identifiers_;
};

} // namespace corvane::freedesktop
