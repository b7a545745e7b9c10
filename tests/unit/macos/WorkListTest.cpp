#include "platform/macos/logic/WorkList.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::macos {
namespace {

TEST(WorkListTest, GivesTheWorkInItsOrderAndSaysWhetherMoreFollows) {
    std::string done;
    WorkList list;
    EXPECT_FALSE(list.takeNext());
    list.add([&] { done += "a"; });
    list.add([&] { done += "b"; });
    const auto first = list.takeNext();
    ASSERT_TRUE(first);
    EXPECT_TRUE(first->isFollowed);
    const auto second = list.takeNext();
    ASSERT_TRUE(second);
    EXPECT_FALSE(second->isFollowed);
    first->work();
    second->work();
    EXPECT_EQ(done, "ab");
    EXPECT_FALSE(list.takeNext());
}

} // namespace
} // namespace corvane::macos
