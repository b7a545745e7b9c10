#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace corvane {

/// One thread that does work in the order it is given. Destroying the queue first finishes all of
/// it.
class SerialQueue {
  public:
    SerialQueue();
    ~SerialQueue();

    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    /// Any thread; never waits for the work.
    void post(std::function<void()> work);

    /// Waits until everything posted so far is done. Any thread but the queue's own.
    void drain();

  private:
    void run();

    std::mutex mutex_;
    std::condition_variable wakeUp_;
    std::deque<std::function<void()>> work_;
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace corvane
