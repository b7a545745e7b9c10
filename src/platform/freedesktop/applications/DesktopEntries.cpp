#include "platform/freedesktop/applications/DesktopEntries.h"

#include "platform/freedesktop/applications/DesktopEntry.h"
#include "platform/linux/environment/EnvironmentVariable.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/environment/UserLanguages.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <system_error>

namespace corvane::freedesktop {

namespace {

namespace fs = std::filesystem;

/// The interval at which the folders' modification times are checked.
constexpr std::chrono::seconds checkInterval(5);

/// A longer file is ignored.
constexpr std::uintmax_t longestFile = 1 << 20;

constexpr std::string_view suffix = ".desktop";

std::vector<fs::path> applicationFolders() {
    std::vector<fs::path> folders{linux::dataDirectory() / "applications"};
    const std::string listed = linux::environmentVariable("XDG_DATA_DIRS");
    std::istringstream paths(listed.empty() ? "/usr/local/share:/usr/share" : listed);
    for (std::string path; std::getline(paths, path, ':');) {
        if (fs::path(path).is_absolute()) {
            folders.push_back(fs::path(path) / "applications");
        }
    }
    return folders;
}

/// From "sr_RS.UTF-8@latin": Name[sr_RS@latin], Name[sr_RS], Name[sr@latin], Name[sr] and Name.
std::vector<std::string> nameKeysFor(std::string_view locale) {
    const std::size_t modifierStart = std::min(locale.find('@'), locale.size());
    const std::string modifier(locale.substr(modifierStart));
    const std::string_view unmodified = locale.substr(0, modifierStart);
    const std::string region(unmodified.substr(0, unmodified.find('.')));
    const std::string language = region.substr(0, region.find('_'));
    std::vector<std::string> keys;
    for (const std::string &each : {region + modifier, region, language + modifier, language}) {
        keys.push_back("Name[" + each + "]");
    }
    keys.emplace_back("Name");
    return keys;
}

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

std::string valueOf(const std::map<std::string, std::string> &values, const std::string &key) {
    const auto found = values.find(key);
    return found != values.end() ? found->second : std::string();
}

/// The name of the program a command starts, without its folder.
std::string programOf(const std::string &command) {
    std::istringstream words(command);
    std::string word;
    while (words >> word && (word == "env" || word.contains('='))) {
    }
    std::erase(word, '"');
    return fs::path(word).filename().string();
}

std::optional<std::string> contentsOf(const fs::path &file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > longestFile || error) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// "kde-foo" for kde/foo.desktop.
std::string identifierOf(const fs::path &relative) {
    std::string identifier = relative.generic_string();
    identifier.resize(identifier.size() - suffix.size());
    std::ranges::replace(identifier, '/', '-');
    return identifier;
}

/// "nautilus" for "org.gnome.nautilus".
std::string lastPart(const std::string &identifier) {
    return identifier.substr(identifier.rfind('.') + 1);
}

} // namespace

DesktopEntries::DesktopEntries(std::vector<fs::path> folders, std::string_view locale)
    : folders_(std::move(folders)),
      nameKeys_(nameKeysFor(locale)) {}

DesktopEntries DesktopEntries::ofUser() {
    const auto locales = linux::userLocales();
    return {applicationFolders(), locales.empty() ? std::string_view() : locales.front()};
}

const std::optional<std::string> &DesktopEntries::identifierFor(const std::string &instanceName,
                                                                const std::string &className) {
    readAgainIfChanged();
    auto &ofClass = identifiers_[className];
    const auto known = ofClass.find(instanceName);
    if (known != ofClass.end()) {
        return known->second;
    }
    return ofClass.emplace(instanceName, find(lowerCase(instanceName), lowerCase(className)))
        .first->second;
}

std::optional<std::string> DesktopEntries::nameOf(const std::string &identifier) {
    readAgainIfChanged();
    const auto known = entries_.find(identifier);
    if (known == entries_.end()) {
        return std::nullopt;
    }
    const std::optional<Entry> &entry = known->second;
    if (!entry || entry->name.empty()) {
        return std::nullopt;
    }
    return entry->name;
}

std::optional<std::string> DesktopEntries::find(const std::string &instanceName,
                                                const std::string &className) const {
    const auto isName = [&](const std::string &text) {
        return !text.empty() && (text == className || text == instanceName);
    };
    using Fits = std::function<bool(const std::string &identifier, const Entry &entry)>;
    const std::array<Fits, 5> attempts{
        [&](const auto &, const auto &entry) {
            return !className.empty() && entry.windowClass == className;
        },
        [&](const auto &, const auto &entry) { return isName(entry.windowClass); },
        [&](const auto &identifier, const auto &) { return isName(lowerCase(identifier)); },
        [&](const auto &identifier, const auto &) {
            return isName(lastPart(lowerCase(identifier)));
        },
        [&](const auto &, const auto &entry) { return entry.isListed && isName(entry.program); }};
    for (const Fits &fits : attempts) {
        const auto match = std::ranges::find_if(entries_, [&fits](const auto &known) {
            return known.second && fits(known.first, *known.second);
        });
        if (match != entries_.end()) {
            return match->first;
        }
    }
    return std::nullopt;
}

void DesktopEntries::readAgainIfChanged() {
    const auto now = Clock::now();
    if (readTimes_ && now - lastCheck_ < checkInterval) {
        return;
    }
    lastCheck_ = now;
    Times times = folderTimes();
    if (readTimes_ == times) {
        return;
    }
    readTimes_ = std::move(times);
    entries_.clear();
    identifiers_.clear();
    for (const fs::path &folder : folders_) {
        readFolder(folder);
    }
}

DesktopEntries::Times DesktopEntries::folderTimes() const {
    Times times;
    for (const fs::path &folder : folders_) {
        std::error_code error;
        const auto time = fs::last_write_time(folder, error);
        times.push_back(error ? fs::file_time_type::min() : time);
    }
    return times;
}

void DesktopEntries::readFolder(const fs::path &folder) {
    std::error_code error;
    fs::recursive_directory_iterator files(folder, fs::directory_options::skip_permission_denied,
                                           error);
    for (; !error && files != fs::recursive_directory_iterator(); files.increment(error)) {
        const fs::path &file = files->path();
        if (file.extension() == suffix) {
            readFile(file, identifierOf(file.lexically_relative(folder)));
        }
    }
}

/// The file in the more important folder counts, also where it only hides the application.
void DesktopEntries::readFile(const fs::path &file, const std::string &identifier) {
    const auto contents = contentsOf(file);
    if (!contents || entries_.contains(identifier)) {
        return;
    }
    const auto values = desktopEntryValues(*contents);
    auto &entry = entries_[identifier];
    if (valueOf(values, "Hidden") == "true" || valueOf(values, "Type") != "Application") {
        return;
    }
    entry = Entry{.name = localisedName(values),
                  .windowClass = lowerCase(valueOf(values, "StartupWMClass")),
                  .program = lowerCase(programOf(valueOf(values, "Exec"))),
                  .isListed = valueOf(values, "NoDisplay") != "true"};
}

std::string DesktopEntries::localisedName(const std::map<std::string, std::string> &values) const {
    for (const std::string &key : nameKeys_) {
        if (const std::string name = valueOf(values, key); !name.empty()) {
            return linux::utf8Text(name);
        }
    }
    return {};
}

} // namespace corvane::freedesktop
