#include "platform/posix/TemporaryFile.h"

#include <cerrno>
#include <chrono>
#include <random>
#include <system_error>

#include <fcntl.h>

namespace corvane::posix {

namespace {

namespace fs = std::filesystem;

constexpr mode_t defaultAttributes = 0666;

/// No save takes as long.
constexpr std::chrono::hours longestSave(1);

/// The prefix that only the temporary files for this path have.
std::string beginningOfNames(const fs::path &place) {
    return place.filename().string() + ".corvane-";
}

fs::path newName(const fs::path &place) {
    return place.parent_path() / (beginningOfNames(place) + std::to_string(std::random_device()()));
}

bool isOlder(const fs::path &file, fs::file_time_type time) {
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    return !error && written < time;
}

} // namespace

TemporaryFile::TemporaryFile(FileCalls &calls, const fs::path &place)
    : calls_(calls),
      place_(place),
      name_(newName(place)),
      file_(calls, name_, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, defaultAttributes),
      isPending_(file_.isOpen()) {}

TemporaryFile::~TemporaryFile() {
    if (isPending_) {
        const int reason = errno;
        calls_.remove(name_.c_str());
        errno = reason;
    }
}

/// Some file systems know no permissions and refuse to change them, also to what they are.
bool TemporaryFile::takePermissionsOf(const struct stat &status) const {
    constexpr mode_t permissions = 07777;
    const mode_t wanted = status.st_mode & permissions;
    const auto own = file_.status();
    return own && ((own->st_mode & permissions) == wanted || file_.changeMode(wanted));
}

bool TemporaryFile::writeDurably(std::string_view content) {
    return file_.write(content) && file_.synchronise() && file_.close();
}

bool TemporaryFile::moveToPlace() {
    isPending_ = calls_.rename(name_.c_str(), place_.c_str()) != 0;
    return !isPending_;
}

void TemporaryFile::removeAbandoned() const {
    std::error_code error;
    // Measured by the clock that dates files.
    const auto now = fs::last_write_time(place_, error);
    if (error) {
        return;
    }
    fs::directory_iterator files(place_.parent_path(), error);
    for (; !error && files != fs::directory_iterator(); files.increment(error)) {
        const fs::path &file = files->path();
        if (file.filename().string().starts_with(beginningOfNames(place_)) &&
            isOlder(file, now - longestSave)) {
            calls_.remove(file.c_str());
        }
    }
}

} // namespace corvane::posix
