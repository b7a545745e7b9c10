#pragma once

#include <gtest/gtest.h>

#include <thread>

namespace corvane::testing {

/// Fails the test when what belongs to one thread is used on another.
class OneThread {
  public:
    /// Named in the failure: "overlay windows".
    explicit OneThread(const char *subject) : subject_(subject) {}

    void check() const {
        EXPECT_EQ(std::this_thread::get_id(), owner_) << subject_ << " used on another thread";
    }

  private:
    const char *subject_;
    std::thread::id owner_ = std::this_thread::get_id();
};

} // namespace corvane::testing
