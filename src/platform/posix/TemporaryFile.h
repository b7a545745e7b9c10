#pragma once

#include "platform/posix/OpenFile.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace corvane::posix {

/// A file beside its final place that disappears unless it is moved there. A failure leaves its
/// reason in `errno`.
class TemporaryFile {
  public:
    TemporaryFile(FileCalls &calls, const std::filesystem::path &place);
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile();

    bool isOpen() const { return file_.isOpen(); }

    bool takePermissionsOf(const struct stat &status) const;

    bool writeDurably(std::string_view content);

    bool moveToPlace();

    /// Removes what programs left behind that were stopped between creating such a file for the
    /// same place and moving it there, an hour ago or more. Best effort.
    void removeAbandoned() const;

  private:
    FileCalls &calls_;
    const std::filesystem::path place_;
    const std::filesystem::path name_;
    OpenFile file_;
    bool isPending_;
};

} // namespace corvane::posix
