#include "support/recorder/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

namespace corvane::testing {

namespace fs = std::filesystem;

namespace {

std::unexpected<Failure> missing(const fs::path &path) {
    return std::unexpected(Failure{path.string() + ": No such file or directory"});
}

bool isInside(const fs::path &path, const fs::path &directory) {
    return std::ranges::mismatch(directory, path).in1 == directory.end();
}

} // namespace

bool MemoryFileSystem::exists(const fs::path &path) {
    const std::lock_guard lock(mutex_);
    return files_.contains(path) || directories_.contains(path);
}

Outcome<std::string> MemoryFileSystem::readFile(const fs::path &path) {
    const std::lock_guard lock(mutex_);
    reads_.push_back(path);
    if (faults_.read) {
        return std::unexpected(*faults_.read);
    }
    const auto found = files_.find(path);
    if (found == files_.end()) {
        return missing(path);
    }
    return found->second;
}

Outcome<> MemoryFileSystem::createDirectories(const fs::path &path) {
    const std::lock_guard lock(mutex_);
    if (faults_.createDirectories) {
        return std::unexpected(*faults_.createDirectories);
    }
    for (fs::path each = path; each != each.parent_path(); each = each.parent_path()) {
        if (files_.contains(each)) {
            return std::unexpected(Failure{path.string() + ": Not a directory"});
        }
    }
    addDirectories(path);
    return {};
}

Outcome<> MemoryFileSystem::replaceFile(const fs::path &path, std::string_view content) {
    const std::lock_guard lock(mutex_);
    writes_.push_back(path);
    if (faults_.write) {
        return std::unexpected(*faults_.write);
    }
    if (!directories_.contains(path.parent_path())) {
        return missing(path);
    }
    if (directories_.contains(path)) {
        return std::unexpected(Failure{path.string() + ": it is a directory"});
    }
    files_[path] = content;
    return {};
}

void MemoryFileSystem::put(const fs::path &path, std::string content) {
    const std::lock_guard lock(mutex_);
    addDirectories(path.parent_path());
    files_[path] = std::move(content);
}

void MemoryFileSystem::remove(const fs::path &path) {
    const std::lock_guard lock(mutex_);
    std::erase_if(files_, [&](const auto &file) { return isInside(file.first, path); });
    std::erase_if(directories_, [&](const fs::path &each) { return isInside(each, path); });
}

void MemoryFileSystem::setFaults(const DiskFaults &faults) {
    const std::lock_guard lock(mutex_);
    faults_ = faults;
}

std::optional<std::string> MemoryFileSystem::content(const fs::path &path) const {
    const std::lock_guard lock(mutex_);
    const auto found = files_.find(path);
    return found == files_.end() ? std::nullopt : std::optional(found->second);
}

bool MemoryFileSystem::isDirectory(const fs::path &path) const {
    const std::lock_guard lock(mutex_);
    return directories_.contains(path);
}

std::vector<fs::path> MemoryFileSystem::reads() const {
    const std::lock_guard lock(mutex_);
    return reads_;
}

std::vector<fs::path> MemoryFileSystem::writes() const {
    const std::lock_guard lock(mutex_);
    return writes_;
}

void MemoryFileSystem::addDirectories(const fs::path &path) {
    for (fs::path each = path; each != each.parent_path(); each = each.parent_path()) {
        directories_.insert(each);
    }
}

} // namespace corvane::testing
