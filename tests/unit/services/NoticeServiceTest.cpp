#include "services/NoticeService.h"

#include "support/recorder/MemoryFileSystem.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(NoticeServiceTest, EachNoticeComesOnceAndAFileRemembersIt) {
    testing::MemoryFileSystem files;
    EXPECT_TRUE(NoticeService(files, "/home/user").isFirst("panel"));
    EXPECT_EQ(files.content("/home/user/.config/corvane/notices/panel"), "");
    EXPECT_FALSE(NoticeService(files, "/home/user").isFirst("panel"));
    EXPECT_TRUE(NoticeService(files, "/home/user").isFirst("another"));
}

TEST(NoticeServiceTest, WhatCannotBeRememberedComesAgain) {
    testing::MemoryFileSystem files;
    files.setFaults({.createDirectories = Failure{"read-only"}});
    NoticeService notices(files, "/home/user");
    EXPECT_TRUE(notices.isFirst("panel"));
    EXPECT_TRUE(notices.isFirst("panel"));
    EXPECT_EQ(files.content("/home/user/.config/corvane/notices/panel"), std::nullopt);
}

} // namespace
} // namespace corvane
