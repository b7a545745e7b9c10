#pragma once

#include "platform/LoginItem.h"

#include <filesystem>

namespace corvane::platform {
class FileSystem;
}

namespace corvane::freedesktop {

/// An entry in the user's autostart directory.
class LoginItem : public platform::LoginItem {
  public:
    /// `program` is the absolute path to start. `files` outlives the item.
    LoginItem(platform::FileSystem &files, const std::filesystem::path &configDirectory,
              std::filesystem::path program);

    /// False too where the entry is hidden or disabled or its program is missing.
    bool isEnabled() const override;
    Outcome<> registerItem() override;
    Outcome<> unregisterItem() override;

  private:
    platform::FileSystem &files_;
    const std::filesystem::path entryFile_;
    const std::filesystem::path program_;
};

} // namespace corvane::freedesktop
