#include "services/NoticeService.h"

#include "platform/FileSystem.h"

#include <tuple>

namespace corvane {

NoticeService::NoticeService(platform::FileSystem &files,
                             const std::filesystem::path &homeDirectory)
    : files_(files),
      directory_(homeDirectory / ".config" / "corvane" / "notices") {}

bool NoticeService::isFirst(const std::string &name) {
    const std::filesystem::path file = directory_ / name;
    if (files_.exists(file)) {
        return false;
    }
    // Where it cannot be remembered, the notice comes again.
    if (files_.createDirectories(directory_)) {
        std::ignore = files_.replaceFile(file, "");
    }
    return true;
}

} // namespace corvane
