#include "platform/posix/FileCalls.h"

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace corvane::posix {

int FileCalls::open(const char *path, int flags, mode_t mode) { return ::open(path, flags, mode); }

ssize_t FileCalls::read(int descriptor, void *buffer, std::size_t size) {
    return ::read(descriptor, buffer, size);
}

ssize_t FileCalls::write(int descriptor, const void *bytes, std::size_t size) {
    return ::write(descriptor, bytes, size);
}

int FileCalls::changeMode(int descriptor, mode_t mode) { return ::fchmod(descriptor, mode); }

int FileCalls::synchronise(int descriptor) {
#ifdef F_FULLFSYNC
    // Where this exists, fsync leaves the bytes in the cache of the disk.
    if (::fcntl(descriptor, F_FULLFSYNC) == 0) {
        return 0;
    }
#endif
    return ::fsync(descriptor);
}

int FileCalls::close(int descriptor) { return ::close(descriptor); }

int FileCalls::statusOf(int descriptor, struct stat &status) {
    return ::fstat(descriptor, &status);
}

int FileCalls::statusAt(const char *path, struct stat &status) { return ::stat(path, &status); }

ssize_t FileCalls::readLink(const char *path, char *buffer, std::size_t size) {
    return ::readlink(path, buffer, size);
}

int FileCalls::makeDirectory(const char *path, mode_t mode) { return ::mkdir(path, mode); }

int FileCalls::rename(const char *from, const char *to) { return ::rename(from, to); }

int FileCalls::remove(const char *path) { return ::unlink(path); }

} // namespace corvane::posix
