#include "services/StoredFile.h"

#include "platform/FileSystem.h"

#include <utility>

namespace corvane {

StoredFile::StoredFile(platform::FileSystem &files, std::filesystem::path path)
    : files_(files),
      path_(std::move(path)) {}

bool StoredFile::exists() const { return files_.exists(path_); }

Outcome<std::string> StoredFile::read() const { return files_.readFile(path_); }

Outcome<> StoredFile::makeFolder() const {
    const std::filesystem::path folder = path_.parent_path();
    return files_.exists(folder) ? Outcome<>() : files_.createDirectories(folder);
}

Outcome<> StoredFile::write(const std::string &text) {
    if (const auto kept = keepUnknown(text); !kept) {
        return kept;
    }
    auto replaced = files_.replaceFile(path_, text);
    if (replaced) {
        known_ = text;
    }
    return replaced;
}

/// Where there is no file, or none that can be read, there is nothing to keep.
Outcome<> StoredFile::keepUnknown(const std::string &newText) const {
    const auto found = files_.readFile(path_);
    if (!found || *found == known_ || *found == newText) {
        return {};
    }
    return files_.replaceFile(path_.string() + "~", *found);
}

} // namespace corvane
