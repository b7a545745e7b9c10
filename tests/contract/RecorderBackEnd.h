#pragma once

#include "BackEnd.h"
#include "support/RecordingPlatform.h"

#include <gtest/gtest.h>

namespace corvane::contract {

/// The back end in memory that the unit tests run on.
class RecorderBackEnd : public BackEnd {
  public:
    static std::unique_ptr<BackEnd> make() { return std::make_unique<RecorderBackEnd>(); }

    RecorderBackEnd() { EXPECT_TRUE(platform_.fileSystem().createDirectories(directory())); }

    platform::Platform &platform() override { return platform_; }
    bool turnUntil(const std::function<bool()> &condition) override;
    void announceLock(bool isLocked) override {
        platform_.userSession().become(isLocked ? platform::SessionState::locked
                                                : platform::SessionState::active);
    }
    std::filesystem::path directory() override { return "/contract"; }

  private:
    corvane::testing::RecordingPlatform platform_;
};

} // namespace corvane::contract
