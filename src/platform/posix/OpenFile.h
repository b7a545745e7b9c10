#pragma once

#include "platform/posix/FileCalls.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::posix {

/// An open file. Its operations go on where a signal interrupts them; a failure leaves its reason
/// in `errno`. The calls outlive it.
class OpenFile {
  public:
    OpenFile(FileCalls &calls, const std::filesystem::path &path, int flags, mode_t mode = 0);
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;
    ~OpenFile() { close(); }

    bool isOpen() const { return descriptor_ >= 0; }

    std::optional<struct stat> status() const;
    bool changeMode(mode_t mode) const;

    /// The next bytes; none at the end, nothing for a failure.
    std::optional<std::string> read() const;
    /// All of it.
    bool write(std::string_view content) const;
    /// Returns when the disk itself holds what was written.
    bool synchronise() const;

    /// Closes it now; false when the system reports that something written was lost.
    bool close();

  private:
    FileCalls &calls_;
    int descriptor_;
};

} // namespace corvane::posix
