#include "services/StoredFile.h"

#include "platform/FileSystem.h"
#include "support/Log.h"

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
    keepUnknown(text);
    auto replaced = files_.replaceFile(path_, text);
    if (replaced) {
        setKnown(text);
    }
    return replaced;
}

/// Where there is no file, or none that can be read, there is nothing to keep.
void StoredFile::keepUnknown(const std::string &newText) const {
    const auto found = files_.readFile(path_);
    if (!found || hash(*found) == known_ || *found == newText) {
        return;
    }
    if (const auto kept = files_.replaceFile(path_.string() + "~", *found); !kept) {
        log("Not kept before it is replaced: " + path_.string() + ": " + kept.error().description);
    }
}

} // namespace corvane
