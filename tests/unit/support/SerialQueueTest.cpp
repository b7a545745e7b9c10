#include "support/SerialQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace corvane {
namespace {

TEST(SerialQueueTest, DoesWorkInTheOrderGivenOnOneThreadOfItsOwn) {
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    SerialQueue queue;
    for (int number = 0; number < 1000; ++number) {
        queue.post([&, number] {
            order.push_back(number);
            threads.push_back(std::this_thread::get_id());
        });
    }
    queue.drain();
    ASSERT_EQ(order.size(), 1000U);
    for (int number = 0; number < 1000; ++number) {
        EXPECT_EQ(order[static_cast<std::size_t>(number)], number);
    }
    EXPECT_EQ(std::count(threads.begin(), threads.end(), threads.front()), 1000);
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(SerialQueueTest, FinishesEverythingBeforeItGoes) {
    std::atomic done = 0;
    {
        SerialQueue queue;
        for (int number = 0; number < 1000; ++number) {
            queue.post([&done] { ++done; });
        }
    }
    EXPECT_EQ(done, 1000);
}

TEST(SerialQueueTest, FinishesAlsoWhatItsOwnWorkPosts) {
    std::atomic done = 0;
    {
        SerialQueue queue;
        queue.post([&] {
            ++done;
            queue.post([&] {
                ++done;
                queue.post([&] { ++done; });
            });
        });
    }
    EXPECT_EQ(done, 3);
}

TEST(SerialQueueTest, TakesWorkFromManyThreads) {
    int done = 0;
    SerialQueue queue;
    constexpr int threadCount = 4;
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&] {
            for (int number = 0; number < 250; ++number) {
                queue.post([&done] { ++done; });
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    queue.drain();
    EXPECT_EQ(done, 1000);
}

TEST(SerialQueueTest, DrainingAnIdleQueueReturns) {
    SerialQueue queue;
    queue.drain();
    queue.drain();
    std::atomic done = false;
    queue.post([&done] { done = true; });
    queue.drain();
    EXPECT_TRUE(done);
}

} // namespace
} // namespace corvane
