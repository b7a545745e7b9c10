#include "support/FaultyFileCalls.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

namespace corvane::testing {

namespace {

namespace fs = std::filesystem;

std::optional<std::string> contentOf(const fs::path &file) {
    if (!fs::exists(file)) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

} // namespace

void FaultyFileCalls::fail(int call, int error) {
    failing_ = call;
    error_ = error;
}

void FaultyFileCalls::losePower(Survivors survivors) {
    if (survivors == Survivors::everything) {
        return;
    }
    for (const fs::path &file : unsafe_) {
        if (fs::exists(file)) {
            fs::resize_file(file, fs::file_size(file) / 2);
        }
    }
    if (survivors == Survivors::names) {
        return;
    }
    for (const auto &[place, before] : replaced_) {
        if (before) {
            std::ofstream(place, std::ios::binary) << *before;
        } else {
            fs::remove(place);
        }
    }
}

bool FaultyFileCalls::refuses() {
    ++count_;
    const bool isOver = stop_ && count_ >= *stop_;
    if (isOver || failing_ == count_) {
        errno = isOver ? EIO : error_;
        return true;
    }
    return false;
}

int FaultyFileCalls::open(const char *path, int flags, mode_t mode) {
    if (refuses()) {
        return -1;
    }
    const int descriptor = FileCalls::open(path, flags, mode);
    openFiles_[descriptor] = path;
    return descriptor;
}

ssize_t FaultyFileCalls::read(int descriptor, void *buffer, std::size_t size) {
    return refuses() ? -1 : FileCalls::read(descriptor, buffer, size);
}

ssize_t FaultyFileCalls::write(int descriptor, const void *bytes, std::size_t size) {
    if (refuses()) {
        return -1;
    }
    unsafe_.insert(openFiles_.at(descriptor));
    return FileCalls::write(descriptor, bytes, std::min(size, longestWrite_));
}

int FaultyFileCalls::changeMode(int descriptor, mode_t mode) {
    return refuses() ? -1 : FileCalls::changeMode(descriptor, mode);
}

int FaultyFileCalls::synchronise(int descriptor) {
    if (refuses()) {
        return -1;
    }
    const fs::path &file = openFiles_.at(descriptor);
    unsafe_.erase(file);
    std::erase_if(replaced_,
                  [&file](const auto &each) { return each.first.parent_path() == file; });
    return FileCalls::synchronise(descriptor);
}

/// Closes it in any case, as the end of a program would.
int FaultyFileCalls::close(int descriptor) {
    const bool isRefused = refuses();
    const int reason = errno;
    const int result = FileCalls::close(descriptor);
    errno = reason;
    return isRefused ? -1 : result;
}

int FaultyFileCalls::statusOf(int descriptor, struct stat &status) {
    return refuses() ? -1 : FileCalls::statusOf(descriptor, status);
}

int FaultyFileCalls::statusAt(const char *path, struct stat &status) {
    return refuses() ? -1 : FileCalls::statusAt(path, status);
}

ssize_t FaultyFileCalls::readLink(const char *path, char *buffer, std::size_t size) {
    return refuses() ? -1 : FileCalls::readLink(path, buffer, size);
}

int FaultyFileCalls::makeDirectory(const char *path, mode_t mode) {
    return refuses() ? -1 : FileCalls::makeDirectory(path, mode);
}

int FaultyFileCalls::rename(const char *from, const char *to) {
    if (refuses()) {
        return -1;
    }
    replaced_.try_emplace(to, contentOf(to));
    if (unsafe_.erase(from) > 0) {
        unsafe_.insert(to);
    }
    return FileCalls::rename(from, to);
}

int FaultyFileCalls::remove(const char *path) { return refuses() ? -1 : FileCalls::remove(path); }

} // namespace corvane::testing
