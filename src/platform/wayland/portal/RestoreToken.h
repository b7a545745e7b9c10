#pragma once

#include <filesystem>
#include <string>
#include <utility>

namespace corvane::wayland::portal {

/// The desktop's note that the user has agreed before, kept in a file that only the user can read.
/// With it a desktop does not ask again. Main thread.
class RestoreToken {
  public:
    explicit RestoreToken(std::filesystem::path file) : file_(std::move(file)) {}

    /// Empty where there is none.
    std::string read() const;
    /// A failure is logged: the user is then asked again at the next start.
    void write(const std::string &token) const;

  private:
    const std::filesystem::path file_;
};

} // namespace corvane::wayland::portal
