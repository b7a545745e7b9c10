#pragma once

#include "support/Failure.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

namespace platform {
class FileSystem;
}

/// A file of the program's own folder, which the user and other programs may write too. One thread
/// at a time.
class StoredFile {
  public:
    StoredFile(platform::FileSystem &files, std::filesystem::path path);

    const std::filesystem::path &path() const { return path_; }

    bool exists() const;

    Outcome<std::string> read() const;

    /// Makes the folder of the file where it is missing.
    Outcome<> makeFolder() const;

    /// Replaces the file. A text found there that is not known here is kept beside it, under the
    /// file's name with "~" behind: another program's work or a file that could not be understood.
    /// Where it cannot be kept, the log says so and the file is replaced all the same.
    Outcome<> write(const std::string &text);

    /// The program has taken over this text of the file, so that it need not be kept.
    void setKnown(std::string_view text) { known_ = hash(text); }

  private:
    static std::size_t hash(std::string_view text) { return std::hash<std::string_view>()(text); }
    void keepUnknown(const std::string &newText) const;

    platform::FileSystem &files_;
    const std::filesystem::path path_;
    /// The hash of what the file held when it was last understood or written here.
    std::optional<std::size_t> known_;
};

} // namespace corvane
