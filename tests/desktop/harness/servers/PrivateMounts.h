#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::desktop {

/// What a program sees differently in the file system than everybody else: it is started in a mount
/// namespace of its own, which needs no privileges and ends with it.
class PrivateMounts {
  public:
    /// The program finds `source` where `target` is. Both exist and are of the same kind.
    void replace(const std::filesystem::path &target, const std::filesystem::path &source);

    /// Mounts `folder` read-only for the program, also when root runs it.
    void makeReadOnly(const std::filesystem::path &folder);

    /// The program finds an empty file system of that size at `folder`.
    void putSmallFileSystem(const std::filesystem::path &folder, std::size_t bytes);

    /// Enters the namespace and mounts; false when the system refuses. For a child process between
    /// fork and exec: allocates nothing.
    bool enter() const;

  private:
    struct Mount {
        std::string source;
        std::string target;
        std::string type;
        unsigned long flags = 0;
        std::string data;
    };

    std::vector<Mount> mounts_;
};

} // namespace corvane::desktop
