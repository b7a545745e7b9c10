#pragma once

#include "platform/posix/FileCalls.h"

#include <filesystem>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace corvane::testing {

/// The real calls on files, of which one fails, or with which the program or the whole machine
/// comes to its end. Calls are counted from 1.
class FaultyFileCalls : public posix::FileCalls {
  public:
    /// What a disk may still hold after a power cut of what was not synchronised.
    enum class Survivors { everything, names, nothing };

    /// One call does nothing and reports that error.
    void fail(int call, int error);
    /// Every write takes at most so many bytes.
    void shortenWrites(std::size_t bytes) { longestWrite_ = bytes; }
    /// That call and all later ones do nothing: the program was killed before it.
    void stopAt(int call) { stop_ = call; }
    /// What the power cut takes from the disk that was not synchronised: with `names`, the content
    /// of files; with `nothing`, also what was renamed.
    void losePower(Survivors survivors);

    int count() const { return count_; }

    int open(const char *path, int flags, mode_t mode) override;
    ssize_t read(int descriptor, void *buffer, std::size_t size) override;
    ssize_t write(int descriptor, const void *bytes, std::size_t size) override;
    int changeMode(int descriptor, mode_t mode) override;
    int synchronise(int descriptor) override;
    int close(int descriptor) override;
    int statusOf(int descriptor, struct stat &status) override;
    int statusAt(const char *path, struct stat &status) override;
    ssize_t readLink(const char *path, char *buffer, std::size_t size) override;
    int makeDirectory(const char *path, mode_t mode) override;
    int rename(const char *from, const char *to) override;
    int remove(const char *path) override;

  private:
    /// Counts the call; whether it is not to happen.
    bool refuses();

    int count_ = 0;
    std::optional<int> stop_;
    std::optional<int> failing_;
    int error_ = 0;
    std::size_t longestWrite_ = std::numeric_limits<std::size_t>::max();
    std::map<int, std::filesystem::path> openFiles_;
    /// Written and not synchronised since.
    std::set<std::filesystem::path> unsafe_;
    /// What was in the place of a renamed file whose folder was not synchronised since; nothing for
    /// no file.
    std::map<std::filesystem::path, std::optional<std::string>> replaced_;
};

} // namespace corvane::testing
