#pragma once

#include "BackEnd.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

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
    void click(Point point) override;
    std::filesystem::path directory() override { return "/contract"; }

  private:
    corvane::testing::RecordingPlatform platform_;
    /// Mouse events that have not been reported yet.
    std::vector<std::function<void()>> events_;
};

} // namespace corvane::contract
