#pragma once

#include "support/recorder/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>
#include <thread>
#include <utility>

namespace corvane::testing {

/// A disk in memory during whose next access to a file something else is done. One thread.
class InterruptedFileSystem : public MemoryFileSystem {
  public:
    Outcome<std::string> readFile(const std::filesystem::path &path) override {
        interrupt();
        return MemoryFileSystem::readFile(path);
    }
    Outcome<> replaceFile(const std::filesystem::path &path, std::string_view content) override {
        interrupt();
        return MemoryFileSystem::replaceFile(path, content);
    }

    void onNextAccess(std::function<void()> work) { work_ = std::move(work); }

  private:
    void interrupt() {
        if (const auto work = std::exchange(work_, nullptr)) {
            work();
        }
    }

    std::function<void()> work_;
};

/// Expects that `other`, begun on another thread while `one` accesses the disk, has to wait until
/// `one` is over.
inline void expectOneAtATime(InterruptedFileSystem &files, const std::function<void()> &one,
                             const std::function<void()> &other) {
    std::promise<void> over;
    auto isOver = over.get_future();
    std::thread thread;
    files.onNextAccess([&] {
        thread = std::thread([&] {
            other();
            over.set_value();
        });
        EXPECT_EQ(isOver.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    });
    one();
    ASSERT_TRUE(thread.joinable()) << "the disk was not accessed";
    thread.join();
}

} // namespace corvane::testing
