#include "platform/posix/FileFacts.h"

#include <unistd.h>

namespace corvane::posix {

namespace {

bool isThere(const std::filesystem::path &path) { return access(path.c_str(), F_OK) == 0; }

FileFact factOf(const std::filesystem::path &path) {
    if (isThere(path)) {
        return {.path = path,
                .isReadable = access(path.c_str(), R_OK) == 0,
                .isWritable = access(path.c_str(), W_OK) == 0};
    }
    std::filesystem::path folder = path.parent_path();
    while (!isThere(folder) && folder != folder.parent_path()) {
        folder = folder.parent_path();
    }
    return {.path = path, .isWritable = access(folder.c_str(), W_OK | X_OK) == 0};
}

} // namespace

std::vector<FileFact> readFileFacts(const std::vector<std::filesystem::path> &paths) {
    std::vector<FileFact> facts;
    facts.reserve(paths.size());
    for (const std::filesystem::path &path : paths) {
        facts.push_back(factOf(path));
    }
    return facts;
}

} // namespace corvane::posix
