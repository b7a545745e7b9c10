#include "services/DynamicZoneRect.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace corvane {
namespace {

TEST(DynamicZoneRectTest, HoldsWhatWasWrittenLast) {
    DynamicZoneRect zone({1, 2, 3, 4});
    EXPECT_EQ(zone.rect(), (Rectangle{1, 2, 3, 4}));
    zone.setRect({5, 6, 7, 8});
    EXPECT_EQ(zone.rect(), (Rectangle{5, 6, 7, 8}));
}

TEST(DynamicZoneRectTest, IsNeverSeenHalfWritten) {
    DynamicZoneRect zone({0, 0, 0, 0});
    std::atomic isWriting = true;
    std::thread writer([&] {
        for (int turn = 1; turn <= 20000; ++turn) {
            const double value = turn;
            zone.setRect({value, value, value, value});
        }
        isWriting = false;
    });
    while (isWriting) {
        const Rectangle rect = zone.rect().value();
        ASSERT_EQ(rect, (Rectangle{rect.x, rect.x, rect.x, rect.x}));
    }
    writer.join();
}

} // namespace
} // namespace corvane
