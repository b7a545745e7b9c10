#pragma once

#include "platform/FileSystem.h"

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

namespace corvane::testing {

/// What a disk refuses to do, and why; nothing for success.
struct DiskFaults {
    std::optional<Failure> read{};
    std::optional<Failure> createDirectories{};
    std::optional<Failure> write{};
};

/// A disk in memory. It begins with the root directory alone. Any thread.
class MemoryFileSystem : public platform::FileSystem {
  public:
    bool exists(const std::filesystem::path &path) override;
    Outcome<std::string> readFile(const std::filesystem::path &path) override;
    Outcome<> createDirectories(const std::filesystem::path &path) override;
    /// Fails when the parent directory does not exist.
    Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) override;

    /// Puts a file there with all its parents; does not count as a write.
    void put(const std::filesystem::path &path, std::string content);
    /// Removes a file, or a directory with everything in it.
    void remove(const std::filesystem::path &path);
    /// From now on.
    void setFaults(const DiskFaults &faults);

    /// The file's content; nothing when it does not exist.
    std::optional<std::string> content(const std::filesystem::path &path) const;
    bool isDirectory(const std::filesystem::path &path) const;
    /// The files read so far, in order, the failed attempts included.
    std::vector<std::filesystem::path> reads() const;
    /// The files replaced so far, in order, the failed attempts included.
    std::vector<std::filesystem::path> writes() const;

  private:
    void addDirectories(const std::filesystem::path &path);

    mutable std::mutex mutex_;
    std::map<std::filesystem::path, std::string> files_;
    std::set<std::filesystem::path> directories_{"/"};
    std::vector<std::filesystem::path> reads_;
    std::vector<std::filesystem::path> writes_;
    DiskFaults faults_;
};

} // namespace corvane::testing
