#pragma once

#include "support/Geometry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <vector>

namespace corvane {

namespace platform {
class Platform;
}

namespace contract {

/// A back end and what a test needs to see it at work. Made and used on the main thread.
class BackEnd {
  public:
    virtual ~BackEnd() = default;

    virtual platform::Platform &platform() = 0;

    /// Lets time pass and the main thread work until the condition holds; false when it does not
    /// within a generous time.
    [[nodiscard]] virtual bool turnUntil(const std::function<bool()> &condition) = 0;

    /// Announces that the screen is locked or unlocked, as the system's locker does.
    virtual void announceLock(bool isLocked) = 0;

    /// The user clicks on an overlay with the left button; screen space. Press and release are
    /// reported to the overlay that is there now, but only while `turnUntil` runs.
    virtual void click(Point point) = 0;

    /// An existing, empty directory for the test's own files.
    virtual std::filesystem::path directory() = 0;
};

/// A kind of back end by name.
struct BackEndKind {
    const char *name;
    std::unique_ptr<BackEnd> (*make)();

    friend std::ostream &operator<<(std::ostream &stream, const BackEndKind &kind) {
        return stream << kind.name;
    }
};

/// The recorder and the back end of this machine.
std::vector<BackEndKind> backEndKinds();

/// The same, and the back end with the other window systems of this machine.
std::vector<BackEndKind> windowSystemKinds();

/// A test that every back end has to pass.
class ContractTest : public testing::TestWithParam<BackEndKind> {
  protected:
    platform::Platform &platform() { return backEnd_->platform(); }
    BackEnd &backEnd() { return *backEnd_; }

  private:
    std::unique_ptr<BackEnd> backEnd_ = GetParam().make();
};

/// Runs the tests of a suite derived from ContractTest on every back end.
#define CORVANE_CONTRACT(Suite)                                                                    \
    INSTANTIATE_TEST_SUITE_P(BackEnds, Suite, testing::ValuesIn(backEndKinds()),                   \
                             [](const auto &test) { return test.param.name; })

/// Runs them also with every window system.
#define CORVANE_WINDOW_CONTRACT(Suite)                                                             \
    INSTANTIATE_TEST_SUITE_P(BackEnds, Suite, testing::ValuesIn(windowSystemKinds()),              \
                             [](const auto &test) { return test.param.name; })

} // namespace contract

} // namespace corvane
