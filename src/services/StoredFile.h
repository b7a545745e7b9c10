#pragma once

#include "support/Failure.h"

#include <filesystem>
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
    Outcome<> write(const std::string &text);

    /// The program has taken over this text of the file, so that it need not be kept.
    void setKnown(std::string text) { known_ = std::move(text); }

  private:
    Outcome<> keepUnknown(const std::string &newText) const;

    platform::FileSystem &files_;
    const std::filesystem::path path_;
    /// What the file held when it was last understood or written here.
    std::optional<std::string> known_;
};

} // namespace corvane
