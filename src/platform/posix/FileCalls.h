#pragma once

#include <cstddef>

#include <sys/stat.h>
#include <sys/types.h>

namespace corvane::posix {

/// The system's calls on files, as far as `PosixFileSystem` makes them, so that tests can let any
/// of them fail. Each returns what the system does, -1 with `errno` for a failure. Any thread.
class FileCalls {
  public:
    FileCalls() = default;
    FileCalls(const FileCalls &) = delete;
    FileCalls &operator=(const FileCalls &) = delete;
    virtual ~FileCalls() = default;

    virtual int open(const char *path, int flags, mode_t mode);
    virtual ssize_t read(int descriptor, void *buffer, std::size_t size);
    virtual ssize_t write(int descriptor, const void *bytes, std::size_t size);
    virtual int changeMode(int descriptor, mode_t mode);
    /// Returns when the disk itself holds what was written.
    virtual int synchronise(int descriptor);
    virtual int close(int descriptor);
    virtual int statusOf(int descriptor, struct stat &status);
    /// Of the file that links lead to.
    virtual int statusAt(const char *path, struct stat &status);
    virtual ssize_t readLink(const char *path, char *buffer, std::size_t size);
    virtual int makeDirectory(const char *path, mode_t mode);
    virtual int rename(const char *from, const char *to);
    virtual int remove(const char *path);
};

} // namespace corvane::posix
