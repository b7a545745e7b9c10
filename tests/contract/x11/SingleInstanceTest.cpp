#include "platform/x11/connection/SingleInstance.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

/// A start of the program, with a connection of its own.
class Start {
  public:
    bool isOnlyOne() const { return instance_ != nullptr; }

  private:
    std::unique_ptr<x11::XcbConnection> connection_ = x11::XcbConnection::open().value();
    std::unique_ptr<x11::SingleInstance> instance_ = x11::SingleInstance::claim(*connection_);
};

TEST(SingleInstanceTest, TheFirstStartIsTheOnlyOne) {
    const Start first;
    EXPECT_TRUE(first.isOnlyOne());
}

TEST(SingleInstanceTest, ALaterStartIsRefused) {
    const Start first;
    const Start second;
    EXPECT_FALSE(second.isOnlyOne());
    EXPECT_TRUE(first.isOnlyOne());
}

TEST(SingleInstanceTest, TheEndOfTheFirstMakesRoom) {
    {
        const Start first;
    }
    const Start second;
    EXPECT_TRUE(second.isOnlyOne());
}

} // namespace

} // namespace corvane::contract
