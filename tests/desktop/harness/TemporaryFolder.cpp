#include "TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

#include <unistd.h>

namespace corvane::desktop {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "corvane-desktop-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("No temporary folder could be made");
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryFolder::makeFolder(const std::string &name) const {
    const std::filesystem::path folder = path_ / name;
    std::filesystem::create_directory(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    return folder;
}

} // namespace corvane::desktop
