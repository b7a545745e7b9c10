#include "support/StandardOutput.h"

#include "support/LineCapture.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(StandardOutputTest, PrintsOneLineAtOnce) {
    ::testing::internal::CaptureStdout();
    printLine("[Corvane] 100 % of \"it\" – \\n");
    printLine("");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "[Corvane] 100 % of \"it\" – \\n\n\n");
}

TEST(StandardOutputTest, ASinkTakesTheLines) {
    ::testing::internal::CaptureStdout();
    {
        const testing::OutputCapture capture;
        printLine("one");
        EXPECT_EQ(capture.lines(), std::vector<std::string>{"one"});
    }
    printLine("two");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "two\n");
}

} // namespace
} // namespace corvane
